#include "app/SaveTasks.h"

#include "base/Settings.h"
#include "text/DateFormat.h"

#include <filesystem>

namespace tabulon {
namespace {

std::string backupName(const std::string& path, const BaseServices& services) {
    const std::filesystem::path file(path);
    const std::string extension = file.extension().string();
    return file.stem().string() + "-" +
           formatDate(Date::now(services.clock), "yyyy-MM-dd", services.texts.locale(),
                      services.clock.timeZone()) +
           "." + (extension.empty() ? extension : extension.substr(1));
}

// Keeps a file at the backup's path that is no backup of the document. Fails if that file would be lost.
Result<void> keepForeignFile(const std::string& file, const std::string& backup, const Platform& platform,
                             VersionStore& versions) {
    if (!platform.files.fileExists(backup) || versions.isBackupOf(file, backup))
        return {};
    if (!versions.isOn())
        return failure("No backup was made: “" + backup +
                       "” may be no backup of the document, and no versions are kept.");
    return versions.keepFile(backup);
}

} // namespace

void makeBackup(const Document& document, const Platform& platform, VersionStore& versions) {
    const std::string& file = document.fileName();
    if (file.empty())
        return;
    std::optional<std::string> folder = platform.folders.resolve(settings::kBackupFolderBookmark.key);
    if (!folder)
        folder = platform.folders.documentsFolder();
    if (!folder)
        return;
    const std::string backup = *folder + "/" + backupName(file, platform.base);
    if (const Result<void> kept = keepForeignFile(file, backup, platform, versions); !kept)
        return platform.base.log.log(kept.error().message);
    if (platform.files.copyFile(file, backup))
        versions.noteBackup(file, backup);
}

void saveCopyHTML(const ViewController& controller, const Platform& platform) {
    const auto path = platform.folders.resolve(settings::kExportHTMLBookmark.key);
    if (!path)
        return;
    if (const Result<std::string> html = controller.exporting().exportToHTML())
        (void)platform.files.writeFileAtomically(*path, *html);
}

void runSaveTasks(const ViewController& controller, const Platform& platform, VersionStore& versions) {
    const UserDefaults& defaults = platform.base.defaults;
    if (valueOf(defaults, settings::kMakeBackups))
        makeBackup(controller.outline().document(), platform, versions);
    if (valueOf(defaults, settings::kSaveAsHTML))
        saveCopyHTML(controller, platform);
}

} // namespace tabulon
