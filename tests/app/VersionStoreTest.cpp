// The store of versions over files in memory: versions that are stored, found after a rename, limited and
// refused.
#include "app/VersionStore.h"

#include "app/Compression.h"
#include "app/VersionNames.h"
#include "base/Settings.h"
#include "platform/fake/FakePlatform.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kStoredPath = "/home/Links.tbln";

class VersionStoreTest : public testing::Test, protected FakePlatform {
protected:
    // Replaces the file between the two calls that a save makes.
    void replace(const std::string& path, const std::string& content) {
        base.clock.advance(1);
        EXPECT_TRUE(store.willReplace(path, path));
        files.files[path] = content;
        store.didReplace(path, path);
    }
    std::vector<std::string> contents(const std::string& path = kStoredPath) {
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
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    replace(kStoredPath, "3");
    EXPECT_THAT(contents(), ElementsAre("2", "1"));
    EXPECT_EQ(files.files[kStoredPath], "3");
}

TEST_F(VersionStoreTest, aFirstSaveReplacesNothing) {
    replace(kStoredPath, "1");
    EXPECT_THAT(contents(), IsEmpty());
}

TEST_F(VersionStoreTest, equalContentIsKeptOnceWithItsLatestTime) {
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    const Date first = store.versionsOf(kStoredPath).front().kept;
    replace(kStoredPath, "1");
    replace(kStoredPath, "2");
    EXPECT_THAT(contents(), ElementsAre("1", "2"));
    EXPECT_GT(store.versionsOf(kStoredPath).front().kept.unixSeconds(), first.unixSeconds());
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
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    EXPECT_EQ(filesInStore(".place"), 4u) << "there, source (it has a copy), copy and the one just saved";
    EXPECT_EQ(filesInStore(".backup"), 2u);
    files.files.erase("/home/copy.tbln");
    replace(kStoredPath, "3");
    EXPECT_EQ(filesInStore(".place"), 2u);
    EXPECT_EQ(filesInStore(".backup"), 1u);
    EXPECT_TRUE(store.isBackupOf("/home/there.tbln", "/backups/b"));
}

TEST_F(VersionStoreTest, aDocumentThatIsGoneKeepsItsPlaceWhileItHasVersions) {
    files.files["/home/gone.tbln"] = "1";
    replace("/home/gone.tbln", "2");
    files.files.erase("/home/gone.tbln");
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    EXPECT_THAT(contents("/home/gone.tbln"), ElementsAre("1"));
}

TEST_F(VersionStoreTest, severalSavesInOneMillisecondAreAllKept) {
    files.files[kStoredPath] = "1";
    for (const char* content : {"2", "3", "4"}) {
        EXPECT_TRUE(store.willReplace(kStoredPath, kStoredPath));
        files.files[kStoredPath] = content;
        store.didReplace(kStoredPath, kStoredPath);
    }
    EXPECT_THAT(contents(), ElementsAre("3", "2", "1"));
}

TEST_F(VersionStoreTest, aRenamedFileKeepsItsVersions) {
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    // As after a rename: another path, the same file.
    files.links["/home/Renamed.tbln"] = kStoredPath;
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
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    files.files.erase(kStoredPath);
    EXPECT_THAT(contents(), ElementsAre("1"));
}

TEST_F(VersionStoreTest, aDocumentSavedUnderAnotherNameBringsItsVersionsAlong) {
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    base.clock.advance(1);
    EXPECT_TRUE(store.willReplace("/home/Copy.tbln", kStoredPath));
    files.files["/home/Copy.tbln"] = "2 copied";
    store.didReplace("/home/Copy.tbln", kStoredPath);
    EXPECT_THAT(contents("/home/Copy.tbln"), ElementsAre("1"));
    replace("/home/Copy.tbln", "3 copied");
    replace(kStoredPath, "3");
    EXPECT_THAT(contents("/home/Copy.tbln"), ElementsAre("2 copied", "1")) << "from then on each has its own";
    EXPECT_THAT(contents(kStoredPath), ElementsAre("2", "1"));
}

TEST_F(VersionStoreTest, savingOverAnotherDocumentKeepsWhatWasThere) {
    files.files[kStoredPath] = "mine 1";
    files.files["/home/Other.tbln"] = "other 1";
    replace(kStoredPath, "mine 2");
    replace("/home/Other.tbln", "other 2");
    base.clock.advance(1);
    EXPECT_TRUE(store.willReplace("/home/Other.tbln", kStoredPath));
    files.files["/home/Other.tbln"] = "mine 3";
    store.didReplace("/home/Other.tbln", kStoredPath);
    EXPECT_THAT(contents("/home/Other.tbln"), ElementsAre("other 2", "other 1", "mine 1"));
}

TEST_F(VersionStoreTest, aNewDocumentUnderTheNameOfOneThatWasMovedAwayHasNothingOfIt) {
    files.files[kStoredPath] = "old 1";
    replace(kStoredPath, "old 2");
    files.move(kStoredPath, "/home/Moved.tbln");
    base.clock.advance(1);
    EXPECT_TRUE(store.willReplace(kStoredPath, ""));
    files.files[kStoredPath] = "new 1";
    store.didReplace(kStoredPath, "");
    replace(kStoredPath, "new 2");
    EXPECT_THAT(contents(kStoredPath), ElementsAre("new 1"));
    EXPECT_THAT(contents("/home/Moved.tbln"), ElementsAre("old 1"));
}

TEST_F(VersionStoreTest, whereAnotherProgramMadeANewFileTheMovedOneKeepsItsVersions) {
    files.files[kStoredPath] = "old 1";
    replace(kStoredPath, "old 2");
    files.move(kStoredPath, "/home/Moved.tbln");
    files.files[kStoredPath] = "theirs";
    store.noteOpened(kStoredPath);
    replace(kStoredPath, "mine");
    EXPECT_THAT(contents(kStoredPath), ElementsAre("theirs", "old 1"))
        << "it may be the same document, written anew";
    store.noteOpened("/home/Moved.tbln");
    EXPECT_THAT(contents("/home/Moved.tbln"), ElementsAre("old 1"));
    replace("/home/Moved.tbln", "old 3");
    EXPECT_THAT(contents("/home/Moved.tbln"), ElementsAre("old 2", "old 1"));
    EXPECT_THAT(contents(kStoredPath), ElementsAre("theirs", "old 1"));
}

TEST_F(VersionStoreTest, aCopyOverACopyKeepsBothOrigins) {
    files.files["/home/a.tbln"] = "a1";
    files.files["/home/b.tbln"] = "b1";
    replace("/home/a.tbln", "a2");
    replace("/home/b.tbln", "b2");
    for (const char* from : {"/home/a.tbln", "/home/b.tbln"}) {
        base.clock.advance(1);
        EXPECT_TRUE(store.willReplace(kStoredPath, from));
        files.files[kStoredPath] = std::string("copy of ") + from;
        store.didReplace(kStoredPath, from);
    }
    EXPECT_THAT(contents(kStoredPath), ElementsAre("copy of /home/a.tbln", "b1", "a1"));
}

TEST_F(VersionStoreTest, theSizeOfTheStoreStaysBelowItsLimit) {
    setValue(base.defaults, settings::kVersionsLimit, 1);
    std::string content(400'000, ' ');
    unsigned noise = 1;
    for (int save = 0; save < 8; ++save) {
        for (char& c : content)
            c = static_cast<char>((noise = noise * 1664525 + 1013904223) >> 24);
        files.files[kStoredPath] = content;
        EXPECT_TRUE(store.keepFile(kStoredPath));
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
    setValue(base.defaults, settings::kVersionsLimit, 1);
    files.files[kStoredPath] = std::string(1'000'001, 'x');
    const Result<void> kept = store.keepFile(kStoredPath);
    ASSERT_FALSE(kept);
    EXPECT_THAT(kept.error().message, testing::HasSubstr(kStoredPath));
    EXPECT_THAT(contents(), IsEmpty());
}

TEST_F(VersionStoreTest, aLimitOfZeroKeepsNothing) {
    setValue(base.defaults, settings::kVersionsLimit, 0);
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    EXPECT_EQ(files.files.size(), 1u);
}

TEST_F(VersionStoreTest, aStoreThatCannotBeWrittenFailsAndChangesNothing) {
    files.unwritable = "/state";
    files.files[kStoredPath] = "1";
    EXPECT_FALSE(store.keepFile(kStoredPath));
    EXPECT_EQ(files.files.size(), 1u);
}

TEST_F(VersionStoreTest, otherFilesInTheFolderAreLeftAlone) {
    files.files["/state/versions/notes.txt"] = "mine";
    files.files["/state/versions/0000000000000000 yesterday.tbln.zst"] = "x";
    files.files["/state/versions/0000000000000000.place"] = "not a place";
    files.files[kStoredPath] = "1";
    replace(kStoredPath, "2");
    EXPECT_THAT(contents(), ElementsAre("1"));
    EXPECT_EQ(files.files["/state/versions/notes.txt"], "mine");
    EXPECT_EQ(files.files["/state/versions/0000000000000000 yesterday.tbln.zst"], "x");
}

TEST_F(VersionStoreTest, aDamagedVersionIsRefusedWithItsName) {
    files.files[kStoredPath] = std::string(1000, 'x');
    replace(kStoredPath, "2");
    const DocumentVersion version = store.versionsOf(kStoredPath).front();
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
    files.files[kStoredPath] = "1";
    files.files["/backups/Links.tbln"] = "1";
    EXPECT_FALSE(store.isBackupOf(kStoredPath, "/backups/Links.tbln"));
    store.noteBackup(kStoredPath, "/backups/Links.tbln");
    EXPECT_TRUE(store.isBackupOf(kStoredPath, "/backups/Links.tbln"));
    EXPECT_FALSE(store.isBackupOf("/home/Other.tbln", "/backups/Links.tbln"));
    files.files["/backups/Links.tbln"] = "written by somebody";
    EXPECT_FALSE(store.isBackupOf(kStoredPath, "/backups/Links.tbln"));
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
