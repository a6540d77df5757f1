#include "cli/SettingKeys.h"

#include "base/Settings.h"

#include <algorithm>
#include <array>

namespace tabulon::cli {
namespace {

constexpr auto kKeys = std::to_array<std::string_view>({
    settings::kAddDateAddedColumnSearch.key,
    settings::kAddDateCheckedColumnSearch.key,
    settings::kAddDateModifiedColumnSearch.key,
    settings::kAddDateOpenedColumnSearch.key,
    settings::kAddNoteColumnSearch.key,
    settings::kAddTagsColumn.key,
    settings::kAddTagsColumnSearch.key,
    settings::kAddURLColumnSearch.key,
    settings::kAutoEdit.key,
    settings::kAutoStartup.key,
    settings::kBackupFolderBookmark.key,
    settings::kBrokenLinks.key,
    settings::kColumnSort.key,
    settings::kCommandK.key,
    settings::kCommandM.key,
    settings::kCommandOptionK.key,
    settings::kCommandOptionU.key,
    settings::kCommandShiftU.key,
    settings::kCopyFormat.key,
    settings::kDockMenu.key,
    settings::kDuplicateLinks.key,
    settings::kExportHTMLBookmark.key,
    settings::kExportName.key,
    settings::kExportNote.key,
    settings::kExportSortName.key,
    settings::kExportTags.key,
    settings::kExportURL.key,
    settings::kFontName.key,
    settings::kFontSize.key,
    settings::kHideWindows.key,
    settings::kHistoryShow.key,
    settings::kHistoryStatus.key,
    settings::kIgnoreCase.key,
    settings::kLastOpened.key,
    settings::kMakeBackups.key,
    settings::kMarkFolder.key,
    settings::kMoveLinks.key,
    settings::kToolTipDelay.key,
    settings::kOpenInBrowser.key,
    settings::kOpenInCurrent.key,
    settings::kOpenInHelper.key,
    settings::kOpenInNewTab.key,
    settings::kOpenInNewWindow.key,
    settings::kOpenUntitled.key,
    settings::kRememberDesktop.key,
    settings::kRowHeight.key,
    settings::kSaveAsHTML.key,
    settings::kSharedMenu.key,
    settings::kShowBalloonNote.key,
    settings::kShowBalloonTags.key,
    settings::kShowBalloonURL.key,
    settings::kShowMarks.key,
    settings::kSkipFolders.key,
    settings::kSkipSeparators.key,
    settings::kSkipWindow.key,
    settings::kSortImmediately.key,
    settings::kSuppressColumnSortSheet.key,
    settings::kTagsIndex.key,
    settings::kTagsWidth.key,
    settings::kUnknownLinks.key,
    settings::kVersionsLimit.key,
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
    return std::ranges::find(kKeys, key) != kKeys.end() ||
           std::ranges::find(kKeysOfLaterParts, key) != kKeysOfLaterParts.end();
}

} // namespace tabulon::cli
