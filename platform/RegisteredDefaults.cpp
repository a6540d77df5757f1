// The values that settings have before the user changes anything: one table, the only one.
#include "platform/UserDefaults.h"

#include <array>
#include <utility>

namespace tabulon {
namespace {

using Entry = std::pair<std::string_view, std::string_view>;

constexpr auto kRegistered = std::to_array<Entry>({
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
    {"NSInitialToolTipDelay", "10"},
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
});

} // namespace

std::optional<std::string_view> registeredDefault(std::string_view key) {
    for (const auto& [name, value] : kRegistered)
        if (name == key)
            return value;
    return std::nullopt;
}

} // namespace tabulon
