#include "opening/RememberedPermission.h"

#include "base/Browsers.h"

#include <algorithm>
#include <string>

namespace tabulon {
namespace {

std::string_view identifierOf(std::string_view application) {
    const Browser* browser = browserWithIdentifier(application);
    return browser ? browser->identifier : application;
}

std::string keyFor(std::string_view application) {
    return "MayAutomate " + std::string(identifierOf(application));
}

std::string titleOf(std::string_view application) {
    const Browser* browser = browserWithIdentifier(application);
    return std::string(browser ? browser->title : application);
}

} // namespace

bool RememberedPermission::mayAutomate(std::string_view application, PermissionQuestion question) {
    if (!isConnected(application))
        return true;
    if (const std::optional<bool> known = answer(application))
        return *known;
    return question == PermissionQuestion::Allowed && ask(application);
}

std::optional<bool> RememberedPermission::answer(std::string_view application) const {
    const std::string key = keyFor(application);
    return services_.answers.stringForKey(key) ? std::optional(services_.answers.boolForKey(key))
                                               : std::nullopt;
}

void RememberedPermission::setAnswer(std::string_view application, std::optional<bool> answer) {
    const std::string key = keyFor(application);
    if (answer)
        services_.answers.setBoolForKey(key, *answer);
    else
        services_.answers.removeKey(key);
}

bool RememberedPermission::isConnected(std::string_view application) const {
    const std::string_view identifier = identifierOf(application);
    return std::ranges::any_of(services_.bridge.connectedBrowsers(), [&](const ConnectedBrowser& browser) {
        return identifierOf(browser.identifier) == identifier;
    });
}

bool RememberedPermission::ask(std::string_view application) {
    const Localization& texts = services_.texts;
    const Alert question{
        .style = AlertStyle::Informational,
        .message = texts.format("AllowBrowser", titleOf(application)),
        .informative = texts.text("AllowBrowserInfo"),
        .buttons = {{texts.text("Allow")}, {texts.text("DoNotAllow"), AlertButtonRole::Cancel}}};
    const bool isAllowed = services_.alerts.runModal(question) == kAlertFirstButton;
    setAnswer(application, isAllowed);
    return isAllowed;
}

} // namespace tabulon
