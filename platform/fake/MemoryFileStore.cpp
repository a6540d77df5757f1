#include "platform/fake/MemoryFileStore.h"

#include <cerrno>

namespace tabulon {

Result<std::string> MemoryFileStore::readFile(const std::string& path) {
    const auto found = files.find(path);
    if (found == files.end())
        return failure("The file “" + path + "” does not exist.", ErrorDomain::Posix, ENOENT);
    return found->second;
}

Result<void> MemoryFileStore::writeFileAtomically(const std::string& path, std::string_view bytes) {
    if (diskFull)
        return failure("The file “" + path + "” could not be written: the disk is full.", ErrorDomain::Posix,
                       ENOSPC);
    files.insert_or_assign(path, std::string(bytes));
    ++writes;
    return {};
}

} // namespace tabulon
