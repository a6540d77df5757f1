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
    /// `parent` is the folder of the recovery folders of all runs. It is created with the first of them.
    explicit XdgRecoveryFolders(std::string parent);
    ~XdgRecoveryFolders() override;

    /// Returns the path of this run's folder, which is created if it is missing. Fails with errno and a
    /// sentence.
    Result<std::string> ownFolder() override;
    /// Returns the sorted paths of the folders whose lock is free, and locks them for this run.
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
    std::string own_;
    std::vector<Held> held_;
};

} // namespace tabulon
