// Where the browsers of this computer keep their bookmarks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Paths are absolute and in the file system's encoding.
class BrowserStores {
public:
    virtual ~BrowserStores() = default;

    /// The files in which a browser keeps bookmarks, of all its profiles and packagings; the one that was
    /// written last comes first, since a browser that has moved from one packaging to another leaves a stale
    /// copy behind. Empty for a browser that is not there. `browser` is its identifier, such as
    /// "com.google.Chrome".
    virtual std::vector<std::string> bookmarkFiles(std::string_view browser) = 0;

    /// The folder in which files that come from elsewhere mostly are: the user's downloads, else the
    /// documents, else the home folder.
    virtual std::string folderOfForeignFiles() = 0;
};

} // namespace tabulon
