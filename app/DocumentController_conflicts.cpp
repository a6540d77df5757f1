// The file under a document: noticing that another program changed it, and going back to what it holds.
#include "app/DocumentController.h"
#include "window/SharedAlerts.h"

#include <utility>

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

// What to do with a file that is not as the document left it. Nothing is overwritten without this answer, and
// what the file became while the question was up is asked about again.
DocumentController::FileAnswer DocumentController::askAboutFile(const Document& document, Before before) {
    while (true) {
        const auto identity = platform_.files.identityOf(document.fileName());
        if (identity == find(document)->identity)
            return FileAnswer::Overwrite;
        const bool wasAsking = std::exchange(asking_, true);
        const FileAnswer answer = chooseForFile(document, identity.has_value(), before);
        asking_ = wasAsking;
        if (answer != FileAnswer::Overwrite || platform_.files.identityOf(document.fileName()) == identity)
            return answer;
    }
}

DocumentController::FileAnswer DocumentController::chooseForFile(const Document& document, bool isThere,
                                                                 Before before) {
    const Localization& texts = platform_.base.texts;
    const bool isClosing = before == Before::Closing;
    std::vector<std::pair<AlertButton, FileAnswer>> choices;
    if (!isThere)
        choices.push_back({{texts.text("SaveAgain")}, FileAnswer::Overwrite});
    choices.push_back({{texts.text("SaveAsButton")}, FileAnswer::SaveAs});
    if (isThere)
        choices.push_back({{texts.text("KeepMine"), AlertButtonRole::Destructive}, FileAnswer::Overwrite});
    if (isThere || isClosing)
        choices.push_back(
            {{texts.text(isClosing ? "CloseWithoutSaving" : "Reload"), AlertButtonRole::Destructive},
             FileAnswer::DropMine});
    choices.push_back({{texts.text("Cancel"), AlertButtonRole::Cancel}, FileAnswer::Cancel});
    const std::string key = isThere ? "FileChanged" : "FileGone";
    Alert alert = fileAlert(texts, key, document, {});
    if (isClosing)
        alert.informative = texts.text(key + "ClosingText");
    for (const auto& [button, answer] : choices)
        alert.buttons.push_back(button);
    const auto chosen = static_cast<std::size_t>(platform_.alerts.runModal(alert) - kAlertFirstButton);
    return chosen < choices.size() ? choices[chosen].second : FileAnswer::Cancel;
}

void DocumentController::noteFile(Document& document) {
    find(document)->identity = platform_.files.identityOf(document.fileName());
}

// Link marks are hidden after a revert, in every window.
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
    if (shared_.showMarks)
        shared_.showMarks(false);
    document.updateChangeCount(ChangeKind::Cleared);
    unsaved_.forget(document);
    find(document)->identity = identity;
    return true;
}

void DocumentController::revertDocument(Document& document) {
    find(document)->controller->commitEditing();
    const Localization& texts = platform_.base.texts;
    const Alert question = fileAlert(texts, "Revert", document,
                                     {{texts.text("RevertButton"), AlertButtonRole::Destructive},
                                      {texts.text("Cancel"), AlertButtonRole::Cancel}});
    if (platform_.alerts.runModal(question) == kAlertFirstButton)
        revertToContentsOfURL(document);
}

} // namespace tabulon
