// Browsers in memory.
#pragma once

#include "platform/BrowserStores.h"

#include <map>

namespace tabulon {

/// Returns the files that were put in.
class FakeBrowserStores : public BrowserStores {
public:
    std::vector<std::string> bookmarkFiles(std::string_view browser) override {
        ++lookUps;
        const auto found = files.find(browser);
        return found == files.end() ? std::vector<std::string>() : found->second;
    }
    std::string folderOfForeignFiles() override { return "/home/downloads"; }

    /// How often a browser's files were asked for.
    int lookUps = 0;
    std::map<std::string, std::vector<std::string>, std::less<>> files;
};

} // namespace tabulon
