#include "platform/linux/XdgBrowserStores.h"

#include "platform/linux/XdgFolders.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

/// The folder of a browser's user data in each packaging; empty where there is no such packaging.
struct BrowserFolders {
    std::string_view browser;
    std::string_view native; // relative to the folder for settings
    std::string_view snap;   // relative to the home folder, like `flatpak`
    std::string_view flatpak;
};

constexpr auto kChromiumFamily = std::to_array<BrowserFolders>({
    {"com.google.Chrome", "google-chrome", "", ".var/app/com.google.Chrome/config/google-chrome"},
    {"org.chromium.Chromium", "chromium", "snap/chromium/common/chromium",
     ".var/app/org.chromium.Chromium/config/chromium"},
    {"com.vivaldi.Vivaldi", "vivaldi", "", ".var/app/com.vivaldi.Vivaldi/config/vivaldi"},
    {"com.brave.Browser", "BraveSoftware/Brave-Browser",
     "snap/brave/current/.config/BraveSoftware/Brave-Browser",
     ".var/app/com.brave.Browser/config/BraveSoftware/Brave-Browser"},
    {"com.microsoft.edgemac", "microsoft-edge", "", ".var/app/com.microsoft.Edge/config/microsoft-edge"},
    {"com.operasoftware.Opera", "opera", "snap/opera/current/.config/opera",
     ".var/app/com.opera.Opera/config/opera"},
});

constexpr std::string_view kFirefox = "org.mozilla.Firefox";
constexpr auto kFirefoxFolders = std::to_array<std::string_view>({
    ".mozilla/firefox",
    "snap/firefox/common/.mozilla/firefox",
    ".var/app/org.mozilla.firefox/.mozilla/firefox",
});

std::vector<fs::path> dataFolders(std::string_view browser) {
    std::vector<fs::path> folders;
    const fs::path home = homeFolder();
    if (browser == kFirefox) {
        folders.push_back(fs::path(configFolder()) / "mozilla/firefox");
        for (const std::string_view folder : kFirefoxFolders)
            folders.push_back(home / folder);
        return folders;
    }
    const auto known = std::ranges::find(kChromiumFamily, browser, &BrowserFolders::browser);
    if (known == kChromiumFamily.end())
        return folders;
    folders.push_back(fs::path(configFolder()) / known->native);
    for (const std::string_view folder : {known->snap, known->flatpak})
        if (!folder.empty())
            folders.push_back(home / folder);
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
    const std::string_view name = browser == kFirefox ? "places.sqlite" : "Bookmarks";
    std::vector<Found> found;
    for (const fs::path& folder : dataFolders(browser)) {
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
