// The values that settings have before the user changes anything: one table, the only one.
#include "base/UserDefaults.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

constexpr auto kRegistered = std::to_array<RegisteredDefault>({
    {"AddDateAddedColumnSearch", "YES"},
    {"AddDateCheckedColumnSearch", "YES"},
    {"AddDateModifiedColumnSearch", "YES"},
    {"AddDateOpenedColumnSearch", "YES"},
    {"AddNoteColumnSearch", "YES"},
    {"AddTagsColumn", "NO"},
    {"AddTagsColumnSearch", "YES"},
    {"AddURLColumnSearch", "YES"},
    {"AutoEdit", "YES"},
    {"AutoStartup", "YES"},
    {"CommandK", "YES"},
    {"CommandM", "YES"},
    {"CommandOptionK", "NO"},
    {"CommandOptionU", "YES"},
    {"CommandShiftU", "NO"},
    {"CopyFormat", "0"},
    {"DockMenu", "NO"},
    {"DuplicateLinks", "YES"},
    {"ExportName", "YES"},
    {"ExportNote", "YES"},
    {"ExportSortName", "NO"},
    {"ExportTags", "YES"},
    {"ExportURL", "YES"},
    {"FontSize", "11.0"},
    {"HideWindows", "NO"},
    {"HistoryShow", "NO"},
    {"HistoryStatus", "NO"},
    {"IgnoreCase", "YES"},
    {"LastOpened", "NO"},
    {"MakeBackups", "YES"},
    {"MarkFolder", "YES"},
    {"MoveLinks", "YES"},
    {"OpenInBrowser", "YES"},
    {"OpenInCurrent", "YES"},
    {"OpenInHelper", "NO"},
    {"OpenInNewTab", "NO"},
    {"OpenInNewWindow", "NO"},
    {"OpenUntitled", "YES"},
    {"RememberDesktop", "YES"},
    {"RowHeight", "17.0"},
    {"SaveAsHTML", "NO"},
    {"SharedMenu", "YES"},
    {"ShowBalloonNote", "YES"},
    {"ShowBalloonTags", "YES"},
    {"ShowBalloonURL", "YES"},
    {"ShowMarks", "NO"},
    {"SkipFolders", "YES"},
    {"SkipSeparators", "YES"},
    {"SkipWindow", "NO"},
    {"SortImmediately", "NO"},
    {"TagsIndex", "1"},
    {"TagsWidth", "100.0"},
    {"VersionsLimit", "1000"},
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
