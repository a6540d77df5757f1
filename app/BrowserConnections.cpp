#include "app/BrowserConnections.h"

#include <algorithm>
#include <filesystem>

namespace tabulon {
namespace {

constexpr auto kPackagings = {BrowserPackaging::Native, BrowserPackaging::Snap, BrowserPackaging::Flatpak};

// The folder of manifests may be named with "..", which Firefox resolves without looking at symbolic links.
std::string manifestPath(const std::string& profiles, const Browser& browser) {
    return (std::filesystem::path(profiles) / browser.messagingFolder / hostManifestFileName())
        .lexically_normal()
        .string();
}

} // namespace

ManifestForm manifestForm(const Browser& browser) {
    return browser.family == BrowserFamily::URLSuite ? ManifestForm::Firefox : ManifestForm::Chromium;
}

BrowserConnections::BrowserConnections(Services services, Places places)
    : services_(std::move(services)), places_(std::move(places)) {}

std::vector<FoundBrowser> BrowserConnections::found() const {
    std::vector<FoundBrowser> all;
    for (const Browser& browser : browsers())
        if (!browser.messagingFolder.empty())
            addFound(browser, all);
    return all;
}

// A program without any folder of profiles counts as a native one.
void BrowserConnections::addFound(const Browser& browser, std::vector<FoundBrowser>& all) const {
    const auto application = services_.workspace.application(browser.identifier);
    const std::size_t before = all.size();
    const auto add = [&](BrowserPackaging packaging) {
        FoundBrowser found{.browser = &browser,
                           .packaging = packaging,
                           .icon =
                               application ? application->icon : std::string(browser.desktopEntries.front()),
                           .stage = ConnectionStage::NotInstalled,
                           .canTakeBack = false};
        found.stage = stageOf(found, application.has_value());
        found.canTakeBack = canTakeBack(found);
        all.push_back(std::move(found));
    };
    for (const BrowserPackaging packaging : kPackagings)
        if (!profileFolders(browser, packaging).empty())
            add(packaging);
    if (all.size() == before && application)
        add(BrowserPackaging::Native);
}

std::vector<std::string> BrowserConnections::profileFolders(const Browser& browser,
                                                            BrowserPackaging packaging) const {
    std::vector<std::string> folders;
    for (const BrowserFolder& folder : browser.profileFolders) {
        if (folder.packaging != packaging)
            continue;
        std::string path =
            (folder.isInConfig ? places_.config : places_.home) + "/" + std::string(folder.path);
        if (services_.files.kindOf(path) == PathKind::Folder)
            folders.push_back(std::move(path));
    }
    return folders;
}

std::vector<std::string> BrowserConnections::manifestPaths(const FoundBrowser& found) const {
    std::vector<std::string> paths;
    for (const std::string& folder : profileFolders(*found.browser, found.packaging))
        paths.push_back(manifestPath(folder, *found.browser));
    return paths;
}

ManifestKind BrowserConnections::kindOf(const Browser& browser, const std::string& bytes) const {
    return manifestKind(bytes, manifestForm(browser), places_.host);
}

// The connection does not show the packaging of the browser. It is the native one's where both exist.
ConnectionStage BrowserConnections::stageOf(const FoundBrowser& found, bool isInstalled) const {
    const bool isNative = found.packaging == BrowserPackaging::Native;
    if ((isNative || profileFolders(*found.browser, BrowserPackaging::Native).empty()) &&
        isConnected(*found.browser))
        return permissionStage(*found.browser);
    if (!isInstalled)
        return ConnectionStage::NotInstalled;
    if (!isNative)
        return ConnectionStage::Sandboxed;
    return manifestStage(found);
}

ConnectionStage BrowserConnections::permissionStage(const Browser& browser) const {
    const std::optional<bool> answer = services_.permission.answer(browser.identifier);
    if (!answer)
        return ConnectionStage::NotAsked;
    return *answer ? ConnectionStage::Allowed : ConnectionStage::Denied;
}

// The user's manifest has priority over that of the system, so an equal one of the system counts only where
// the user has none.
ConnectionStage BrowserConnections::manifestStage(const FoundBrowser& found) const {
    const Browser& browser = *found.browser;
    const bool isInSystem = systemManifestIsEqual(browser);
    const std::vector<std::string> paths = manifestPaths(found);
    if (paths.empty() && !isInSystem)
        return ConnectionStage::NeverStarted;
    bool isMissing = false;
    for (const std::string& path : paths) {
        const Result<std::string> bytes = services_.files.readFile(path);
        if (bytes && kindOf(browser, *bytes) != ManifestKind::Equal)
            return ConnectionStage::ManifestOther;
        isMissing = isMissing || (!bytes && !isInSystem);
    }
    if (isMissing)
        return ConnectionStage::ManifestMissing;
    return !browser.systemExtension.empty() &&
                   services_.files.fileExists(std::string(browser.systemExtension))
               ? ConnectionStage::ExtensionInstalled
               : ConnectionStage::ExtensionMissing;
}

bool BrowserConnections::systemManifestIsEqual(const Browser& browser) const {
    if (browser.systemMessagingFolder.empty())
        return false;
    const auto bytes =
        services_.files.readFile(std::string(browser.systemMessagingFolder) + "/" + hostManifestFileName());
    return bytes && kindOf(browser, *bytes) == ManifestKind::Equal;
}

bool BrowserConnections::isConnected(const Browser& browser) const {
    return std::ranges::any_of(services_.bridge.connectedBrowsers(), [&](const ConnectedBrowser& connected) {
        return browserWithIdentifier(connected.identifier) == &browser;
    });
}

bool BrowserConnections::canTakeBack(const FoundBrowser& found) const {
    if (services_.permission.answer(found.browser->identifier))
        return true;
    return std::ranges::any_of(manifestPaths(found), [&](const std::string& path) {
        const auto bytes = services_.files.readFile(path);
        return bytes && kindOf(*found.browser, *bytes) != ManifestKind::Foreign;
    });
}

Result<void> BrowserConnections::connect(const FoundBrowser& found) {
    if (services_.files.kindOf(places_.host) != PathKind::File)
        return failure("The program “" + places_.host + "” is missing. Install Tabulon again.");
    const auto manifest = hostManifest(manifestForm(*found.browser), places_.host);
    if (!manifest)
        return tl::unexpected(manifest.error());
    for (const std::string& path : manifestPaths(found))
        if (auto written = writeManifest(*found.browser, path, *manifest); !written)
            return written;
    return {};
}

Result<void> BrowserConnections::writeManifest(const Browser& browser, const std::string& path,
                                               std::string_view manifest) {
    FileStore& files = services_.files;
    if (files.fileExists(path)) {
        const auto bytes = files.readFile(path);
        if (!bytes)
            return tl::unexpected(bytes.error());
        switch (kindOf(browser, *bytes)) {
        case ManifestKind::Equal:
            return {};
        case ManifestKind::Foreign:
            return failure("“" + path +
                           "” is not a file of Tabulon. Remove or rename it, and connect again.");
        case ManifestKind::Other:
            break;
        }
    } else if (systemManifestIsEqual(browser))
        return {};
    if (auto made = files.makeFolder(std::filesystem::path(path).parent_path().string()); !made)
        return made;
    return files.writeFileAtomically(path, manifest);
}

Result<void> BrowserConnections::takeBack(const FoundBrowser& found) {
    forget(found);
    Result<void> result;
    for (const std::string& path : manifestPaths(found)) {
        const auto bytes = services_.files.readFile(path);
        if (!bytes || kindOf(*found.browser, *bytes) == ManifestKind::Foreign)
            continue;
        if (auto removed = services_.files.removeFile(path); !removed)
            result = std::move(removed);
    }
    return result;
}

void BrowserConnections::allow(const FoundBrowser& found) {
    services_.permission.setAnswer(found.browser->identifier, true);
}

void BrowserConnections::forget(const FoundBrowser& found) {
    services_.permission.setAnswer(found.browser->identifier, std::nullopt);
}

} // namespace tabulon
