#include "window/AccessoryViewController.h"

#include "formats/ExportFormats.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tabulon {
namespace {

struct Option {
    CheckBox AccessoryViewController::*box;
    std::string_view key;
};

constexpr auto kOptions = std::to_array<Option>({
    {&AccessoryViewController::exportName, "ExportName"},
    {&AccessoryViewController::exportURL, "ExportURL"},
    {&AccessoryViewController::exportTags, "ExportTags"},
    {&AccessoryViewController::exportNote, "ExportNote"},
    {&AccessoryViewController::sortByName, "ExportSortName"},
    {&AccessoryViewController::skipFolders, "SkipFolders"},
    {&AccessoryViewController::skipSeparators, "SkipSeparators"},
    {&AccessoryViewController::saveCopyHTML, "SaveAsHTML"},
});

} // namespace

FileKind exportFileKind(const ExportFormat& format, const Localization& texts) {
    return {texts.text(format.titleKey), {std::string(format.extension)}};
}

void AccessoryViewController::viewDidLoad() {
    services_.log.log("AccessoryViewController loaded");
    loaded_ = true;
    for (const Option& option : kOptions)
        (this->*option.box).on = services_.defaults.boolForKey(option.key);
    showOptionsOf(0);
}

std::vector<std::string> AccessoryViewController::exportTypes() const {
    std::vector<std::string> titles;
    for (const ExportFormat& format : exportFormats())
        titles.push_back(services_.texts.text(format.titleKey));
    return titles;
}

void AccessoryViewController::exportTypeSelected(std::size_t index) {
    showOptionsOf(index);
    if (panel_)
        panel_->setAllowedFileType(exportFileKind(exportFormats()[index], services_.texts));
}

void AccessoryViewController::showOptionsOf(std::size_t index) {
    for (const Option& option : kOptions)
        (this->*option.box).hidden = std::ranges::find(exportFormats()[index].options, option.key) ==
                                     exportFormats()[index].options.end();
    addedHeight_ = skipFolders.hidden ? 0 : kTextOptionsHeight;
}

void AccessoryViewController::savePreferences() {
    if (!loaded_)
        return;
    for (const Option& option : kOptions)
        services_.defaults.setBoolForKey(option.key, (this->*option.box).on);
}

} // namespace tabulon
