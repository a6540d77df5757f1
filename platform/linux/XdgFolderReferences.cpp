#include "platform/linux/XdgFolderReferences.h"

#include "platform/linux/XdgFolders.h"

namespace tabulon {

std::optional<std::string> XdgFolderReferences::resolve(std::string_view key) {
    std::optional<std::string> path = defaults_.stringForKey(key);
    if (path && !(path->starts_with('/') && files_.fileExists(*path)))
        return std::nullopt;
    return path;
}

void XdgFolderReferences::store(std::string_view key, const std::string& path) {
    defaults_.setStringForKey(key, path);
}

std::optional<std::string> XdgFolderReferences::documentsFolder() {
    std::string folder = tabulon::documentsFolder(files_);
    return files_.kindOf(folder) == PathKind::Folder ? std::optional(std::move(folder)) : std::nullopt;
}

std::string XdgFolderReferences::stateFolder() {
    return tabulon::stateFolder();
}

} // namespace tabulon
