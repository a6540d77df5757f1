// Restoring the state that a document had when the user opened it or last saved it.
#include "app/DocumentController.h"
#include "base/Settings.h"
#include "window/SharedAlerts.h"

namespace tabulon {

bool DocumentController::canRevert(const Document& document) const {
    return !document.fileName().empty() && (document.isDocumentEdited() || revertPoints_.has(document));
}

void DocumentController::revertDocument(Document& document) {
    OpenDocument* opened = find(document);
    if (opened->isAskedToRevert)
        return;
    opened->controller->fields().commitEditing();
    opened->isAskedToRevert = true;
    const std::optional<RevertTo> answer = askToRevert(document);
    opened = find(document);
    if (!opened) // closed while the question was up
        return;
    opened->isAskedToRevert = false;
    if (answer == RevertTo::UsersVersion)
        revertToUsersVersion(document);
    else if (answer == RevertTo::File)
        revertToContentsOfURL(document);
}

// Asks again if the file has changed while the question was shown.
std::optional<DocumentController::RevertTo> DocumentController::askToRevert(const Document& document) {
    const Localization& texts = platform_.base.texts;
    while (const OpenDocument* opened = find(document)) {
        const auto identity = platform_.files.identityOf(document.fileName());
        const bool changedByOthers = identity && identity != opened->identity;
        const Alert question{.style = AlertStyle::Warning,
                             .message = texts.format("Revert", lastPathComponent(document.fileName())),
                             .informative = texts.text(changedByOthers ? "RevertChangedText" : "RevertText"),
                             .buttons = {{texts.text("RevertButton"), AlertButtonRole::Destructive},
                                         {texts.text("Cancel"), AlertButtonRole::Cancel}},
                             .document = &document,
                             .cancelIsDefault = true};
        if (ask(question) != kAlertFirstButton)
            return std::nullopt;
        if (platform_.files.identityOf(document.fileName()) == identity)
            return revertPoints_.has(document) && !changedByOthers ? RevertTo::UsersVersion : RevertTo::File;
    }
    return std::nullopt;
}

// Link marks are hidden after a revert, in every window.
bool DocumentController::showReverted(Document& document, const Result<std::string>& bytes) {
    const Result<void> read = bytes ? document.readFromDataOfType(*bytes, kDocumentType)
                                    : Result<void>(tl::unexpected(bytes.error()));
    if (!read) {
        Refusals refusals;
        refusals.add(document.fileName(), read.error(),
                     [&] { return offerRemains(bytes, nameWithoutExtension(document.fileName())); });
        whileAlertIsUp(document, [&] { refusals.tell(platform_, &document); });
        return false;
    }
    setValue(platform_.base.defaults, settings::kShowMarks, false);
    document.updateUI();
    shared_.application.showMarks(false);
    return true;
}

bool DocumentController::revertToContentsOfURL(Document& document) {
    const auto identity = platform_.files.identityOf(document.fileName());
    if (!showReverted(document, platform_.files.readFile(document.fileName())))
        return false;
    document.updateChangeCount(ChangeKind::Cleared);
    unsaved_.forget(document);
    revertPoints_.forget(document);
    find(document)->identity = identity;
    return true;
}

// The file is restored byte by byte, and its content until then is kept as a save keeps it. If the file
// cannot be written the document stays changed, and automatic saving tries again.
bool DocumentController::revertToUsersVersion(Document& document) {
    const Result<std::string> bytes = revertPoints_.read(document);
    if (!bytes) { // the copy is missing, but the store of versions has its content
        revertPoints_.forget(document);
        return revertToContentsOfURL(document);
    }
    if (!showReverted(document, bytes))
        return false;
    if (const Result<void> written = writeBytes(document, document.fileName(), *bytes); !written) {
        document.updateChangeCount(ChangeKind::Done);
        failedSaveAlert(document, document.fileName(), written.error());
        return false;
    }
    revertPoints_.forget(document);
    return true;
}

} // namespace tabulon
