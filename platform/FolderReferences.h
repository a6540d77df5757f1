// Folders and files that the user has chosen and that the program uses again, and the standard folders of the
// user.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Paths are absolute and in the file system's encoding.
class FolderReferences {
public:
    virtual ~FolderReferences() = default;

    /// Returns the path that is stored for a settings key such as "BackupFolderBookmark". Returns `nullopt`
    /// if none is stored, or if there is no file or folder at the path at present.
    virtual std::optional<std::string> resolve(std::string_view key) = 0;

    /// Stores a path for the key, for this run of the program and later ones. Whether it exists is tested
    /// when it is resolved.
    virtual void store(std::string_view key, const std::string& path) = 0;

    /// Returns the user's folder for documents, or `nullopt` if it does not exist.
    virtual std::optional<std::string> documentsFolder() = 0;

    /// Returns the folder for the program's own data, such as versions of documents. It may not exist yet.
    virtual std::string stateFolder() = 0;
};

} // namespace tabulon
