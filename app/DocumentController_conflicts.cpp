// The file under a document: noticing that another program changed it, and going back to what it holds.
#include "app/DocumentController.h"
#include "app/SharedAlerts.h"

namespace tabulon {

namespace {

Alert fileAlert(const Localization& texts, std::string_view key, const Document& document,
                std::vector<AlertButton> buttons) {
    return Alert{.style = AlertStyle::Warning,
                 .message = texts.format(key, lastPathComponent(document.fileName())),
                 .informative = texts.text(std::string(key) + "Text"),
                 .buttons = std::move(buttons),
                 .document = &document};
}

} // namespace

// What to do with a file that is not as the document left it. Nothing is overwritten without this answer.
DocumentController::FileAnswer DocumentController::askAboutFile(const Document& document) {
    const auto identity = platform_.files.identityOf(document.fileName());
    if (identity == find(document)->identity)
        return FileAnswer::Overwrite;
    const Localization& texts = platform_.base.texts;
    const AlertButton saveAs{texts.text("SaveAsButton")};
    const AlertButton cancel{texts.text("Cancel"), AlertButtonRole::Cancel};
    if (!identity) {
        const Alert alert =
            fileAlert(texts, "FileGone", document, {{texts.text("SaveAgain")}, saveAs, cancel});
        switch (platform_.alerts.runModal(alert) - kAlertFirstButton) {
        case 0:
            return FileAnswer::Overwrite;
        case 1:
            return FileAnswer::SaveAs;
        default:
            return FileAnswer::Cancel;
        }
    }
    const Alert alert = fileAlert(texts, "FileChanged", document,
                                  {saveAs,
                                   {texts.text("KeepMine"), AlertButtonRole::Destructive},
                                   {texts.text("Reload"), AlertButtonRole::Destructive},
                                   cancel});
    switch (platform_.alerts.runModal(alert) - kAlertFirstButton) {
    case 0:
        return FileAnswer::SaveAs;
    case 1:
        return FileAnswer::Overwrite;
    case 2:
        return FileAnswer::Reload;
    default:
        return FileAnswer::Cancel;
    }
}

void DocumentController::noteFile(Document& document) {
    find(document)->identity = platform_.files.identityOf(document.fileName());
}

// Link marks are hidden after a revert.
bool DocumentController::revertToContentsOfURL(Document& document) {
    const auto identity = platform_.files.identityOf(document.fileName());
    const Result<std::string> bytes = platform_.files.readFile(document.fileName());
    const Result<void> read = bytes ? document.readFromDataOfType(*bytes, kDocumentType)
                                    : Result<void>(tl::unexpected(bytes.error()));
    if (!read) {
        fileErrorAlert(platform_, "CouldNotOpen", document.fileName(), read.error(), &document);
        return false;
    }
    platform_.base.defaults.setBoolForKey("ShowMarks", false);
    document.updateUI();
    document.updateChangeCount(ChangeKind::Cleared);
    find(document)->identity = identity;
    return true;
}

void DocumentController::revertDocument(Document& document) {
    const Localization& texts = platform_.base.texts;
    const Alert question = fileAlert(texts, "Revert", document,
                                     {{texts.text("RevertButton"), AlertButtonRole::Destructive},
                                      {texts.text("Cancel"), AlertButtonRole::Cancel}});
    if (platform_.alerts.runModal(question) == kAlertFirstButton)
        revertToContentsOfURL(document);
}

} // namespace tabulon
