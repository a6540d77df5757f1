// Who may do what with a file, and the attributes that other programs keep with it: read from one file and
// handed on to the one that takes its place.
#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

struct stat;

namespace tabulon {

struct FileAccess {
    /// Permissions alone, without set-user-id, set-group-id and sticky bit, which no bookmark file needs.
    mode_t permissions = 0;
    uid_t owner = 0;
    gid_t group = 0;
    /// The access control list as the system stores it; empty for none.
    std::string list = {};
    /// Extended attributes by name, without those that the system computes from a file's content or that
    /// give a program rights.
    std::vector<std::pair<std::string, std::string>> attributes = {};
};

/// The access of the file at `path`, symbolic links followed, of which `status` is what `stat` says.
FileAccess accessOf(const std::string& path, const struct stat& status);

/// Hands it on to an open file that only the user can use so far, as far as the system allows it. What cannot
/// be kept grants nobody more than before: without the group, group and others get what both had; without the
/// access control list they get nothing. A file system that has no permissions is left as it is.
void takeAccess(int descriptor, const FileAccess& access);

} // namespace tabulon
