// Folders and files that the user chose once and the program comes back to, and the folders that every user
// has.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Paths are absolute and in the file system's encoding.
class FolderReferences {
public:
    virtual ~FolderReferences() = default;

    /// What is kept under a settings key such as "BackupFolderBookmark", if it is there now. Nothing when
    /// nothing was chosen, or when the folder is gone.
    virtual std::optional<std::string> resolve(std::string_view key) = 0;

    /// Keeps a path under the key.
    virtual void store(std::string_view key, const std::string& path) = 0;

    /// The user's folder for documents; nothing when there is none.
    virtual std::optional<std::string> documentsFolder() = 0;

    /// The folder for what the program keeps by itself, which need not exist.
    virtual std::string stateFolder() = 0;
};

} // namespace tabulon
