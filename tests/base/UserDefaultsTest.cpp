// Tests the settings: registered values, typed access and conversions of texts.
#include "base/Settings.h"
#include "platform/fake/FakeBaseServices.h"

#include <gtest/gtest.h>

#include <map>

namespace tabulon {
namespace {

TEST(UserDefaults, registeredValuesHoldUntilSet) {
    MemoryUserDefaults defaults;
    EXPECT_TRUE(valueOf(defaults, settings::kMakeBackups));
    EXPECT_FALSE(valueOf(defaults, settings::kExportSortName));
    EXPECT_EQ(valueOf(defaults, settings::kFontSize), 11.0);
    EXPECT_EQ(valueOf(defaults, settings::kTagsIndex), 1);
    setValue(defaults, settings::kMakeBackups, false);
    EXPECT_FALSE(valueOf(defaults, settings::kMakeBackups));
    defaults.removeKey(settings::kMakeBackups.key);
    EXPECT_TRUE(valueOf(defaults, settings::kMakeBackups));
}

TEST(UserDefaults, theWholeTableOfRegisteredValues) {
    using Table = std::map<std::string_view, std::string_view>;
    const Table expected = {
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
    };
    Table registered;
    for (const auto& [key, value] : registeredDefaults())
        registered.emplace(key, value);
    EXPECT_EQ(registered, expected);
    const MemoryUserDefaults defaults;
    for (const auto& [key, value] : expected) {
        EXPECT_EQ(registeredDefault(key), value);
        EXPECT_EQ(defaults.stringForKey(key), value);
        EXPECT_EQ(defaults.boolForKey(key), value != "NO" && value != "0") << key;
    }
}

TEST(Settings, areReadAndSetByTheirConstants) {
    MemoryUserDefaults defaults;
    EXPECT_TRUE(valueOf(defaults, settings::kMakeBackups));
    EXPECT_EQ(valueOf(defaults, settings::kVersionsLimit), 1000);
    EXPECT_EQ(valueOf(defaults, settings::kRowHeight), 17.0);
    EXPECT_EQ(valueOf(defaults, settings::kFontName), "");
    EXPECT_FALSE(hasValue(defaults, settings::kFontName));
    EXPECT_TRUE(hasValue(defaults, settings::kMakeBackups));
    setValue(defaults, settings::kMakeBackups, false);
    setValue(defaults, settings::kVersionsLimit, 5);
    setValue(defaults, settings::kRowHeight, 20.5);
    defaults.setStringForKey(settings::kFontName.key, "Sans");
    EXPECT_EQ(defaults.stringForKey(settings::kMakeBackups.key), "NO");
    EXPECT_EQ(defaults.stringForKey(settings::kVersionsLimit.key), "5");
    EXPECT_EQ(defaults.stringForKey(settings::kRowHeight.key), "20.5");
    EXPECT_FALSE(valueOf(defaults, settings::kMakeBackups));
    EXPECT_EQ(valueOf(defaults, settings::kVersionsLimit), 5);
    EXPECT_EQ(valueOf(defaults, settings::kRowHeight), 20.5);
    EXPECT_EQ(valueOf(defaults, settings::kFontName), "Sans");
}

TEST(UserDefaults, keysWithoutAValueReadAsNoZeroAndAbsent) {
    const MemoryUserDefaults defaults;
    EXPECT_FALSE(defaults.boolForKey("CommandShiftM"));
    EXPECT_EQ(defaults.integerForKey("PrefTabIndex"), 0);
    EXPECT_EQ(defaults.doubleForKey("Nothing"), 0);
    EXPECT_EQ(defaults.stringForKey(settings::kFontName.key), std::nullopt);
}

TEST(UserDefaults, textsConvertTheWayPeopleWriteThem) {
    MemoryUserDefaults defaults;
    for (const char* yes : {"YES", "yes", "true", "TRUE", "1", "2", "-1", "0.5"}) {
        defaults.setStringForKey("k", yes);
        EXPECT_TRUE(defaults.boolForKey("k")) << yes;
    }
    for (const char* no : {"NO", "no", "false", "0", "", "maybe", "nan", "inf", "0.0", "yes please"}) {
        defaults.setStringForKey("k", no);
        EXPECT_FALSE(defaults.boolForKey("k")) << no;
    }
    defaults.setStringForKey("k", "12.5 points");
    EXPECT_EQ(defaults.integerForKey("k"), 12);
    EXPECT_EQ(defaults.doubleForKey("k"), 12.5);
    defaults.setDoubleForKey("k", 0.1);
    EXPECT_EQ(defaults.doubleForKey("k"), 0.1);
    defaults.setIntegerForKey("k", -7);
    EXPECT_EQ(defaults.integerForKey("k"), -7);
}

} // namespace
} // namespace tabulon
