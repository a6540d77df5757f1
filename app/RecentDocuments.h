// The files that were opened or saved last, newest first, kept from one run to the next.
#pragma once

#include "base/UserDefaults.h"

#include <string>
#include <vector>

namespace tabulon {

/// Paths are absolute and in the file system's encoding, whatever bytes that holds. The store is refreshed
/// each time, so that several running programs see each other's files.
class RecentDocuments {
public:
    static constexpr std::size_t kMaximum = 10;

    /// `state` keeps the list and must live longer.
    explicit RecentDocuments(UserDefaults& state) : state_(state) {}

    std::vector<std::string> paths() const;
    /// Puts `path` in front; the oldest one beyond the maximum falls off.
    void note(const std::string& path);
    void forget(const std::string& path);
    void clear();

private:
    void store(const std::vector<std::string>& paths);

    UserDefaults& state_;
};

} // namespace tabulon
