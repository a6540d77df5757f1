// Recovery folders below the state folder, one for each run, told apart by locks that end with the process.
#pragma once

#include "platform/RecoveryFolders.h"
#include "platform/linux/FolderLock.h"

#include <memory>
#include <string>
#include <vector>

namespace tabulon {

/// Folders that are empty at the end go with the object.
class XdgRecoveryFolders : public RecoveryFolders {
public:
    /// `parent` is the folder that holds those of all runs; made when it is needed.
    explicit XdgRecoveryFolders(std::string parent);
    ~XdgRecoveryFolders() override;

    Result<std::string> ownFolder() override;
    std::vector<std::string> adoptAbandonedFolders() override;

private:
    struct Held {
        std::string path;
        std::unique_ptr<FolderLock> lock;
    };

    Result<std::string> makeOwn();

    const std::string parent_;
    std::string own_;
    std::vector<Held> held_;
};

} // namespace tabulon
