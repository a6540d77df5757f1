#include "platform/FileStore.h"

namespace tabulon {

bool isSameFile(FileStore& files, const std::string& a, const std::string& b) {
    if (a == b)
        return true;
    const auto first = files.identityOf(a);
    const auto second = files.identityOf(b);
    return first && second && first->device == second->device && first->inode == second->inode;
}

} // namespace tabulon
