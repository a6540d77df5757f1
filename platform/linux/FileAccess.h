// The access rights and extended attributes of a file: read from one file and set on the file that replaces
// it.
#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

struct stat;

namespace tabulon {

/// The access rights and extended attributes of a file.
struct FileAccess {
    /// The permission bits, without set-user-id, set-group-id and sticky bit, which no bookmark file needs.
    mode_t permissions = 0;
    uid_t owner = 0;
    gid_t group = 0;
    /// The access control list in the system's binary form; empty for none.
    std::string list = {};
    /// Extended attributes, name and value, without those that the system computes from a file's content or
    /// that grant rights to a program.
    std::vector<std::pair<std::string, std::string>> attributes = {};
};

/// Returns the access of the file at `path`, following symbolic links. `status` is the result of `stat` for
/// it. What cannot be read is left out.
FileAccess accessOf(const std::string& path, const struct stat& status);

/// Sets `access` on an open file, as far as the system allows. No user gets more rights than the old file
/// granted: without its group, group and others get the rights that both had; without its access control
/// list, group and others get none. On a file system without permissions these are not changed. Requires: a
/// file that only the user can access.
void takeAccess(int descriptor, const FileAccess& access);

} // namespace tabulon
