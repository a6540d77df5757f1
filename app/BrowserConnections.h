// How far each browser of this computer is connected with Tabulon, and the steps that connect and disconnect
// it. The sentences about it are in app/ConnectionTexts.h.
#pragma once

#include "app/HostManifest.h"
#include "base/Browsers.h"
#include "opening/RememberedPermission.h"
#include "platform/FileStore.h"
#include "platform/Workspace.h"

#include <functional>
#include <string>
#include <vector>

namespace tabulon {

/// How far a browser is connected: what is missing first, or what the user has allowed.
enum class ConnectionStage {
    NotInstalled,       ///< it has a profile, but the desktop knows no such program
    Sandboxed,          ///< it is a snap or a flatpak, which cannot start the host
    NeverStarted,       ///< it has no folder of profiles yet
    ManifestMissing,    ///< the manifest is missing in a folder
    ManifestOther,      ///< a manifest names another copy of the host, or the file is not Tabulon's
    ExtensionMissing,   ///< the manifest is there, and the extension is not connected
    ExtensionInstalled, ///< the same, but the extension is installed for all users
    NotAsked,           ///< connected; the user has not been asked for the permission
    Denied,             ///< connected; the user has denied the permission
    Allowed,            ///< connected and allowed
};

/// One browser in one form of packaging.
struct FoundBrowser {
    const Browser* browser; ///< never nullptr; valid as long as the program runs
    BrowserPackaging packaging;
    std::string icon; ///< as in Application::icon
    ConnectionStage stage;
    bool canTakeBack; ///< whether there is a manifest of Tabulon or an answer to the permission

    bool operator==(const FoundBrowser&) const = default;
};

/// Finds the browsers, connects and disconnects them.
class BrowserConnections {
public:
    /// The services. Owns none of them.
    struct Services {
        Workspace& workspace;
        FileStore& files;
        BrowserBridge& bridge;
        RememberedPermission& permission;
        /// Returns whether the user may execute the file at this path.
        std::function<bool(const std::string& path)> isExecutable;
    };

    /// Absolute paths in the file system's encoding.
    struct Places {
        std::string home;      ///< the user's home folder
        std::string config;    ///< the folder for settings of programs
        std::string host;      ///< tabulon-host
        std::string extension; ///< the folder of the extension
    };

    /// Requires: the services outlive this object.
    BrowserConnections(Services services, Places places);

    /// Returns the browsers of base/Browsers.h that are installed or have a folder of profiles, in the order
    /// of that table. A browser that is both a native program and a snap or flatpak is returned once for
    /// each. Reads the disk in every call and sends nothing to browsers.
    std::vector<FoundBrowser> found() const;

    /// Writes the manifest into each folder of profiles of the browser that has no equal one. Fails with a
    /// sentence if the host does not exist, a file cannot be written, or there is a file of that name that is
    /// not a manifest of Tabulon; the folders before it are connected then.
    Result<void> connect(const FoundBrowser& found);
    /// Removes the manifests of Tabulon from the folders of profiles, and forgets the permission. Fails with
    /// the error of the file store if a manifest cannot be removed; the others are removed nevertheless.
    Result<void> takeBack(const FoundBrowser& found);
    /// Stores that the browser is allowed.
    void allow(const FoundBrowser& found);
    /// Forgets the permission, so that the user is asked again.
    void forget(const FoundBrowser& found);

    /// Returns the folder of the extension, for browsers into which the user loads it.
    const std::string& extensionFolder() const { return places_.extension; }
    const Services& services() const { return services_; }
    const Places& places() const { return places_; }

    /// Returns whether the extension of the browser is connected.
    bool isConnected(const Browser& browser) const;

private:
    /// Returns the existing folders of profiles of one packaging, normalised.
    std::vector<std::string> profileFolders(const Browser& browser, BrowserPackaging packaging) const;
    /// Returns the paths of the user's manifests for these folders.
    std::vector<std::string> manifestPaths(const FoundBrowser& found) const;
    ManifestKind kindOf(const Browser& browser, const std::string& bytes) const;
    ConnectionStage stageOf(const FoundBrowser& found, bool isInstalled) const;
    ConnectionStage manifestStage(const FoundBrowser& found) const;
    ConnectionStage permissionStage(const Browser& browser) const;
    bool systemManifestIsEqual(const Browser& browser) const;
    bool canTakeBack(const FoundBrowser& found) const;
    void addFound(const Browser& browser, std::vector<FoundBrowser>& all) const;
    Result<void> writeManifest(const Browser& browser, const std::string& path, std::string_view manifest);

    Services services_;
    Places places_;
};

/// Returns the form of the manifest that the browser reads.
ManifestForm manifestForm(const Browser& browser);

} // namespace tabulon
