// Files that another program has changed while their documents are open.
#include "app/DocumentController.h"
#include "window/SharedAlerts.h"

#include <utility>

namespace tabulon {

// Returns what is done with a file that another program has changed. The file is not overwritten without this
// answer. If the file has changed again while the question was shown, the question is repeated.
DocumentController::FileAnswer DocumentController::askAboutFile(const Document& document, Before before) {
    while (true) {
        const auto identity = platform_.files.identityOf(document.fileName());
        if (identity == find(document)->identity)
            return FileAnswer::Overwrite;
        const bool wasAsking = std::exchange(asking_, true);
        const FileAnswer answer = chooseForFile(document, identity.has_value(), before);
        asking_ = wasAsking;
        if (!find(document)) // closed while the question was up
            return FileAnswer::Cancel;
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
    Alert alert{.style = AlertStyle::Warning,
                .message = texts.format(key, lastPathComponent(document.fileName())),
                .informative = texts.text(key + (isClosing ? "ClosingText" : "Text")),
                .document = &document};
    for (const auto& [button, answer] : choices)
        alert.buttons.push_back(button);
    const auto chosen = static_cast<std::size_t>(ask(alert) - kAlertFirstButton);
    return chosen < choices.size() ? choices[chosen].second : FileAnswer::Cancel;
}

void DocumentController::noteFile(Document& document) {
    find(document)->identity = platform_.files.identityOf(document.fileName());
}

} // namespace tabulon
