#include "app/Reverting.h"

#include "base/Settings.h"
#include "window/SharedAlerts.h"

namespace tabulon {

bool Reverting::canRevert(const Document& document) const {
    return !document.fileName().empty() &&
           (document.isDocumentEdited() || parts_.stores.revertPoints.has(document));
}

void Reverting::revertDocument(Document& document) {
    OpenDocument* opened = parts_.documents.find(document);
    if (opened->isAskedToRevert)
        return;
    opened->controller->fields().commitEditing();
    opened->isAskedToRevert = true;
    const std::optional<RevertTo> answer = ask(document);
    opened = parts_.documents.find(document);
    if (!opened) // closed while the question was up
        return;
    opened->isAskedToRevert = false;
    if (answer == RevertTo::UsersVersion)
        revertToUsersVersion(document);
    else if (answer == RevertTo::File)
        revertToContentsOfURL(document);
}

// Asks again if the file has changed while the question was shown.
std::optional<Reverting::RevertTo> Reverting::ask(const Document& document) {
    const Localization& texts = platform_.base.texts;
    while (const OpenDocument* opened = parts_.documents.find(document)) {
        const auto identity = platform_.files.identityOf(document.fileName());
        const bool changedByOthers = identity && identity != opened->identity;
        const Alert question{.style = AlertStyle::Warning,
                             .message = texts.format("Revert", lastPathComponent(document.fileName())),
                             .informative = texts.text(changedByOthers ? "RevertChangedText" : "RevertText"),
                             .buttons = {{texts.text("RevertButton"), AlertButtonRole::Destructive},
                                         {texts.text("Cancel"), AlertButtonRole::Cancel}},
                             .cancelIsDefault = true};
        if (parts_.alerts.ask(document, question) != kAlertFirstButton)
            return std::nullopt;
        if (platform_.files.identityOf(document.fileName()) == identity)
            return parts_.stores.revertPoints.has(document) && !changedByOthers ? RevertTo::UsersVersion
                                                                                : RevertTo::File;
    }
    return std::nullopt;
}

// Link marks are hidden after a revert, in every window.
bool Reverting::show(Document& document, const Result<std::string>& bytes) {
    const Result<void> read = bytes ? document.readFromDataOfType(*bytes, kDocumentType)
                                    : Result<void>(tl::unexpected(bytes.error()));
    if (!read) {
        Refusals refusals;
        refusals.add(document.fileName(), read.error(), [&] {
            return parts_.untitled.offerRemains(bytes, nameWithoutExtension(document.fileName()));
        });
        parts_.alerts.whileAlertIsUp(document, [&] { refusals.report(platform_, &document); });
        return false;
    }
    setValue(platform_.base.defaults, settings::kShowMarks, false);
    document.updateUI();
    parts_.commands.showMarks(false);
    return true;
}

bool Reverting::revertToContentsOfURL(Document& document) {
    const auto identity = platform_.files.identityOf(document.fileName());
    if (!show(document, platform_.files.readFile(document.fileName())))
        return false;
    document.updateChangeCount(ChangeKind::Cleared);
    parts_.stores.unsaved.forget(document);
    parts_.stores.revertPoints.forget(document);
    parts_.documents.find(document)->identity = identity;
    return true;
}

// The file is restored byte by byte, and its content until then is kept as a save keeps it. If the file
// cannot be written the document stays changed, and automatic saving tries again.
bool Reverting::revertToUsersVersion(Document& document) {
    const Result<std::string> bytes = parts_.stores.revertPoints.read(document);
    if (!bytes) { // the copy is missing, but the store of versions has its content
        parts_.stores.revertPoints.forget(document);
        return revertToContentsOfURL(document);
    }
    if (!show(document, bytes))
        return false;
    OpenDocument& opened = *parts_.documents.find(document);
    if (const auto written = parts_.writing.writeBytes(opened, document.fileName(), *bytes); !written) {
        document.updateChangeCount(ChangeKind::Done);
        parts_.writing.failedSaveAlert(opened, document.fileName(), written.error());
        return false;
    }
    parts_.stores.revertPoints.forget(document);
    return true;
}

} // namespace tabulon
