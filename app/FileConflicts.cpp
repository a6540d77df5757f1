#include "app/FileConflicts.h"

#include "window/SharedAlerts.h"

#include <utility>
#include <vector>

namespace tabulon {

FileConflicts::Answer FileConflicts::ask(const Document& document, Before before) {
    while (true) {
        const auto identity = platform_.files.identityOf(document.fileName());
        if (identity == documents_.find(document)->identity)
            return Answer::Overwrite;
        const bool wasAsking = std::exchange(asking_, true);
        const Answer answer = choose(document, identity.has_value(), before);
        asking_ = wasAsking;
        if (!documents_.find(document)) // closed while the question was up
            return Answer::Cancel;
        if (answer != Answer::Overwrite || platform_.files.identityOf(document.fileName()) == identity)
            return answer;
    }
}

FileConflicts::Answer FileConflicts::choose(const Document& document, bool isThere, Before before) {
    const Localization& texts = platform_.base.texts;
    const bool isClosing = before == Before::Closing;
    std::vector<std::pair<AlertButton, Answer>> choices;
    if (!isThere)
        choices.push_back({{texts.text("SaveAgain")}, Answer::Overwrite});
    choices.push_back({{texts.text("SaveAsButton")}, Answer::SaveAs});
    if (isThere)
        choices.push_back({{texts.text("KeepMine"), AlertButtonRole::Destructive}, Answer::Overwrite});
    if (isThere || isClosing)
        choices.push_back(
            {{texts.text(isClosing ? "CloseWithoutSaving" : "Reload"), AlertButtonRole::Destructive},
             Answer::DropMine});
    choices.push_back({{texts.text("Cancel"), AlertButtonRole::Cancel}, Answer::Cancel});
    const std::string key = isThere ? "FileChanged" : "FileGone";
    Alert alert{.style = AlertStyle::Warning,
                .message = texts.format(key, lastPathComponent(document.fileName())),
                .informative = texts.text(key + (isClosing ? "ClosingText" : "Text"))};
    for (const auto& [button, answer] : choices)
        alert.buttons.push_back(button);
    const auto chosen = static_cast<std::size_t>(alerts_.ask(document, std::move(alert)) - kAlertFirstButton);
    return chosen < choices.size() ? choices[chosen].second : Answer::Cancel;
}

} // namespace tabulon
