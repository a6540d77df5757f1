// An in-memory version of the browsers' bookmark files.
#pragma once

#include "platform/BrowserStores.h"

#include <map>

namespace tabulon {

/// Returns the files in `files`.
class FakeBrowserStores : public BrowserStores {
public:
    std::vector<std::string> bookmarkFiles(std::string_view browser) override {
        ++lookUps;
        const auto found = files.find(browser);
        return found == files.end() ? std::vector<std::string>() : found->second;
    }
    std::string folderOfForeignFiles() override { return "/home/downloads"; }

    /// The number of calls of `bookmarkFiles`.
    int lookUps = 0;
    /// By the identifier of the browser.
    std::map<std::string, std::vector<std::string>, std::less<>> files;
};

} // namespace tabulon
