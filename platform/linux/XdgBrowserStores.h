// The bookmark files of browsers where Linux distributions, snap and flatpak put them.
#pragma once

#include "platform/BrowserStores.h"
#include "platform/FileStore.h"

namespace tabulon {

class XdgBrowserStores : public BrowserStores {
public:
    /// `files` must live longer.
    explicit XdgBrowserStores(FileStore& files) : files_(files) {}
    std::vector<std::string> bookmarkFiles(std::string_view browser) override;
    std::string folderOfForeignFiles() override;

private:
    FileStore& files_;
};

} // namespace tabulon
