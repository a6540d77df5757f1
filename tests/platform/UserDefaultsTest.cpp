// Settings: registered values, conversions.
#include "platform/fake/FakeBaseServices.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(UserDefaults, registeredValuesHoldUntilSet) {
    MemoryUserDefaults defaults;
    EXPECT_TRUE(defaults.boolForKey("MakeBackups"));
    EXPECT_FALSE(defaults.boolForKey("ExportSortName"));
    EXPECT_EQ(defaults.doubleForKey("FontSize"), 11.0);
    EXPECT_EQ(defaults.integerForKey("TagsIndex"), 1);
    EXPECT_EQ(defaults.integerForKey("NSInitialToolTipDelay"), 10);
    defaults.setBoolForKey("MakeBackups", false);
    EXPECT_FALSE(defaults.boolForKey("MakeBackups"));
    defaults.removeKey("MakeBackups");
    EXPECT_TRUE(defaults.boolForKey("MakeBackups"));
}

TEST(UserDefaults, theWholeTableOfRegisteredValues) {
    const MemoryUserDefaults defaults;
    for (const char* yes : {"MoveLinks",
                            "DuplicateLinks",
                            "CommandK",
                            "CommandOptionU",
                            "CommandM",
                            "OpenUntitled",
                            "OpenInBrowser",
                            "OpenInCurrent",
                            "ShowBalloonNote",
                            "ShowBalloonTags",
                            "ShowBalloonURL",
                            "RememberDesktop",
                            "MakeBackups",
                            "SharedMenu",
                            "AutoStartup",
                            "ExportName",
                            "ExportURL",
                            "ExportTags",
                            "ExportNote",
                            "SkipFolders",
                            "SkipSeparators",
                            "AutoEdit",
                            "IgnoreCase",
                            "MarkFolder",
                            "AddTagsColumnSearch",
                            "AddNoteColumnSearch",
                            "AddURLColumnSearch",
                            "AddDateAddedColumnSearch",
                            "AddDateModifiedColumnSearch",
                            "AddDateCheckedColumnSearch",
                            "AddDateOpenedColumnSearch"}) {
        EXPECT_TRUE(registeredDefault(yes)) << yes;
        EXPECT_TRUE(defaults.boolForKey(yes)) << yes;
    }
    for (const char* no :
         {"ShowMarks", "CommandOptionK", "CommandShiftU", "DockMenu", "LastOpened", "OpenInHelper",
          "OpenInNewTab", "OpenInNewWindow", "HistoryStatus", "HistoryShow", "HideWindows", "ExportSortName",
          "SaveAsHTML", "SkipWindow", "AddTagsColumn", "SortImmediately"}) {
        EXPECT_TRUE(registeredDefault(no)) << no;
        EXPECT_FALSE(defaults.boolForKey(no)) << no;
    }
    for (const char* none : {"CommandShiftM", "IncludeHistory", "ColumnSort", "SuppressColumnSortSheet",
                             "SharedTabWindow", "FontName", "CabinetFolderBookmark", "StartupItemsBookmark",
                             "BackupFolderBookmark", "ExportHTMLBookmark", "PrefTabIndex", "suppressAccess"})
        EXPECT_FALSE(registeredDefault(none)) << none;
    EXPECT_EQ(defaults.integerForKey("CopyFormat"), 0);
    EXPECT_EQ(defaults.doubleForKey("RowHeight"), 17.0);
    EXPECT_EQ(defaults.doubleForKey("TagsWidth"), 100.0);
}

TEST(UserDefaults, keysWithoutAValueReadAsNoZeroAndAbsent) {
    const MemoryUserDefaults defaults;
    EXPECT_FALSE(defaults.boolForKey("CommandShiftM"));
    EXPECT_EQ(defaults.integerForKey("PrefTabIndex"), 0);
    EXPECT_EQ(defaults.doubleForKey("Nothing"), 0);
    EXPECT_EQ(defaults.stringForKey("FontName"), std::nullopt);
}

TEST(UserDefaults, textsConvertTheWayPeopleWriteThem) {
    MemoryUserDefaults defaults;
    for (const char* yes : {"YES", "yes", "true", "TRUE", "1", "2", "-1", "0.5"}) {
        defaults.setStringForKey("k", yes);
        EXPECT_TRUE(defaults.boolForKey("k")) << yes;
    }
    for (const char* no : {"NO", "no", "false", "0", "", "maybe"}) {
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
