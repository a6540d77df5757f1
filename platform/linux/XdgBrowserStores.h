// The bookmark files of browsers, in the folders used by Linux distributions, snap and flatpak.
#pragma once

#include "platform/BrowserStores.h"
#include "platform/FileStore.h"

namespace tabulon {

/// Finds files of browsers. See platform/BrowserStores.h for the contracts.
class XdgBrowserStores : public BrowserStores {
public:
    /// `files` is used for the standard folders of the user. It must outlive this object.
    explicit XdgBrowserStores(FileStore& files) : files_(files) {}
    /// Returns the paths of the bookmark files in all profiles, the most recently written first and then by
    /// path; empty for an unknown browser. Leaves out folders that cannot be read. Reads the disk directly,
    /// not by `files`.
    std::vector<std::string> bookmarkFiles(std::string_view browser) override;
    /// Returns the folder for downloads, else that for documents, else the home folder.
    std::string folderOfForeignFiles() override;

private:
    FileStore& files_;
};

} // namespace tabulon
