// The table of the registered values of all settings, sorted by key, and its look-up.
#include "base/Settings.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

template <class Value>
constexpr RegisteredDefault entry(const Setting<Value>& setting) {
    return {setting.key, setting.registered};
}

constexpr auto kRegistered = std::to_array<RegisteredDefault>({
    entry(settings::kAddDateAddedColumnSearch),
    entry(settings::kAddDateCheckedColumnSearch),
    entry(settings::kAddDateModifiedColumnSearch),
    entry(settings::kAddDateOpenedColumnSearch),
    entry(settings::kAddNoteColumnSearch),
    entry(settings::kAddTagsColumn),
    entry(settings::kAddTagsColumnSearch),
    entry(settings::kAddURLColumnSearch),
    entry(settings::kAutoEdit),
    entry(settings::kAutoStartup),
    entry(settings::kCommandK),
    entry(settings::kCommandM),
    entry(settings::kCommandOptionK),
    entry(settings::kCommandOptionU),
    entry(settings::kCommandShiftU),
    entry(settings::kCopyFormat),
    entry(settings::kDockMenu),
    entry(settings::kDuplicateLinks),
    entry(settings::kExportName),
    entry(settings::kExportNote),
    entry(settings::kExportSortName),
    entry(settings::kExportTags),
    entry(settings::kExportURL),
    entry(settings::kFontSize),
    entry(settings::kHideWindows),
    entry(settings::kHistoryShow),
    entry(settings::kHistoryStatus),
    entry(settings::kIgnoreCase),
    entry(settings::kLastOpened),
    entry(settings::kMakeBackups),
    entry(settings::kMarkFolder),
    entry(settings::kMoveLinks),
    entry(settings::kOpenInBrowser),
    entry(settings::kOpenInCurrent),
    entry(settings::kOpenInHelper),
    entry(settings::kOpenInNewTab),
    entry(settings::kOpenInNewWindow),
    entry(settings::kOpenUntitled),
    entry(settings::kRememberDesktop),
    entry(settings::kRowHeight),
    entry(settings::kSaveAsHTML),
    entry(settings::kSharedMenu),
    entry(settings::kShowBalloonNote),
    entry(settings::kShowBalloonTags),
    entry(settings::kShowBalloonURL),
    entry(settings::kShowMarks),
    entry(settings::kSkipFolders),
    entry(settings::kSkipSeparators),
    entry(settings::kSkipWindow),
    entry(settings::kSortImmediately),
    entry(settings::kTagsIndex),
    entry(settings::kTagsWidth),
    entry(settings::kVersionsLimit),
});
static_assert(std::ranges::is_sorted(kRegistered, {}, &RegisteredDefault::key));

} // namespace

std::optional<std::string_view> registeredDefault(std::string_view key) {
    const auto* const found = std::ranges::lower_bound(kRegistered, key, {}, &RegisteredDefault::key);
    if (found == kRegistered.end() || found->key != key)
        return std::nullopt;
    return found->value;
}

std::span<const RegisteredDefault> registeredDefaults() {
    return kRegistered;
}

} // namespace tabulon
