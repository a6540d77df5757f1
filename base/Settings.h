// The settings: key, type and registered value of each, declared once. docs/settings.md describes their
// effects; UserDefaults stores their values.
#pragma once

#include "base/UserDefaults.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace tabulon {

/// One setting. `Value` is bool, std::int64_t, double, or std::string_view for a text. A registered number
/// has no sign.
template <class Value>
struct Setting {
    /// `registeredValue` is the value, as text, that applies until the user sets another one; empty if there
    /// is no such value. Both views must be valid as long as the program runs. A value that is not of the
    /// setting's type does not compile.
    consteval Setting(std::string_view settingKey, std::string_view registeredValue = {})
        : key(settingKey), registered(registeredValue) {
        if (!registered.empty() && !isOfType(registered))
            throw "The registered value is not of the setting's type.";
    }

    /// The key in the file of the settings. ASCII.
    std::string_view key;
    /// The registered value as text; empty for none.
    std::string_view registered;

private:
    static constexpr bool isOfType(std::string_view text) {
        if constexpr (std::is_same_v<Value, bool>)
            return text == "YES" || text == "NO";
        else if constexpr (std::is_same_v<Value, std::int64_t>)
            return text.find_first_not_of("0123456789") == text.npos;
        else if constexpr (std::is_same_v<Value, double>)
            return text.find_first_not_of("0123456789.") == text.npos;
        else
            return true;
    }
};

/// Returns the value that was set, else the registered one, else false.
inline bool valueOf(const UserDefaults& defaults, const Setting<bool>& setting) {
    return defaults.boolForKey(setting.key);
}
/// Returns the value that was set, else the registered one, else 0.
inline std::int64_t valueOf(const UserDefaults& defaults, const Setting<std::int64_t>& setting) {
    return defaults.integerForKey(setting.key);
}
/// Returns the value that was set, else the registered one, else 0.
inline double valueOf(const UserDefaults& defaults, const Setting<double>& setting) {
    return defaults.doubleForKey(setting.key);
}
/// Returns the text that was set, else the registered one, else an empty text. A path is in the file system's
/// encoding, every other text is UTF-8.
inline std::string valueOf(const UserDefaults& defaults, const Setting<std::string_view>& setting) {
    return defaults.stringForKey(setting.key).value_or("");
}

/// Returns whether the setting has a value, set or registered.
template <class Value>
bool hasValue(const UserDefaults& defaults, const Setting<Value>& setting) {
    return defaults.stringForKey(setting.key).has_value();
}

/// Sets the value for this run of the program and later ones.
inline void setValue(UserDefaults& defaults, const Setting<bool>& setting, bool value) {
    defaults.setBoolForKey(setting.key, value);
}
/// Sets the value for this run of the program and later ones.
inline void setValue(UserDefaults& defaults, const Setting<std::int64_t>& setting, std::int64_t value) {
    defaults.setIntegerForKey(setting.key, value);
}
/// Sets the value for this run of the program and later ones.
inline void setValue(UserDefaults& defaults, const Setting<double>& setting, double value) {
    defaults.setDoubleForKey(setting.key, value);
}

namespace settings {

/// A column of the search results: the date added.
inline constexpr Setting<bool> kAddDateAddedColumnSearch{"AddDateAddedColumnSearch", "YES"};
/// A column of the search results: the date of the last check.
inline constexpr Setting<bool> kAddDateCheckedColumnSearch{"AddDateCheckedColumnSearch", "YES"};
/// A column of the search results: the date modified.
inline constexpr Setting<bool> kAddDateModifiedColumnSearch{"AddDateModifiedColumnSearch", "YES"};
/// A column of the search results: the date of the last opening.
inline constexpr Setting<bool> kAddDateOpenedColumnSearch{"AddDateOpenedColumnSearch", "YES"};
/// A column of the search results: the note.
inline constexpr Setting<bool> kAddNoteColumnSearch{"AddNoteColumnSearch", "YES"};
/// Whether the outline has the column of tags.
inline constexpr Setting<bool> kAddTagsColumn{"AddTagsColumn", "NO"};
/// A column of the search results: the tags.
inline constexpr Setting<bool> kAddTagsColumnSearch{"AddTagsColumnSearch", "YES"};
/// A column of the search results: the address.
inline constexpr Setting<bool> kAddURLColumnSearch{"AddURLColumnSearch", "YES"};
/// Whether the field under the pointer is edited half a second after its row is selected.
inline constexpr Setting<bool> kAutoEdit{"AutoEdit", "YES"};
/// Whether a start opens the documents of the startup folder.
inline constexpr Setting<bool> kAutoStartup{"AutoStartup", "YES"};
/// The path of a folder, which FolderReferences resolves and stores.
inline constexpr Setting<std::string_view> kBackupFolderBookmark{"BackupFolderBookmark"};
/// Whether removing marked links removes the broken ones.
inline constexpr Setting<bool> kBrokenLinks{"BrokenLinks"};
/// Whether a click on the title of a column sorts the document.
inline constexpr Setting<bool> kColumnSort{"ColumnSort"};
/// Whether Super+K adds the current page from every program.
inline constexpr Setting<bool> kCommandK{"CommandK", "YES"};
/// Whether Ctrl+M is the key of an item of the Go menu and does not minimize the window.
inline constexpr Setting<bool> kCommandM{"CommandM", "YES"};
/// The same as `kCommandK`, with Alt too.
inline constexpr Setting<bool> kCommandOptionK{"CommandOptionK", "NO"};
/// Whether Super+Alt+U activates this program from every program.
inline constexpr Setting<bool> kCommandOptionU{"CommandOptionU", "YES"};
/// The same as `kCommandOptionU`, with Shift in place of Alt.
inline constexpr Setting<bool> kCommandShiftU{"CommandShiftU", "NO"};
/// 0 to 3: address, address in brackets, name and address, HTML.
inline constexpr Setting<std::int64_t> kCopyFormat{"CopyFormat", "0"};
/// Whether the menu of the launcher is the shared menu.
inline constexpr Setting<bool> kDockMenu{"DockMenu", "NO"};
/// Whether removing marked links removes the duplicates.
inline constexpr Setting<bool> kDuplicateLinks{"DuplicateLinks", "YES"};
/// The path of a file, which FolderReferences resolves and stores.
inline constexpr Setting<std::string_view> kExportHTMLBookmark{"ExportHTMLBookmark"};
/// Whether the text export has the names.
inline constexpr Setting<bool> kExportName{"ExportName", "YES"};
/// Whether the text export has the notes.
inline constexpr Setting<bool> kExportNote{"ExportNote", "YES"};
/// Whether the exports to HTML and XBEL sort folders by name.
inline constexpr Setting<bool> kExportSortName{"ExportSortName", "NO"};
/// Whether the text export has the tags.
inline constexpr Setting<bool> kExportTags{"ExportTags", "YES"};
/// Whether the text export has the addresses.
inline constexpr Setting<bool> kExportURL{"ExportURL", "YES"};
/// The name of a font family; empty for the font of the desktop.
inline constexpr Setting<std::string_view> kFontName{"FontName"};
/// In points of 1/72 inch.
inline constexpr Setting<double> kFontSize{"FontSize", "11.0"};
/// Whether windows are hidden while another program is active.
inline constexpr Setting<bool> kHideWindows{"HideWindows", "NO"};
/// Whether the window of the history is open.
inline constexpr Setting<bool> kHistoryShow{"HistoryShow", "NO"};
/// Whether the history is recorded.
inline constexpr Setting<bool> kHistoryStatus{"HistoryStatus", "NO"};
/// Whether searching ignores letter case.
inline constexpr Setting<bool> kIgnoreCase{"IgnoreCase", "YES"};
/// Whether opening a bookmark stores the time in it, which changes its document.
inline constexpr Setting<bool> kLastOpened{"LastOpened", "NO"};
/// Whether a save copies the version before it to a dated backup.
inline constexpr Setting<bool> kMakeBackups{"MakeBackups", "YES"};
/// Whether folders among the search results have a symbol before their names.
inline constexpr Setting<bool> kMarkFolder{"MarkFolder", "YES"};
/// Whether removing marked links moves them to the Waste Basket.
inline constexpr Setting<bool> kMoveLinks{"MoveLinks", "YES"};
/// In milliseconds.
inline constexpr Setting<std::int64_t> kToolTipDelay{"NSInitialToolTipDelay"};
/// The opposite of `kOpenInHelper`, stored with it.
inline constexpr Setting<bool> kOpenInBrowser{"OpenInBrowser", "YES"};
/// Whether neither `kOpenInNewTab` nor `kOpenInNewWindow` is on; stored with them.
inline constexpr Setting<bool> kOpenInCurrent{"OpenInCurrent", "YES"};
/// Whether a double click opens a bookmark with the application for its scheme. Takes precedence.
inline constexpr Setting<bool> kOpenInHelper{"OpenInHelper", "NO"};
/// Whether a double click opens a bookmark in a new tab. Takes precedence over a new window.
inline constexpr Setting<bool> kOpenInNewTab{"OpenInNewTab", "NO"};
/// Whether a double click opens a bookmark in a new window.
inline constexpr Setting<bool> kOpenInNewWindow{"OpenInNewWindow", "NO"};
/// Whether a start without files opens an untitled document.
inline constexpr Setting<bool> kOpenUntitled{"OpenUntitled", "YES"};
/// Whether expanding and collapsing a folder changes the document, and is saved.
inline constexpr Setting<bool> kRememberDesktop{"RememberDesktop", "YES"};
/// In points of 1/72 inch. Rows are higher where the font needs it.
inline constexpr Setting<double> kRowHeight{"RowHeight", "17.0"};
/// Whether a save also writes the HTML copy.
inline constexpr Setting<bool> kSaveAsHTML{"SaveAsHTML", "NO"};
/// Whether there is a status item with the shared menu.
inline constexpr Setting<bool> kSharedMenu{"SharedMenu", "YES"};
/// Whether tool tips contain the note of a bookmark.
inline constexpr Setting<bool> kShowBalloonNote{"ShowBalloonNote", "YES"};
/// Whether tool tips contain the tags of a bookmark.
inline constexpr Setting<bool> kShowBalloonTags{"ShowBalloonTags", "YES"};
/// Whether tool tips contain the address of a bookmark.
inline constexpr Setting<bool> kShowBalloonURL{"ShowBalloonURL", "YES"};
/// Whether links show the result of the last check.
inline constexpr Setting<bool> kShowMarks{"ShowMarks", "NO"};
/// Whether the text export skips folders.
inline constexpr Setting<bool> kSkipFolders{"SkipFolders", "YES"};
/// Whether the text export skips separators.
inline constexpr Setting<bool> kSkipSeparators{"SkipSeparators", "YES"};
/// Whether a page is added without the window for it.
inline constexpr Setting<bool> kSkipWindow{"SkipWindow", "NO"};
/// Whether search results are sorted at once.
inline constexpr Setting<bool> kSortImmediately{"SortImmediately", "NO"};
/// Whether a click on the title of a column sorts without a question.
inline constexpr Setting<bool> kSuppressColumnSortSheet{"SuppressColumnSortSheet"};
/// The place of the tags column among the columns, from 0.
inline constexpr Setting<std::int64_t> kTagsIndex{"TagsIndex", "1"};
/// In points of 1/72 inch.
inline constexpr Setting<double> kTagsWidth{"TagsWidth", "100.0"};
/// Whether removing marked links removes those of unknown status.
inline constexpr Setting<bool> kUnknownLinks{"UnknownLinks"};
/// In megabytes of 1,000,000 bytes; 0 stores no versions.
inline constexpr Setting<std::int64_t> kVersionsLimit{"VersionsLimit", "1000"};

} // namespace settings

} // namespace tabulon
