// The store of versions over files in memory: what is kept, found again, limited and refused.
#include "app/VersionStore.h"

#include "app/Compression.h"
#include "app/VersionNames.h"
#include "platform/fake/FakePlatform.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kPath = "/home/Links.tbln";

class VersionStoreTest : public testing::Test, protected FakePlatform {
protected:
    // Does what a save does.
    void replace(const std::string& path, const std::string& content) {
        base.clock.advance(1);
        EXPECT_TRUE(store.willReplace(path, path));
        files.files[path] = content;
        store.didReplace(path, path);
    }
    std::vector<std::string> contents(const std::string& path = kPath) {
        std::vector<std::string> result;
        for (const DocumentVersion& version : store.versionsOf(path))
            result.push_back(store.read(version).value_or("damaged"));
        return result;
    }

    std::size_t filesInStore(std::string_view suffix) const {
        return static_cast<std::size_t>(std::ranges::count_if(files.files, [&](const auto& file) {
            return file.first.starts_with("/state/versions/") && file.first.ends_with(suffix);
        }));
    }

    VersionStore store{files, base.clock, base.defaults, "/state/versions"};
};

TEST_F(VersionStoreTest, everyReplacedVersionIsThereNewestFirst) {
    files.files[kPath] = "1";
    replace(kPath, "2");
    replace(kPath, "3");
    EXPECT_THAT(contents(), ElementsAre("2", "1"));
    EXPECT_EQ(files.files[kPath], "3");
}

TEST_F(VersionStoreTest, aFirstSaveReplacesNothing) {
    replace(kPath, "1");
    EXPECT_THAT(contents(), IsEmpty());
}

TEST_F(VersionStoreTest, equalContentIsKeptOnceWithItsLatestTime) {
    files.files[kPath] = "1";
    replace(kPath, "2");
    const Date first = store.versionsOf(kPath).front().kept;
    replace(kPath, "1");
    replace(kPath, "2");
    EXPECT_THAT(contents(), ElementsAre("1", "2"));
    EXPECT_GT(store.versionsOf(kPath).front().kept.unixSeconds(), first.unixSeconds());
}

TEST_F(VersionStoreTest, nothingStaysOfADocumentThatIsGoneWithItsVersions) {
    for (const char* name : {"/home/gone.tbln", "/home/there.tbln", "/home/source.tbln"}) {
        files.files[name] = "1";
        replace(name, "2");
        files.files["/backups/b"] = "1";
        store.noteBackup(name, "/backups/b");
    }
    EXPECT_TRUE(store.willReplace("/home/copy.tbln", "/home/source.tbln"));
    files.files["/home/copy.tbln"] = "3";
    store.didReplace("/home/copy.tbln", "/home/source.tbln");
    EXPECT_EQ(filesInStore(".place"), 4u);
    EXPECT_EQ(filesInStore(".backup"), 3u);
    files.files.erase("/home/gone.tbln");
    files.files.erase("/home/source.tbln");
    std::erase_if(files.files, [](const auto& file) { return file.first.ends_with(".zst"); });
    files.files[kPath] = "1";
    replace(kPath, "2");
    EXPECT_EQ(filesInStore(".place"), 4u) << "there, source (it has a copy), copy and the one just saved";
    EXPECT_EQ(filesInStore(".backup"), 2u);
    files.files.erase("/home/copy.tbln");
    replace(kPath, "3");
    EXPECT_EQ(filesInStore(".place"), 2u);
    EXPECT_EQ(filesInStore(".backup"), 1u);
    EXPECT_TRUE(store.isBackupOf("/home/there.tbln", "/backups/b"));
}

TEST_F(VersionStoreTest, aDocumentThatIsGoneKeepsItsPlaceWhileItHasVersions) {
    files.files["/home/gone.tbln"] = "1";
    replace("/home/gone.tbln", "2");
    files.files.erase("/home/gone.tbln");
    files.files[kPath] = "1";
    replace(kPath, "2");
    EXPECT_THAT(contents("/home/gone.tbln"), ElementsAre("1"));
}

TEST_F(VersionStoreTest, severalSavesInOneMillisecondAreAllKept) {
    files.files[kPath] = "1";
    for (const char* content : {"2", "3", "4"}) {
        EXPECT_TRUE(store.willReplace(kPath, kPath));
        files.files[kPath] = content;
        store.didReplace(kPath, kPath);
    }
    EXPECT_THAT(contents(), ElementsAre("3", "2", "1"));
}

TEST_F(VersionStoreTest, aRenamedFileKeepsItsVersions) {
    files.files[kPath] = "1";
    replace(kPath, "2");
    // As after a rename: another path, the same file.
    files.links["/home/Renamed.tbln"] = kPath;
    EXPECT_THAT(contents("/home/Renamed.tbln"), ElementsAre("1"));
    store.noteOpened("/home/Renamed.tbln");
    EXPECT_THAT(contents("/home/Renamed.tbln"), ElementsAre("1"));
}

TEST_F(VersionStoreTest, anotherDocumentOfTheSameNameHasItsOwn) {
    files.files["/home/a/Links.tbln"] = "a1";
    files.files["/home/b/Links.tbln"] = "b1";
    replace("/home/a/Links.tbln", "a2");
    replace("/home/b/Links.tbln", "b2");
    EXPECT_THAT(contents("/home/a/Links.tbln"), ElementsAre("a1"));
    EXPECT_THAT(contents("/home/b/Links.tbln"), ElementsAre("b1"));
}

TEST_F(VersionStoreTest, versionsOfAFileThatIsGoneAreFoundByItsPath) {
    files.files[kPath] = "1";
    replace(kPath, "2");
    files.files.erase(kPath);
    EXPECT_THAT(contents(), ElementsAre("1"));
}

TEST_F(VersionStoreTest, aDocumentSavedUnderAnotherNameBringsItsVersionsAlong) {
    files.files[kPath] = "1";
    replace(kPath, "2");
    base.clock.advance(1);
    EXPECT_TRUE(store.willReplace("/home/Copy.tbln", kPath));
    files.files["/home/Copy.tbln"] = "2 copied";
    store.didReplace("/home/Copy.tbln", kPath);
    EXPECT_THAT(contents("/home/Copy.tbln"), ElementsAre("1"));
    replace("/home/Copy.tbln", "3 copied");
    replace(kPath, "3");
    EXPECT_THAT(contents("/home/Copy.tbln"), ElementsAre("2 copied", "1")) << "from then on each has its own";
    EXPECT_THAT(contents(kPath), ElementsAre("2", "1"));
}

TEST_F(VersionStoreTest, savingOverAnotherDocumentKeepsWhatWasThere) {
    files.files[kPath] = "mine 1";
    files.files["/home/Other.tbln"] = "other 1";
    replace(kPath, "mine 2");
    replace("/home/Other.tbln", "other 2");
    base.clock.advance(1);
    EXPECT_TRUE(store.willReplace("/home/Other.tbln", kPath));
    files.files["/home/Other.tbln"] = "mine 3";
    store.didReplace("/home/Other.tbln", kPath);
    EXPECT_THAT(contents("/home/Other.tbln"), ElementsAre("other 2", "other 1", "mine 1"));
}

TEST_F(VersionStoreTest, aNewDocumentUnderTheNameOfOneThatWasMovedAwayHasNothingOfIt) {
    files.files[kPath] = "old 1";
    replace(kPath, "old 2");
    files.move(kPath, "/home/Moved.tbln");
    base.clock.advance(1);
    EXPECT_TRUE(store.willReplace(kPath, ""));
    files.files[kPath] = "new 1";
    store.didReplace(kPath, "");
    replace(kPath, "new 2");
    EXPECT_THAT(contents(kPath), ElementsAre("new 1"));
    EXPECT_THAT(contents("/home/Moved.tbln"), ElementsAre("old 1"));
}

TEST_F(VersionStoreTest, whereAnotherProgramMadeANewFileTheMovedOneKeepsItsVersions) {
    files.files[kPath] = "old 1";
    replace(kPath, "old 2");
    files.move(kPath, "/home/Moved.tbln");
    files.files[kPath] = "theirs";
    store.noteOpened(kPath);
    replace(kPath, "mine");
    EXPECT_THAT(contents(kPath), ElementsAre("theirs", "old 1"))
        << "it may be the same document, written anew";
    store.noteOpened("/home/Moved.tbln");
    EXPECT_THAT(contents("/home/Moved.tbln"), ElementsAre("old 1"));
    replace("/home/Moved.tbln", "old 3");
    EXPECT_THAT(contents("/home/Moved.tbln"), ElementsAre("old 2", "old 1"));
    EXPECT_THAT(contents(kPath), ElementsAre("theirs", "old 1"));
}

TEST_F(VersionStoreTest, aCopyOverACopyKeepsBothOrigins) {
    files.files["/home/a.tbln"] = "a1";
    files.files["/home/b.tbln"] = "b1";
    replace("/home/a.tbln", "a2");
    replace("/home/b.tbln", "b2");
    for (const char* from : {"/home/a.tbln", "/home/b.tbln"}) {
        base.clock.advance(1);
        EXPECT_TRUE(store.willReplace(kPath, from));
        files.files[kPath] = std::string("copy of ") + from;
        store.didReplace(kPath, from);
    }
    EXPECT_THAT(contents(kPath), ElementsAre("copy of /home/a.tbln", "b1", "a1"));
}

TEST_F(VersionStoreTest, theSizeOfTheStoreStaysBelowItsLimit) {
    base.defaults.setIntegerForKey("VersionsLimit", 1);
    std::string content(400'000, ' ');
    unsigned noise = 1;
    for (int save = 0; save < 8; ++save) {
        for (char& c : content)
            c = static_cast<char>((noise = noise * 1664525 + 1013904223) >> 24);
        files.files[kPath] = content;
        EXPECT_TRUE(store.keepFile(kPath));
        base.clock.advance(1);
        std::size_t size = 0;
        for (const auto& [path, bytes] : files.files)
            size += path.ends_with(".zst") ? bytes.size() : 0;
        EXPECT_LE(size, 1'000'000u);
    }
    EXPECT_EQ(contents().size(), 2u);
    EXPECT_EQ(contents().front(), content) << "the newest stays";
}

TEST_F(VersionStoreTest, aFileBeyondTheLimitIsNotReadAndFailsWithItsName) {
    base.defaults.setIntegerForKey("VersionsLimit", 1);
    files.files[kPath] = std::string(1'000'001, 'x');
    const Result<void> kept = store.keepFile(kPath);
    ASSERT_FALSE(kept);
    EXPECT_THAT(kept.error().message, testing::HasSubstr(kPath));
    EXPECT_THAT(contents(), IsEmpty());
}

TEST_F(VersionStoreTest, aLimitOfZeroKeepsNothing) {
    base.defaults.setIntegerForKey("VersionsLimit", 0);
    files.files[kPath] = "1";
    replace(kPath, "2");
    EXPECT_EQ(files.files.size(), 1u);
}

TEST_F(VersionStoreTest, aStoreThatCannotBeWrittenFailsAndChangesNothing) {
    files.unwritable = "/state";
    files.files[kPath] = "1";
    EXPECT_FALSE(store.keepFile(kPath));
    EXPECT_EQ(files.files.size(), 1u);
}

TEST_F(VersionStoreTest, otherFilesInTheFolderAreLeftAlone) {
    files.files["/state/versions/notes.txt"] = "mine";
    files.files["/state/versions/0000000000000000 yesterday.tbln.zst"] = "x";
    files.files["/state/versions/0000000000000000.place"] = "not a place";
    files.files[kPath] = "1";
    replace(kPath, "2");
    EXPECT_THAT(contents(), ElementsAre("1"));
    EXPECT_EQ(files.files["/state/versions/notes.txt"], "mine");
    EXPECT_EQ(files.files["/state/versions/0000000000000000 yesterday.tbln.zst"], "x");
}

TEST_F(VersionStoreTest, aDamagedVersionIsRefusedWithItsName) {
    files.files[kPath] = std::string(1000, 'x');
    replace(kPath, "2");
    const DocumentVersion version = store.versionsOf(kPath).front();
    for (std::size_t place = 0; place < files.files[version.path].size(); ++place) {
        const std::string whole = files.files[version.path];
        files.files[version.path][place] ^= 1;
        const Result<std::string> read = store.read(version);
        EXPECT_TRUE(!read || *read == std::string(1000, 'x')) << place;
        files.files[version.path] = whole.substr(0, place);
        EXPECT_FALSE(store.read(version)) << "cut at " << place;
        files.files[version.path] = whole;
    }
}

TEST_F(VersionStoreTest, aBackupIsTheDocumentsUntilAnyoneElseWritesIt) {
    files.files[kPath] = "1";
    files.files["/backups/Links.tbln"] = "1";
    EXPECT_FALSE(store.isBackupOf(kPath, "/backups/Links.tbln"));
    store.noteBackup(kPath, "/backups/Links.tbln");
    EXPECT_TRUE(store.isBackupOf(kPath, "/backups/Links.tbln"));
    EXPECT_FALSE(store.isBackupOf("/home/Other.tbln", "/backups/Links.tbln"));
    files.files["/backups/Links.tbln"] = "written by somebody";
    EXPECT_FALSE(store.isBackupOf(kPath, "/backups/Links.tbln"));
}

TEST(VersionNamesTest, namesAreReadBackToTheMillisecond) {
    const VersionName name{"0123456789abcdef", 1795339298.123, -86400.5};
    EXPECT_EQ(name.string(), "0123456789abcdef 2026-11-22T09-21-38.123Z 1969-12-30T23-59-59.500Z.tbln.zst");
    const auto parsed = VersionName::parse(name.string());
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->identifier, name.identifier);
    EXPECT_DOUBLE_EQ(parsed->kept, name.kept);
    EXPECT_DOUBLE_EQ(parsed->saved, name.saved);
}

TEST(VersionNamesTest, othersAreRefused) {
    const std::string name = VersionName{"0123456789abcdef", 1795339298.123, 0}.string();
    EXPECT_FALSE(VersionName::parse(name + "~"));
    EXPECT_FALSE(VersionName::parse(name.substr(1)));
    for (const auto& [from, to] :
         {std::pair("-11-", "-13-"), {"-22T", "-32T"}, {"T09", "T25"}, {".123", ".12x"}}) {
        std::string wrong = name;
        wrong.replace(wrong.find(from), std::string_view(from).size(), to);
        EXPECT_FALSE(VersionName::parse(wrong)) << wrong;
    }
}

TEST(CompressionTest, bytesComeBackAndBombsAreRefused) {
    const std::string bytes(10'000'000, 'x');
    const std::string frame = compress(bytes);
    EXPECT_LT(frame.size(), 10'000u);
    EXPECT_EQ(decompress(frame, bytes.size()).value_or(""), bytes);
    EXPECT_FALSE(decompress(frame, bytes.size() - 1));
    EXPECT_FALSE(decompress(frame + "x", bytes.size()));
    EXPECT_EQ(decompress(compress(""), 0).value_or("?"), "");
}

} // namespace
} // namespace tabulon
