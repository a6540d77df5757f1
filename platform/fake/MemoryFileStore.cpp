#include "platform/fake/MemoryFileStore.h"

#include <cerrno>

namespace tabulon {

// Returns the path itself, or the end of the chain of links that begins there.
const std::string& MemoryFileStore::target(const std::string& path) const {
    const auto link = links.find(path);
    return link == links.end() ? path : target(link->second);
}

PathKind MemoryFileStore::kindOf(const std::string& path) {
    const std::string& file = target(path);
    if (files.contains(file))
        return PathKind::File;
    if (devices.contains(file))
        return PathKind::Other;
    const auto inside = files.lower_bound(file + "/");
    const bool isFolder =
        folders.contains(file) || (inside != files.end() && inside->first.starts_with(file + "/"));
    return isFolder ? PathKind::Folder : PathKind::Nothing;
}

Result<std::string> MemoryFileStore::readFile(const std::string& path) {
    ++reads[path];
    return contentOf(path);
}

Result<std::string> MemoryFileStore::readBeginning(const std::string& path, std::size_t size) {
    return contentOf(path).map([size](const std::string& content) { return content.substr(0, size); });
}

Result<std::string> MemoryFileStore::contentOf(const std::string& path) const {
    if (!unreadable.empty() && path.starts_with(unreadable))
        return failure("Cannot read “" + path + "”: Permission denied.", ErrorDomain::Posix, EACCES);
    const auto found = files.find(target(path));
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
    if (willWrite)
        willWrite(path);
    files.insert_or_assign(target(path), std::string(bytes));
    ++writes;
    return {};
}

std::optional<FileIdentity> MemoryFileStore::identityOf(const std::string& path) {
    const auto found = files.find(target(path));
    if (found == files.end())
        return std::nullopt;
    // There is no clock, so the time is derived from the content.
    const auto time = static_cast<std::int64_t>(std::hash<std::string>()(found->second));
    const auto moved = firstNames_.find(found->first);
    return FileIdentity{
        .inode = std::hash<std::string>()(moved == firstNames_.end() ? found->first : moved->second),
        .size = found->second.size(),
        .modified = time};
}

void MemoryFileStore::move(const std::string& from, const std::string& to) {
    files[to] = files.at(from);
    files.erase(from);
    firstNames_[to] = from;
}

Result<void> MemoryFileStore::copyFile(const std::string& from, const std::string& to) {
    const Result<std::string> bytes = readFile(from);
    return bytes ? writeFileAtomically(to, *bytes) : Result<void>(tl::unexpected(bytes.error()));
}

Result<void> MemoryFileStore::removeFile(const std::string& path) {
    files.erase(path);
    return {};
}

Result<void> MemoryFileStore::makeFolder(const std::string& path) {
    if (files.contains(path))
        return failure("Cannot make the folder “" + path + "”: Not a directory.", ErrorDomain::Posix,
                       ENOTDIR);
    folders.insert(path);
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
