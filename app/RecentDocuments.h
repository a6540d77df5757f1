// The files that were opened or saved last, the newest first, stored from one run to the next.
#pragma once

#include "base/UserDefaults.h"

#include <string>
#include <vector>

namespace tabulon {

/// The list. Paths are absolute and in the file system's encoding, with any bytes. The stored list is read
/// again each time, so that several running processes see each other's files.
class RecentDocuments {
public:
    /// The largest number of files in the list.
    static constexpr std::size_t kMaximum = 10;

    /// Requires: `state`, which stores the list, outlives this object.
    explicit RecentDocuments(UserDefaults& state) : state_(state) {}

    /// Returns the files, the newest first.
    std::vector<std::string> paths() const;
    /// Makes `path` the first file of the list. The oldest one is removed if there are more than `kMaximum`.
    void note(const std::string& path);
    /// Removes `path`, if it is in the list.
    void forget(const std::string& path);
    /// Removes all files.
    void clear();

private:
    /// Replaces the stored list.
    void store(const std::vector<std::string>& paths);

    UserDefaults& state_;
};

} // namespace tabulon
