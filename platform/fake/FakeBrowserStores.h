// Browsers in memory.
#pragma once

#include "platform/BrowserStores.h"

#include <map>

namespace tabulon {

/// Gives what was laid in.
class FakeBrowserStores : public BrowserStores {
public:
    std::vector<std::string> bookmarkFiles(std::string_view browser) override {
        const auto found = files.find(browser);
        return found == files.end() ? std::vector<std::string>() : found->second;
    }
    std::string folderOfForeignFiles() override { return "/home/downloads"; }

    std::map<std::string, std::vector<std::string>, std::less<>> files;
};

} // namespace tabulon
