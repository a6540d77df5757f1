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
    if (!unwritable.empty() && path.starts_with(unwritable))
        return failure("The file “" + path + "” could not be written: permission denied.", ErrorDomain::Posix,
                       EACCES);
    files.insert_or_assign(path, std::string(bytes));
    ++writes;
    return {};
}

std::optional<FileIdentity> MemoryFileStore::identityOf(const std::string& path) {
    const auto found = files.find(path);
    if (found == files.end())
        return std::nullopt;
    // A file is what it holds: there is no clock in here.
    return FileIdentity{.inode = std::hash<std::string>()(found->second), .size = found->second.size()};
}

Result<void> MemoryFileStore::copyFile(const std::string& from, const std::string& to) {
    const Result<std::string> bytes = readFile(from);
    return bytes ? writeFileAtomically(to, *bytes) : Result<void>(tl::unexpected(bytes.error()));
}

Result<void> MemoryFileStore::removeFile(const std::string& path) {
    files.erase(path);
    return {};
}

Result<void> MemoryFileStore::makeFolder(const std::string& /*path*/) {
    return {};
}

std::vector<std::string> MemoryFileStore::namesInFolder(const std::string& path) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : files)
        if (name.starts_with(path + "/") && name.find('/', path.size() + 1) == std::string::npos)
            names.push_back(name.substr(path.size() + 1));
    return names;
}

} // namespace tabulon
