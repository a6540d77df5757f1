// Tests that documents survive when the process is killed at random moments.
#include "tests/faults/FaultFixture.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

namespace tabulon {
namespace {

using Clock = std::chrono::steady_clock;

class KilledTest : public FaultTest {
protected:
    /// Runs `work` in a child process and kills it at a random time after its first round has ended. The time
    /// is at most three times the duration of that round, so that the kills reach every part of a round on
    /// any machine.
    void killAtARandomMoment(const std::function<int(int ready)>& work) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = start([&] { return work(ready[1]); });
        ASSERT_GT(child, 0);
        long round = 0;
        ASSERT_EQ(::read(ready[0], &round, sizeof round), static_cast<ssize_t>(sizeof round));
        std::uniform_int_distribution<long> moment(0, 3 * round);
        std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
        ::kill(child, SIGKILL);
        const int status = statusOf(child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
        ::close(ready[0]);
        ::close(ready[1]);
    }
    /// Reports from the child process that its first round is over, with the duration of the round.
    static void reportReady(int ready, Clock::time_point begin) {
        const long round =
            std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();
        if (::write(ready, &round, sizeof round) != static_cast<ssize_t>(sizeof round))
            ::_exit(8);
    }

    /// Returns the version numbers of the newest files in the store, at most `most`. Fails the test if one of
    /// them is damaged.
    std::vector<int> keptVersions(const std::string& file, std::size_t most = SIZE_MAX) {
        FakeBaseServices services;
        const VersionStore store(files, services.clock, services.defaults, path("state/versions"));
        std::vector<int> numbers;
        for (const DocumentVersion& version : store.versionsOf(file))
            if (numbers.size() < most)
                numbers.push_back(versionIn(version.path, store.read(version)));
        return numbers;
    }

    std::mt19937 random{20261121};
};

TEST_F(KilledTest, killedAtAHundredMomentsOfSavingTheFileIsOneWholeVersion) {
    const std::string file = path("Links.tbln");
    write(file, 0);
    int lastSeen = 0;
    int kills = 0;
    int versions = 0;
    for (; kills < 100 && !HasFailure(); ++kills) {
        killAtARandomMoment([&](int ready) {
            ProgramRun run(folder);
            Document& document = run.open(file);
            for (int number = lastSeen + 1;; ++number) {
                const auto begin = Clock::now();
                change(document, number);
                if (!run.save(document))
                    return 1;
                if (number == lastSeen + 1)
                    reportReady(ready, begin);
            }
        });
        const int seen = versionIn(file);
        EXPECT_GT(seen, lastSeen) << "a version that was saved is gone";
        versions += seen - lastSeen;
        lastSeen = seen;
        for (const std::string& name : files.namesInFolder(path("backups")))
            EXPECT_LE(versionIn(path("backups") + "/" + name), seen);
        const std::vector<int> kept = keptVersions(file, 3);
        EXPECT_NE(std::ranges::find(kept, seen - 1), kept.end()) << "what " << seen << " replaced is gone";
    }
    const std::vector<int> kept = keptVersions(file);
    EXPECT_GE(kept.size(), static_cast<std::size_t>(lastSeen));
    RecordProperty("versionsKept", static_cast<int>(kept.size()));
    EXPECT_EQ(kills, 100);
    EXPECT_GT(versions, kills) << "no run was killed later than in its second save";
    RecordProperty("kills", kills);
    RecordProperty("versionsSaved", versions);
    std::size_t leftOver = 0;
    for (const std::string& name : files.namesInFolder(folder))
        leftOver += name.starts_with(".tabulon-") ? 1 : 0;
    RecordProperty("temporaryFilesLeft", static_cast<int>(leftOver));
    EXPECT_LE(leftOver, 5u) << "temporary files pile up";
}

TEST_F(KilledTest, documentsWithoutAFileAreThereAgainAfterFiftyKills) {
    int lastSeen = 0;
    for (int kill = 0; kill < 50 && !HasFailure(); ++kill) {
        killAtARandomMoment([&](int ready) {
            ProgramRun run(folder);
            run.app.applicationDidFinishLaunching({});
            Document& document = *run.app.documentController().documents().front();
            for (int number = lastSeen + 1;; ++number) {
                const auto begin = Clock::now();
                change(document, number);
                run.fakes.timers.advance(2 * AutosavePause::kSeconds);
                if (!run.fakes.alerts.shown.empty())
                    return 1;
                if (number == lastSeen + 1)
                    reportReady(ready, begin);
            }
        });
        XdgRecoveryFolders recovery(path("state/unsaved"));
        std::vector<std::string> copies;
        for (const std::string& abandoned : recovery.adoptAbandonedFolders())
            for (const std::string& name : files.namesInFolder(abandoned))
                if (name.ends_with(".tbln"))
                    copies.push_back(abandoned + "/" + name);
        ASSERT_EQ(copies.size(), 1u) << "one document, one copy, however often it was taken over";
        const int seen = versionIn(copies[0]);
        EXPECT_GT(seen, lastSeen);
        lastSeen = seen;
    }
}

// The child process is killed after another program changed the file and before the user has decided which
// version to keep.
TEST_F(KilledTest, changesThatTheirFileDidNotTakeAreThereAgain) {
    const std::string file = path("Links.tbln");
    write(file, 1);
    killAtARandomMoment([&](int ready) {
        ProgramRun run(folder);
        Document& document = run.open(file);
        write(file, 2);
        change(document, 3);
        run.fakes.alerts.answer("Cancel");
        run.fakes.timers.advance(2 * AutosavePause::kSeconds);
        reportReady(ready, Clock::now());
        ::pause();
        return 0;
    });
    EXPECT_EQ(versionIn(file), 2) << "theirs";
    ProgramRun next(folder);
    next.app.applicationDidFinishLaunching({});
    const auto documents = next.app.documentController().documents();
    ASSERT_EQ(documents.size(), 1u);
    EXPECT_EQ(documents.front()->displayName(), "Links");
    EXPECT_EQ(documents.front()->fileName(), "");
    EXPECT_TRUE(documents.front()->isDocumentEdited());
    EXPECT_EQ(documents.front()->getMaster().getChild()->itemName().view(), "3") << "mine";
}

// The document is autosaved and the process is killed. The next run starts from the saved file and removes
// the copy that Revert would have used.
TEST_F(KilledTest, whatRevertingWentBackToEndsWithTheRun) {
    const std::string file = path("Links.tbln");
    write(file, 1);
    killAtARandomMoment([&](int ready) {
        ProgramRun run(folder);
        Document& document = run.open(file);
        change(document, 2);
        run.fakes.timers.advance(2 * AutosavePause::kSeconds);
        reportReady(ready, Clock::now());
        ::pause();
        return 0;
    });
    EXPECT_EQ(versionIn(file), 2);
    const auto copies = [this] {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path("state/unsaved")))
            count += entry.is_regular_file() ? 1 : 0;
        return count;
    };
    EXPECT_EQ(copies(), 1u) << "the killed run could have gone back";
    ProgramRun next(folder);
    next.app.applicationDidFinishLaunching({file});
    EXPECT_EQ(copies(), 0u);
    const auto documents = next.app.documentController().documents();
    ASSERT_EQ(documents.size(), 1u);
    EXPECT_FALSE(next.app.responders().validateMenuItem(MenuItem{.action = "revertDocumentToSaved:"}));
}

TEST_F(KilledTest, aRunThatIsAliveKeepsItsDocumentsToItself) {
    ProgramRun first(folder);
    first.app.applicationDidFinishLaunching({});
    Document& document = *first.app.documentController().documents().front();
    change(document, 7);
    first.fakes.timers.advance(AutosavePause::kSeconds);
    const int status = statusOf(start([&] {
        ProgramRun second(folder);
        second.app.applicationDidFinishLaunching({});
        const auto documents = second.app.documentController().documents();
        return documents.size() == 1 && !documents.front()->getMaster().hasChildren() ? 0 : 1;
    }));
    EXPECT_EQ(status, 0);
}

} // namespace
} // namespace tabulon
