// The bookmark files of browsers, in the folders used by Linux distributions, snap and flatpak.
#pragma once

#include "platform/BrowserStores.h"
#include "platform/FileStore.h"

namespace tabulon {

/// Finds files of browsers. See platform/BrowserStores.h for the contracts.
class XdgBrowserStores : public BrowserStores {
public:
    /// `files` must outlive this object.
    explicit XdgBrowserStores(FileStore& files) : files_(files) {}
    /// Returns the paths of the bookmark files in all profiles, the most recently written first; empty for an
    /// unknown browser.
    std::vector<std::string> bookmarkFiles(std::string_view browser) override;
    /// Returns the folder for downloads, else that for documents, else the home folder.
    std::string folderOfForeignFiles() override;

private:
    FileStore& files_;
};

} // namespace tabulon
