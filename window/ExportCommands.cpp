#include "window/ExportCommands.h"

#include "base/Settings.h"
#include "formats/ExportFormats.h"
#include "formats/export/LinkFile.h"
#include "window/AccessoryViewController.h"
#include "window/ActionTable.h"
#include "window/Outline.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace tabulon {
namespace {

std::string extensionOf(const std::string& path) {
    const std::string extension = std::filesystem::path(path).extension().string();
    return extension.empty() ? extension : extension.substr(1);
}

std::string folderOf(const std::string& path) {
    return std::filesystem::path(path).parent_path().string();
}

bool isOptionOf(const ExportFormat& format, const Setting<bool>& setting) {
    return std::ranges::find(format.options, setting.key) != format.options.end();
}

bool canBeSaved(const Bookmark& item) {
    return !item.itemURL().isEmpty();
}

} // namespace

ExportCommands::ExportCommands(Outline& outline, const Platform& platform, ActionTable& actions)
    : outline_(outline), platform_(platform) {
    actions.add("exportText:", [this](const MenuItem&) { exportText(); });
    actions.add(
        "saveBookmark:", [this](const MenuItem&) { saveBookmark(); },
        [this](const MenuItem&) { return outline_.hasSelection(); });
}

Result<std::string> ExportCommands::exportToHTML() const {
    return exportTo("html");
}

Result<std::string> ExportCommands::exportToXBEL() const {
    return exportTo("xbel");
}

Result<std::string> ExportCommands::exportToText() const {
    return exportTo("text");
}

Result<std::string> ExportCommands::exportTo(std::string_view format, Progress* progress) const {
    return exportFormatNamed(format)->write(outline_.getMaster(), platform_.base, progress);
}

void ExportCommands::exportText() {
    const Localization& texts = platform_.base.texts;
    const auto options = std::make_shared<AccessoryViewController>(platform_.base);
    const std::string& file = outline_.document().fileName();
    const SavePanel panel{.message = texts.text("ExportFile"),
                          .prompt = texts.text("Export"),
                          .directory = folderOf(file),
                          .proposedName = file.empty() ? texts.text("Untitled") : nameWithoutExtension(file),
                          .kind = exportFileKind(exportFormats().front(), texts),
                          .accessory = options,
                          .document = &outline_.document()};
    platform_.panels.beginSavePanel(
        panel, [this, options, life = std::weak_ptr(life_)](const std::optional<std::string>& path) {
            options->savePreferences();
            if (path && !life.expired())
                exportToFile(*path);
        });
}

// The extension decides about the format, because the user may have typed another one than the menu's.
void ExportCommands::exportToFile(const std::string& path) {
    const ExportFormat& format = exportFormatForExtension(extensionOf(path));
    if (isOptionOf(format, settings::kSaveAsHTML) && valueOf(platform_.base.defaults, settings::kSaveAsHTML))
        platform_.folders.store(settings::kExportHTMLBookmark.key, path);
    std::unique_ptr<Progress> progress =
        beginProgress(platform_, "Exporting", outline_.document().displayName(), &outline_.document());
    const Result<std::string> text = exportTo(format.name, progress.get());
    if (text)
        writeOrLog(path, *text);
    progress.reset(); // before there is an alert
    if (!text)
        fileErrorAlert(platform_, "CouldNotExport", path, text.error(), &outline_.document());
}

// A write that fails is not reported to the user.
void ExportCommands::writeOrLog(const std::string& path, std::string_view bytes) {
    if (const Result<void> written = platform_.files.writeFileAtomically(path, bytes); !written)
        platform_.base.log.log("Export could not be written: " + written.error().message);
}

void ExportCommands::saveBookmark() {
    std::vector<Ref<Bookmark>> links;
    for (const RowRange& range : outline_.view().selectedRows())
        for (std::size_t row = range.first; row < range.first + range.count; ++row)
            if (canBeSaved(outline_.itemAtRow(row)))
                links.emplace_back(&outline_.itemAtRow(row));
    std::ranges::reverse(links);
    saveBookmarkFiles(std::move(links));
}

// Begins with the last one: `links` is in reverse order.
void ExportCommands::saveBookmarkFiles(std::vector<Ref<Bookmark>> links) {
    if (links.empty())
        return;
    const Ref<Bookmark> link = links.back();
    links.pop_back();
    saveBookmarkFile(*link, [this, links = std::move(links), life = std::weak_ptr(life_)](bool confirmed) {
        if (confirmed && !life.expired())
            saveBookmarkFiles(links);
    });
}

void ExportCommands::saveBookmarkFile(const Bookmark& link, const std::function<void(bool)>& done) {
    const Localization& texts = platform_.base.texts;
    if (!canBeSaved(link))
        return;
    const SavePanel panel{.message = texts.text("SaveBookmark"),
                          .prompt = texts.text("Save"),
                          .proposedName =
                              link.itemName().isEmpty() ? texts.text("Untitled") : link.itemName().string(),
                          .kind = {texts.text("LinkFiles"), {std::string(linkFileExtension(link))}},
                          .document = &outline_.document()};
    const auto save = [this, done, file = exportToLinkFile(link),
                       life = std::weak_ptr(life_)](const std::optional<std::string>& path) {
        if (path && !life.expired()) {
            if (file)
                writeOrLog(*path, *file);
            else
                fileErrorAlert(platform_, "CouldNotExport", *path, file.error(), &outline_.document());
        }
        if (done)
            done(path.has_value());
    };
    platform_.panels.beginSavePanel(panel, save);
}

} // namespace tabulon
