// User-chosen folders, kept as plain paths in the settings.
#pragma once

#include "base/UserDefaults.h"
#include "platform/FileStore.h"
#include "platform/FolderReferences.h"

namespace tabulon {

class XdgFolderReferences : public FolderReferences {
public:
    /// Both must live longer.
    XdgFolderReferences(UserDefaults& defaults, FileStore& files) : defaults_(defaults), files_(files) {}

    std::optional<std::string> resolve(std::string_view key) override;
    void store(std::string_view key, const std::string& path) override;
    /// The desktop's folder for documents (XDG user directories), if it is there.
    std::optional<std::string> documentsFolder() override;
    /// `stateFolder()` of XdgFolders.h.
    std::string stateFolder() override;

private:
    UserDefaults& defaults_;
    FileStore& files_;
};

} // namespace tabulon
