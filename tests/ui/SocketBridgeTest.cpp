// The program's end of the bridge with the real host: TABULON_HOST in the environment is its path. This
// process is the browser.
#include "platform/linux/SocketBridge.h"

#include "bridge/BridgeFrames.h"
#include "bridge/BridgePlaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

namespace tabulon {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// A host that runs, with this process as its browser.
class RunningHost {
public:
    explicit RunningHost(const std::string& runtimeFolder) {
        int input[2];
        int output[2];
        if (pipe(input) != 0 || pipe(output) != 0)
            throw std::runtime_error("no pipe");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
        posix_spawn_file_actions_addclose(&actions, input[1]);
        std::string program = std::getenv("TABULON_HOST");
        std::string variable = "XDG_RUNTIME_DIR=" + runtimeFolder;
        char* words[] = {program.data(), nullptr};
        char* environment[] = {variable.data(), nullptr};
        EXPECT_EQ(posix_spawn(&pid_, program.c_str(), &actions, nullptr, words, environment), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(input[0]);
        close(output[1]);
        toHost_ = input[1];
        fromHost_ = output[0];
        socket_ = bridgeFolder(runtimeFolder) + "/" +
                  fileNameOf({static_cast<unsigned>(getpid()), static_cast<unsigned>(pid_)});
        for (int tries = 0; tries < 500 && !fs::exists(socket_); ++tries)
            std::this_thread::sleep_for(10ms);
        EXPECT_TRUE(fs::exists(socket_));
    }
    ~RunningHost() {
        kill(SIGKILL);
        close(toHost_);
        close(fromHost_);
    }
    RunningHost(const RunningHost&) = delete;
    RunningHost& operator=(const RunningHost&) = delete;

    // Returns the next message for the browser.
    std::string receive() {
        std::optional<std::string> message;
        while (!(message = messages_.next())) {
            char bytes[4096];
            const ssize_t count = read(fromHost_, bytes, sizeof bytes);
            if (count <= 0)
                return {};
            messages_.add({bytes, static_cast<std::size_t>(count)});
        }
        return *message;
    }

    void send(const std::string& message) {
        const std::string frame = frameOf(message);
        EXPECT_EQ(write(toHost_, frame.data(), frame.size()), static_cast<ssize_t>(frame.size()));
    }

    void stop() const { ::kill(pid_, SIGSTOP); }

    void kill(int signal) {
        if (pid_ == 0)
            return;
        ::kill(pid_, signal);
        waitpid(pid_, nullptr, 0);
        pid_ = 0;
    }

    const std::string& socket() const { return socket_; }

private:
    pid_t pid_ = 0;
    int toHost_ = -1;
    int fromHost_ = -1;
    std::string socket_;
    FrameReader messages_{kMostReplyBytes};
};

class SocketBridgeTest : public testing::Test {
protected:
    ~SocketBridgeTest() override { fs::remove_all(runtime_); }

    static std::string newFolder() {
        std::string name = (fs::temp_directory_path() / "tabulon-bridge-XXXXXX").string();
        return mkdtemp(name.data());
    }

    const std::string runtime_ = newFolder();
    SocketBridge bridge_{bridgeFolder(runtime_)};
    const ConnectedBrowser own_{"", static_cast<unsigned>(getpid())};
};

TEST_F(SocketBridgeTest, NothingIsConnectedWithoutAHost) {
    EXPECT_THAT(bridge_.connectedBrowsers(), testing::IsEmpty());
    EXPECT_EQ(bridge_.connect(own_), nullptr);
}

TEST_F(SocketBridgeTest, ABrowserIsTheProcessThatHasStartedTheHost) {
    const RunningHost host(runtime_);
    const auto browsers = bridge_.connectedBrowsers();
    ASSERT_EQ(browsers.size(), 1U);
    EXPECT_EQ(browsers[0].identifier, fs::read_symlink("/proc/self/exe").filename().string());
    EXPECT_EQ(browsers[0].process, own_.process);
}

TEST_F(SocketBridgeTest, MessagesPassBothWays) {
    RunningHost host(runtime_);
    const auto connection = bridge_.connect(own_);
    ASSERT_NE(connection, nullptr);
    ASSERT_TRUE(connection->send("{\"id\":5}"));
    EXPECT_EQ(host.receive(), "{\"client\":1,\"request\":{\"id\":5}}");
    host.send("{\"client\":1,\"reply\":{\"id\":5,\"result\":{}}}");
    const auto reply = connection->receive(10);
    ASSERT_TRUE(reply && *reply);
    EXPECT_EQ(**reply, "{\"id\":5,\"result\":{}}");
}

TEST_F(SocketBridgeTest, WithoutAReplyTheWaitEnds) {
    const RunningHost host(runtime_);
    const auto connection = bridge_.connect(own_);
    ASSERT_NE(connection, nullptr);
    ASSERT_TRUE(connection->send("{}"));
    const auto begin = std::chrono::steady_clock::now();
    const auto reply = connection->receive(0.2);
    ASSERT_TRUE(reply);
    EXPECT_FALSE(*reply);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 200ms);
}

TEST_F(SocketBridgeTest, TheEndOfTheHostEndsTheWait) {
    RunningHost host(runtime_);
    const auto connection = bridge_.connect(own_);
    ASSERT_NE(connection, nullptr);
    host.kill(SIGKILL);
    EXPECT_FALSE(connection->receive(10));
    EXPECT_FALSE(connection->send("{}"));
}

TEST_F(SocketBridgeTest, ARequestThatIsTooLongIsNotSent) {
    const RunningHost host(runtime_);
    const auto connection = bridge_.connect(own_);
    ASSERT_NE(connection, nullptr);
    EXPECT_FALSE(connection->send(std::string(kMostRequestBytes + 1, ' ')));
}

// A browser that was stopped may have a host that was stopped, too.
TEST_F(SocketBridgeTest, AHostThatDoesNotReadCannotHoldUpTheProgram) {
    RunningHost host(runtime_);
    const auto connection = bridge_.connect(own_);
    ASSERT_NE(connection, nullptr);
    host.stop();
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(connection->send("{\"url\":\"" + std::string(kMostRequestBytes - 100, 'x') + "\"}"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s);
}

TEST_F(SocketBridgeTest, TheSocketOfAHostThatWasKilledIsRemoved) {
    RunningHost host(runtime_);
    host.kill(SIGKILL);
    ASSERT_TRUE(fs::exists(host.socket()));
    EXPECT_EQ(bridge_.connect(own_), nullptr);
    EXPECT_FALSE(fs::exists(host.socket()));
}

TEST_F(SocketBridgeTest, TheSocketOfABrowserThatHasEndedIsRemovedAndOtherFilesAreNot) {
    const fs::path folder = bridgeFolder(runtime_);
    fs::create_directories(folder);
    const pid_t ended = fork();
    if (ended == 0)
        _exit(0);
    waitpid(ended, nullptr, 0);
    const fs::path stale = folder / fileNameOf({static_cast<unsigned>(ended), 1});
    const fs::path other = folder / "notes.txt";
    std::ofstream(stale).put('x');
    std::ofstream(other).put('x');
    EXPECT_THAT(bridge_.connectedBrowsers(), testing::IsEmpty());
    EXPECT_FALSE(fs::exists(stale));
    EXPECT_TRUE(fs::exists(other));
}

} // namespace
} // namespace tabulon
