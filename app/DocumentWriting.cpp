#include "app/DocumentWriting.h"

#include "app/SaveTasks.h"
#include "window/SharedAlerts.h"

namespace tabulon {

DocumentStores::DocumentStores(const Platform& platform)
    : recent(platform.state), unsaved(platform.files, platform.recovery),
      revertPoints(platform.files, platform.recovery, platform.base.log),
      versions(platform.files, platform.base.clock, platform.base.defaults,
               platform.folders.stateFolder() + "/versions") {}

// Revert to Saved restores what is written here.
Result<void> DocumentWriting::write(OpenDocument& opened, const std::string& path) {
    Result<void> written = writeBytes(opened, path, opened.document.dataOfType(kDocumentType));
    if (written)
        stores_.revertPoints.forget(opened.document);
    return written;
}

Result<void> DocumentWriting::writeByItself(OpenDocument& opened) {
    return writeBytes(opened, opened.document.fileName(), opened.document.dataOfType(kDocumentType));
}

Result<void> DocumentWriting::writeBytes(OpenDocument& opened, const std::string& path,
                                         const std::string& bytes) {
    Document& document = opened.document;
    const auto reading = stores_.versions.readOnce();
    runSaveTasks(*opened.controller, platform_, stores_.versions);
    if (!document.fileName().empty())
        saveFrameUsingName(opened, platform_.state);
    const std::string fileBefore = document.fileName();
    if (const Result<void> kept = stores_.versions.willReplace(path, fileBefore); !kept)
        platform_.base.log.log(kept.error().message);
    Result<void> written = path == document.fileName() ? platform_.files.writeBack(path, bytes)
                                                       : platform_.files.writeFileAtomically(path, bytes);
    if (!written)
        return written;
    document.updateChangeCount(ChangeKind::Cleared);
    if (document.fileName() != path) {
        document.setFileName(path);
        stores_.recent.note(path);
    }
    stores_.unsaved.forget(document);
    opened.identity = platform_.files.identityOf(document.fileName());
    stores_.versions.didReplace(path, fileBefore);
    return {};
}

bool DocumentWriting::writeOrAlert(OpenDocument& opened, const std::string& path) {
    const Result<void> written = write(opened, path);
    if (!written)
        failedSaveAlert(opened, path, written.error());
    return written.has_value();
}

void DocumentWriting::failedSaveAlert(OpenDocument& opened, const std::string& path, const Error& error) {
    const Document& document = opened.document;
    if (path == document.fileName())
        opened.failureReported = true;
    alerts_.whileAlertIsUp(document,
                           [&] { writeErrorAlert(platform_, "CouldNotSave", path, error, &document); });
}

namespace {

std::string frameKey(const Document& document) {
    return "NSWindow Frame " + nameWithoutExtension(document.fileName());
}

} // namespace

void saveFrameUsingName(const OpenDocument& opened, UserDefaults& state) {
    state.setStringForKey(frameKey(opened.document), opened.window->frame());
}

void restoreWindowFrame(const OpenDocument& opened, const UserDefaults& state) {
    if (const auto frame = state.stringForKey(frameKey(opened.document)))
        opened.window->setFrame(*frame);
}

} // namespace tabulon
