#include "window/AccessoryViewController.h"

#include "base/Settings.h"
#include "formats/ExportFormats.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tabulon {
namespace {

struct Option {
    CheckBox AccessoryViewController::*box;
    Setting<bool> setting;
};

constexpr auto kOptions = std::to_array<Option>({
    {&AccessoryViewController::exportName, settings::kExportName},
    {&AccessoryViewController::exportURL, settings::kExportURL},
    {&AccessoryViewController::exportTags, settings::kExportTags},
    {&AccessoryViewController::exportNote, settings::kExportNote},
    {&AccessoryViewController::sortByName, settings::kExportSortName},
    {&AccessoryViewController::skipFolders, settings::kSkipFolders},
    {&AccessoryViewController::skipSeparators, settings::kSkipSeparators},
    {&AccessoryViewController::saveCopyHTML, settings::kSaveAsHTML},
});

} // namespace

FileKind exportFileKind(const ExportFormat& format, const Localization& texts) {
    return {texts.text(format.titleKey), {std::string(format.extension)}};
}

void AccessoryViewController::viewDidLoad() {
    services_.log.log("AccessoryViewController loaded");
    loaded_ = true;
    for (const Option& option : kOptions)
        (this->*option.box).on = valueOf(services_.defaults, option.setting);
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
        (this->*option.box).hidden = std::ranges::find(exportFormats()[index].options, option.setting.key) ==
                                     exportFormats()[index].options.end();
    addedHeight_ = skipFolders.hidden ? 0 : kTextOptionsHeight;
}

void AccessoryViewController::savePreferences() {
    if (!loaded_)
        return;
    for (const Option& option : kOptions)
        setValue(services_.defaults, option.setting, (this->*option.box).on);
}

} // namespace tabulon
