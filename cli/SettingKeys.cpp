#include "cli/SettingKeys.h"

#include "base/Settings.h"

#include <algorithm>
#include <array>

namespace tabulon::cli {
namespace {

// The settings without a registered value.
constexpr auto kUnregistered = std::to_array<std::string_view>({
    settings::kBackupFolderBookmark.key,
    settings::kBrokenLinks.key,
    settings::kColumnSort.key,
    settings::kExportHTMLBookmark.key,
    settings::kFontName.key,
    settings::kToolTipDelay.key,
    settings::kSuppressColumnSortSheet.key,
    settings::kUnknownLinks.key,
});

// Settings that are stored, but that no part of the program reads yet.
constexpr auto kKeysOfLaterParts = std::to_array<std::string_view>({
    "CabinetFolderBookmark",
    "CommandShiftM",
    "IncludeHistory",
    "PrefTabIndex",
    "SharedTabWindow",
    "StartupItemsBookmark",
    "suppressAccess",
});

} // namespace

bool isSettingKey(std::string_view key) {
    return registeredDefault(key) || std::ranges::find(kUnregistered, key) != kUnregistered.end() ||
           std::ranges::find(kKeysOfLaterParts, key) != kKeysOfLaterParts.end();
}

} // namespace tabulon::cli
