// Folders that the user has chosen, stored as paths in the settings.
#pragma once

#include "base/UserDefaults.h"
#include "platform/FileStore.h"
#include "platform/FolderReferences.h"

namespace tabulon {

/// Stores paths in the settings. See platform/FolderReferences.h for the contracts.
class XdgFolderReferences : public FolderReferences {
public:
    /// The arguments must outlive this object.
    XdgFolderReferences(UserDefaults& defaults, FileStore& files) : defaults_(defaults), files_(files) {}

    /// Returns the stored path, or `nullopt` where it is not absolute or does not exist.
    std::optional<std::string> resolve(std::string_view key) override;
    /// Sets the setting `key` to the path.
    void store(std::string_view key, const std::string& path) override;
    /// Returns the desktop's folder for documents (XDG user directories), or `nullopt` where it does not
    /// exist.
    std::optional<std::string> documentsFolder() override;
    /// Returns `stateFolder()` of XdgFolders.h.
    std::string stateFolder() override;

private:
    UserDefaults& defaults_;
    FileStore& files_;
};

} // namespace tabulon
