// Recovery folders, one for each run of the program. A folder is in use while its lock is held, which ends
// with the process.
#pragma once

#include "platform/RecoveryFolders.h"
#include "platform/linux/FolderLock.h"

#include <memory>
#include <string>
#include <vector>

namespace tabulon {

/// Creates and adopts recovery folders. The destructor removes those that are empty. See
/// platform/RecoveryFolders.h for the contracts.
class XdgRecoveryFolders : public RecoveryFolders {
public:
    /// `parent` is the folder of the recovery folders of all runs, an absolute path. It is created with the
    /// first of them, and only the user can read it.
    explicit XdgRecoveryFolders(std::string parent);
    /// Removes the folders of this run that are empty, also adopted ones, and releases all locks.
    ~XdgRecoveryFolders() override;

    /// Returns the path of this run's folder, which is created if it is missing. Fails with errno and a
    /// sentence.
    Result<std::string> ownFolder() override;
    /// Returns the sorted paths of the folders whose lock is free, and locks them for this run. Does not
    /// wait. A folder that cannot be locked, for example on a file system without locks, may belong to a
    /// program that runs and is left where it is.
    std::vector<std::string> adoptAbandonedFolders() override;

private:
    /// A folder of this run, and its lock.
    struct Held {
        std::string path;
        std::unique_ptr<FolderLock> lock;
    };

    /// Creates and locks a folder for this run.
    Result<std::string> makeOwn();

    const std::string parent_;
    std::string own_;        // the folder of this run; empty before the first call of `ownFolder`
    std::vector<Held> held_; // own and adopted folders
};

} // namespace tabulon
