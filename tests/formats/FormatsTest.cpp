// Tests the lists of import and export formats.
#include "base/Settings.h"
#include "formats/ExportFormats.h"
#include "formats/ImportFormats.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/formats/TreeFixture.h"

#include <set>

namespace tabulon {
namespace {

class Formats : public TreeTest {
protected:
    Formats() {
        addLink(*master, "b", "https://b/", "note", "tag");
        addSeparator(*master);
        addLink(addFolder(*master, "Folder"), "a", "https://a/");
    }
    std::string written(std::string_view format) {
        return exportFormatNamed(format)->write(*master, fakes.services(), nullptr).value();
    }

    FakeBaseServices fakes;
};

TEST_F(Formats, namesAreUniqueAndHaveTitles) {
    std::set<std::string_view> names;
    for (const ExportFormat& format : exportFormats()) {
        EXPECT_TRUE(names.insert(format.name).second);
        EXPECT_FALSE(fakes.texts.text(format.titleKey).starts_with("Format")) << format.name;
        EXPECT_EQ(exportFormatNamed(format.name), &format);
    }
    names.clear();
    for (const ImportFormat& format : importFormats()) {
        EXPECT_TRUE(names.insert(format.name).second);
        EXPECT_TRUE(format.read) << format.name;
        EXPECT_EQ(importFormatNamed(format.name), &format);
    }
    EXPECT_EQ(exportFormatNamed("pdf"), nullptr);
    EXPECT_EQ(importFormatNamed("pdf"), nullptr);
}

TEST_F(Formats, theFinalExtensionDecides) {
    EXPECT_EQ(exportFormatForExtension("html").name, "html");
    EXPECT_EQ(exportFormatForExtension("xbel").name, "xbel");
    for (const char* other : {"txt", "", "HTML", "htm", "tbln"})
        EXPECT_EQ(exportFormatForExtension(other).name, "text") << other;
}

TEST_F(Formats, registeredSettingsMakeTextOfAllColumnsFlatAndWithoutSeparators) {
    EXPECT_EQ(written("text"), "b\thttps://b/\ttag\tnote\na\thttps://a/\t\t\n");
}

TEST_F(Formats, textFollowsEachSetting) {
    setValue(fakes.defaults, settings::kExportName, false);
    setValue(fakes.defaults, settings::kExportTags, false);
    setValue(fakes.defaults, settings::kExportNote, false);
    setValue(fakes.defaults, settings::kSkipFolders, false);
    setValue(fakes.defaults, settings::kSkipSeparators, false);
    EXPECT_EQ(written("text"), "https://b/\t\n\t\n\t\nhttps://a/\t\n");
    setValue(fakes.defaults, settings::kExportURL, false);
    setValue(fakes.defaults, settings::kExportTags, true);
    EXPECT_EQ(written("text"), "tag\t\n\t\n\t\n\t\n");
}

TEST_F(Formats, withoutNamesTextIsSortedByURLAndTheOthersByName) {
    master->removeLast();
    master->removeLast();
    addLink(*master, "c", "https://a/");
    setValue(fakes.defaults, settings::kExportSortName, true);
    setValue(fakes.defaults, settings::kExportName, false);
    setValue(fakes.defaults, settings::kExportTags, false);
    setValue(fakes.defaults, settings::kExportNote, false);
    EXPECT_EQ(written("text"), "https://a/\t\nhttps://b/\t\n");
    EXPECT_LT(written("html").find(">b<"), written("html").find(">c<"));
    EXPECT_LT(written("xbel").find(">b<"), written("xbel").find(">c<"));
}

} // namespace
} // namespace tabulon
