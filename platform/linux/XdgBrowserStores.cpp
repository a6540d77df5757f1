#include "platform/linux/XdgBrowserStores.h"

#include "base/Browsers.h"
#include "platform/linux/XdgFolders.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> profileFolders(const Browser& browser) {
    std::vector<fs::path> folders;
    for (const BrowserFolder& folder : browser.profileFolders)
        folders.push_back(fs::path(folder.isInConfig ? configFolder() : homeFolder()) / folder.path);
    return folders;
}

struct Found {
    fs::path path;
    fs::file_time_type written;
};

// Adds the file if it exists and its date can be read.
void look(const fs::path& path, std::vector<Found>& found) {
    std::error_code problem;
    if (!fs::is_regular_file(path, problem))
        return;
    const fs::file_time_type written = fs::last_write_time(path, problem);
    if (!problem)
        found.push_back({path, written});
}

} // namespace

// Profiles are folders in the folder of a browser's data ("Default", "Profile 2", "x1y2z3.default-release").
// The only profile of Opera is that folder itself.
std::vector<std::string> XdgBrowserStores::bookmarkFiles(std::string_view browser) {
    const Browser* known = browserWithIdentifier(browser);
    if (!known)
        return {};
    const std::string_view name = known->family == BrowserFamily::URLSuite ? "places.sqlite" : "Bookmarks";
    std::vector<Found> found;
    for (const fs::path& folder : profileFolders(*known)) {
        look(folder / name, found);
        std::error_code problem;
        for (fs::directory_iterator profile(folder, fs::directory_options::skip_permission_denied, problem);
             !problem && profile != fs::directory_iterator(); profile.increment(problem))
            look(profile->path() / name, found);
    }
    std::ranges::sort(found, [](const Found& a, const Found& b) {
        return a.written != b.written ? a.written > b.written : a.path < b.path;
    });
    std::vector<std::string> paths;
    paths.reserve(found.size());
    for (const Found& file : found)
        paths.push_back(file.path.string());
    return paths;
}

std::string XdgBrowserStores::folderOfForeignFiles() {
    for (std::string folder : {downloadsFolder(files_), documentsFolder(files_)})
        if (files_.kindOf(folder) == PathKind::Folder)
            return folder;
    return homeFolder();
}

} // namespace tabulon
