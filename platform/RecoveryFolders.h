// Folders in which documents without a file are stored while the program runs, so that they can be restored
// after a crash. The caller decides what is written there.
#pragma once

#include "base/Error.h"

#include <string>
#include <vector>

namespace tabulon {

/// Each run of the program has a folder that other runs do not use until this run has ended. Paths are
/// absolute and in the file system's encoding.
class RecoveryFolders {
public:
    virtual ~RecoveryFolders() = default;

    /// Returns the folder of this run. Makes it in the first call, and again if it was removed. Fails with
    /// ErrorDomain::Posix, errno and a sentence if it cannot be made.
    virtual Result<std::string> ownFolder() = 0;

    /// Returns the folders that runs which have ended did not remove, usually because documents are in them;
    /// a folder may be empty. They belong to this run afterwards and are not returned again.
    virtual std::vector<std::string> adoptAbandonedFolders() = 0;
};

} // namespace tabulon
