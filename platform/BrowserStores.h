// The files in which the browsers of this computer store bookmarks. Reading these files is in formats/.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Paths are absolute and in the file system's encoding.
class BrowserStores {
public:
    virtual ~BrowserStores() = default;

    /// Returns the files with bookmarks of all profiles and packages of a browser. The order is by the time
    /// of the last change, latest first, because a browser that was changed from one package to another
    /// leaves an outdated file. Returns an empty list for a browser that is unknown or not installed.
    /// `browser` is its identifier, such as "com.google.Chrome". Reads the folders of the disk in every call.
    virtual std::vector<std::string> bookmarkFiles(std::string_view browser) = 0;

    /// Returns the folder in which files from other sources usually are: the user's downloads if it exists,
    /// else the documents, else the home folder.
    virtual std::string folderOfForeignFiles() = 0;
};

} // namespace tabulon
