// A fixture with the real file store and an empty folder, which is removed after the test.
#pragma once

#include "platform/linux/FileStore.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <string>

namespace tabulon {

namespace fs = std::filesystem;

class FileStoreTest : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "tabulon-files-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    void TearDown() override {
        std::error_code ignored;
        fs::permissions(folder, fs::perms::owner_all, ignored);
        fs::remove_all(folder, ignored);
    }
    std::string path(const std::string& name) const { return (folder / name).string(); }
    std::size_t fileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }
    static mode_t mode(const std::string& file) {
        struct stat status = {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        return status.st_mode & 07777;
    }
    /// Returns the exit status of a child process that runs `work` and ends with the value that it returns.
    template <typename Work>
    static int statusOfChild(const Work& work) {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(work());
        int status = -1;
        ::waitpid(child, &status, 0);
        return status;
    }

    /// As in the desktop program, and as in the command-line tool.
    PosixFileStore files;
    PosixFileStore toolsFiles{SpecialFiles::Used};
    fs::path folder;
};

} // namespace tabulon
