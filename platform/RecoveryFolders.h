// Where documents without a file are kept while the program runs, so that they are there again after a crash.
// What is written there is the caller's affair.
#pragma once

#include "base/Error.h"

#include <string>
#include <vector>

namespace tabulon {

/// Each run of the program has a folder of its own, which other runs keep away from until it ends. Paths are
/// absolute and in the file system's encoding.
class RecoveryFolders {
public:
    virtual ~RecoveryFolders() = default;

    /// The folder of this run, made when it is asked for first. Fails with a sentence when it cannot be made.
    virtual Result<std::string> ownFolder() = 0;

    /// The folders of runs that have ended and left files behind. They belong to this run from then on.
    virtual std::vector<std::string> adoptAbandonedFolders() = 0;
};

} // namespace tabulon
