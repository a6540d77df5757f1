// Writing documents to their own file or to another one. After a failed write the document stays changed, and
// the file is as it was.
#include "app/DocumentController.h"
#include "app/SaveTasks.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <filesystem>

namespace tabulon {
namespace {

std::string folderOf(const Document& document) {
    return std::filesystem::path(document.fileName()).parent_path().string();
}

} // namespace

// A save that the user has asked for. Revert to Saved restores it.
Result<void> DocumentController::write(Document& document, const std::string& path) {
    Result<void> written = writeBytes(document, path, document.dataOfType(kDocumentType));
    if (written)
        revertPoints_.forget(document);
    return written;
}

// An automatic save in place.
Result<void> DocumentController::writeByItself(Document& document) {
    return writeBytes(document, document.fileName(), document.dataOfType(kDocumentType));
}

Result<void> DocumentController::writeBytes(Document& document, const std::string& path,
                                            const std::string& bytes) {
    const OpenDocument& opened = *find(document);
    const auto reading = versions_.readOnce();
    runSaveTasks(*opened.controller, platform_, versions_);
    if (!document.fileName().empty())
        saveFrameUsingName(opened);
    const std::string fileBefore = document.fileName();
    if (const Result<void> kept = versions_.willReplace(path, fileBefore); !kept)
        platform_.base.log.log(kept.error().message);
    Result<void> written = path == document.fileName() ? platform_.files.writeBack(path, bytes)
                                                       : platform_.files.writeFileAtomically(path, bytes);
    if (!written)
        return written;
    document.updateChangeCount(ChangeKind::Cleared);
    if (document.fileName() != path) {
        document.setFileName(path);
        recentDocuments_.note(path);
    }
    unsaved_.forget(document);
    noteFile(document);
    versions_.didReplace(path, fileBefore);
    return {};
}

bool DocumentController::writeOrAlert(Document& document, const std::string& path) {
    const Result<void> written = write(document, path);
    if (!written)
        failedSaveAlert(document, path, written.error());
    return written.has_value();
}

// The user knows of this failure, so the next automatic save does not report it again.
void DocumentController::failedSaveAlert(const Document& document, const std::string& path,
                                         const Error& error) {
    if (path == document.fileName())
        find(document)->autosave.failureTold = true;
    whileAlertIsUp(document, [&] { writeErrorAlert(platform_, "CouldNotSave", path, error, &document); });
}

void DocumentController::saveDocument(Document& document, const Done& done) {
    find(document)->controller->fields().commitEditing();
    if (document.fileName().empty())
        return saveDocumentAs(document, done);
    switch (askAboutFile(document, Before::Saving)) {
    case FileAnswer::Overwrite:
        return done(writeOrAlert(document, document.fileName()));
    case FileAnswer::DropMine:
        return done(revertToContentsOfURL(document));
    case FileAnswer::SaveAs:
        return saveDocumentAs(document, done);
    case FileAnswer::Cancel:
        return done(false);
    }
}

// The frame is stored under the file's name without extension.
void DocumentController::saveFrameUsingName(const OpenDocument& opened) {
    platform_.state.setStringForKey("NSWindow Frame " + nameWithoutExtension(opened.document.fileName()),
                                    opened.window->frame());
}

void DocumentController::restoreWindowFrame(const OpenDocument& opened) {
    const auto frame =
        platform_.state.stringForKey("NSWindow Frame " + nameWithoutExtension(opened.document.fileName()));
    if (frame)
        opened.window->setFrame(*frame);
}

const Document* DocumentController::otherDocumentOfFile(const Document& document,
                                                        const std::string& path) const {
    for (const Document* other : documents())
        if (other != &document && isSameFile(platform_.files, other->fileName(), path))
            return other;
    return nullptr;
}

void DocumentController::saveDocumentAs(Document& document, const Done& done) {
    find(document)->controller->fields().commitEditing();
    const Localization& texts = platform_.base.texts;
    const SavePanel panel{.message = texts.text("SaveDocument"),
                          .prompt = texts.text("Save"),
                          .directory = folderOf(document),
                          .proposedName = document.displayName(),
                          .kind = {texts.text("BookmarkDocuments"), {std::string(kDocumentExtension)}},
                          .document = &document};
    const auto save = [this, &document, &texts, done](const std::optional<std::string>& path) {
        if (!path || !find(document))
            return done(false);
        if (otherDocumentOfFile(document, *path)) {
            whileAlertIsUp(document, [&] {
                informationAlert(platform_, texts.format("AlreadyOpen", lastPathComponent(*path)),
                                 texts.text("AlreadyOpenText"), &document);
            });
            return done(false);
        }
        // Another program may have changed the document's file while the panel was shown.
        if (isSameFile(platform_.files, document.fileName(), *path))
            return saveDocument(document, done);
        done(writeOrAlert(document, *path));
    };
    platform_.panels.beginSavePanel(panel, save);
}

void DocumentController::browseVersions(Document& document) {
    if (document.fileName().empty())
        return;
    find(document)->controller->fields().commitEditing();
    const auto open = [this](const Ref<Bookmark>& root, const std::string& name) {
        return openUntitled(root, name) != nullptr;
    };
    const auto fileIsAsLeft = [this, &document] {
        return platform_.files.identityOf(document.fileName()) == find(document)->identity;
    };
    windows_.presentVersions(
        std::make_shared<VersionsController>(document, versions_, platform_, open, fileIsAsLeft));
}

} // namespace tabulon
