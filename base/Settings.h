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

inline constexpr Setting<bool> kAddDateAddedColumnSearch{"AddDateAddedColumnSearch", "YES"};
inline constexpr Setting<bool> kAddDateCheckedColumnSearch{"AddDateCheckedColumnSearch", "YES"};
inline constexpr Setting<bool> kAddDateModifiedColumnSearch{"AddDateModifiedColumnSearch", "YES"};
inline constexpr Setting<bool> kAddDateOpenedColumnSearch{"AddDateOpenedColumnSearch", "YES"};
inline constexpr Setting<bool> kAddNoteColumnSearch{"AddNoteColumnSearch", "YES"};
inline constexpr Setting<bool> kAddTagsColumn{"AddTagsColumn", "NO"};
inline constexpr Setting<bool> kAddTagsColumnSearch{"AddTagsColumnSearch", "YES"};
inline constexpr Setting<bool> kAddURLColumnSearch{"AddURLColumnSearch", "YES"};
inline constexpr Setting<bool> kAutoEdit{"AutoEdit", "YES"};
inline constexpr Setting<bool> kAutoStartup{"AutoStartup", "YES"};
/// The path of a folder, which FolderReferences resolves and stores.
inline constexpr Setting<std::string_view> kBackupFolderBookmark{"BackupFolderBookmark"};
inline constexpr Setting<bool> kBrokenLinks{"BrokenLinks"};
inline constexpr Setting<bool> kColumnSort{"ColumnSort"};
inline constexpr Setting<bool> kCommandK{"CommandK", "YES"};
inline constexpr Setting<bool> kCommandM{"CommandM", "YES"};
inline constexpr Setting<bool> kCommandOptionK{"CommandOptionK", "NO"};
inline constexpr Setting<bool> kCommandOptionU{"CommandOptionU", "YES"};
inline constexpr Setting<bool> kCommandShiftU{"CommandShiftU", "NO"};
/// 0 to 3: address, address in brackets, name and address, HTML.
inline constexpr Setting<std::int64_t> kCopyFormat{"CopyFormat", "0"};
inline constexpr Setting<bool> kDockMenu{"DockMenu", "NO"};
inline constexpr Setting<bool> kDuplicateLinks{"DuplicateLinks", "YES"};
/// The path of a file, which FolderReferences resolves and stores.
inline constexpr Setting<std::string_view> kExportHTMLBookmark{"ExportHTMLBookmark"};
inline constexpr Setting<bool> kExportName{"ExportName", "YES"};
inline constexpr Setting<bool> kExportNote{"ExportNote", "YES"};
inline constexpr Setting<bool> kExportSortName{"ExportSortName", "NO"};
inline constexpr Setting<bool> kExportTags{"ExportTags", "YES"};
inline constexpr Setting<bool> kExportURL{"ExportURL", "YES"};
/// The name of a font family; empty for the font of the desktop.
inline constexpr Setting<std::string_view> kFontName{"FontName"};
/// In points of 1/72 inch.
inline constexpr Setting<double> kFontSize{"FontSize", "11.0"};
inline constexpr Setting<bool> kHideWindows{"HideWindows", "NO"};
inline constexpr Setting<bool> kHistoryShow{"HistoryShow", "NO"};
inline constexpr Setting<bool> kHistoryStatus{"HistoryStatus", "NO"};
inline constexpr Setting<bool> kIgnoreCase{"IgnoreCase", "YES"};
inline constexpr Setting<bool> kLastOpened{"LastOpened", "NO"};
inline constexpr Setting<bool> kMakeBackups{"MakeBackups", "YES"};
inline constexpr Setting<bool> kMarkFolder{"MarkFolder", "YES"};
inline constexpr Setting<bool> kMoveLinks{"MoveLinks", "YES"};
/// In milliseconds.
inline constexpr Setting<std::int64_t> kToolTipDelay{"NSInitialToolTipDelay"};
inline constexpr Setting<bool> kOpenInBrowser{"OpenInBrowser", "YES"};
inline constexpr Setting<bool> kOpenInCurrent{"OpenInCurrent", "YES"};
inline constexpr Setting<bool> kOpenInHelper{"OpenInHelper", "NO"};
inline constexpr Setting<bool> kOpenInNewTab{"OpenInNewTab", "NO"};
inline constexpr Setting<bool> kOpenInNewWindow{"OpenInNewWindow", "NO"};
inline constexpr Setting<bool> kOpenUntitled{"OpenUntitled", "YES"};
inline constexpr Setting<bool> kRememberDesktop{"RememberDesktop", "YES"};
/// In points of 1/72 inch. Rows are higher where the font needs it.
inline constexpr Setting<double> kRowHeight{"RowHeight", "17.0"};
inline constexpr Setting<bool> kSaveAsHTML{"SaveAsHTML", "NO"};
inline constexpr Setting<bool> kSharedMenu{"SharedMenu", "YES"};
inline constexpr Setting<bool> kShowBalloonNote{"ShowBalloonNote", "YES"};
inline constexpr Setting<bool> kShowBalloonTags{"ShowBalloonTags", "YES"};
inline constexpr Setting<bool> kShowBalloonURL{"ShowBalloonURL", "YES"};
inline constexpr Setting<bool> kShowMarks{"ShowMarks", "NO"};
inline constexpr Setting<bool> kSkipFolders{"SkipFolders", "YES"};
inline constexpr Setting<bool> kSkipSeparators{"SkipSeparators", "YES"};
inline constexpr Setting<bool> kSkipWindow{"SkipWindow", "NO"};
inline constexpr Setting<bool> kSortImmediately{"SortImmediately", "NO"};
inline constexpr Setting<bool> kSuppressColumnSortSheet{"SuppressColumnSortSheet"};
/// The place of the tags column among the columns, from 0.
inline constexpr Setting<std::int64_t> kTagsIndex{"TagsIndex", "1"};
/// In points of 1/72 inch.
inline constexpr Setting<double> kTagsWidth{"TagsWidth", "100.0"};
inline constexpr Setting<bool> kUnknownLinks{"UnknownLinks"};
/// In megabytes of 1,000,000 bytes; 0 stores no versions.
inline constexpr Setting<std::int64_t> kVersionsLimit{"VersionsLimit", "1000"};

} // namespace settings

} // namespace tabulon
