#include "app/SettingsAlerts.h"

#include "base/Text.h"
#include "base/Utf8.h"

namespace tabulon {
namespace {

std::string_view keyOf(SettingsProblem::Kind kind) {
    switch (kind) {
    case SettingsProblem::Kind::Damaged:
        return "SettingsDamaged";
    case SettingsProblem::Kind::Unreadable:
        return "SettingsUnreadable";
    case SettingsProblem::Kind::Unwritable:
        return "SettingsUnwritable";
    }
    return "";
}

} // namespace

void settingsProblemAlert(const Platform& platform, const SettingsProblem& problem) {
    const Localization& texts = platform.base.texts;
    const std::string_view key = keyOf(problem.kind);
    const bool damaged = problem.kind == SettingsProblem::Kind::Damaged;
    platform.alerts.runModal(
        Alert{.style = AlertStyle::Warning,
              .message = texts.text(key),
              .informative = texts.format(std::string(key) + "Text",
                                          damaged ? decodeUtf8Leniently(problem.keptAs) : problem.reason),
              .buttons = {{texts.text("OK")}}});
}

std::string settingsProblemLine(const SettingsProblem& problem) {
    std::string path = decodeUtf8Leniently(problem.path);
    switch (problem.kind) {
    case SettingsProblem::Kind::Damaged:
        return path + " was damaged and is now " + decodeUtf8Leniently(problem.keptAs);
    case SettingsProblem::Kind::Unreadable:
        return path + " could not be read: " + problem.reason;
    case SettingsProblem::Kind::Unwritable:
        return path + " could not be written: " + problem.reason;
    }
    return path;
}

} // namespace tabulon
