// The table of the supported browsers: the names that menus, files and the desktop have for each. Other
// tables refer to it by the identifier.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tabulon {

/// The kinds of browsers by the events with which they show an address.
enum class BrowserFamily {
    Safari,
    Chromium,
    Opera,
    URLSuite, ///< shows an address in a window that a number in the event names
    Generic,  ///< every other application
};

/// The form in which a browser is installed.
enum class BrowserPackaging { Native, Snap, Flatpak };

/// A folder of a browser. The path is relative to the user's home folder, or to the folder for settings of
/// programs if `isInConfig` is true.
struct BrowserFolder {
    BrowserPackaging packaging;
    bool isInConfig;
    std::string_view path;
};

/// One browser. All texts are ASCII and valid as long as the program runs. A browser that does not exist on
/// Linux has none of the names of the desktop.
struct Browser {
    /// The identifier in menus and events, such as "org.mozilla.firefox".
    std::string_view identifier;
    /// The identifier for the code of a bookmark. That of Firefox has another letter case.
    std::string_view codeIdentifier;
    /// The title in menus.
    std::string_view title;
    /// The number in files; see Bookmark::itemBrowser.
    std::int64_t code;
    BrowserFamily family;
    /// The names of the desktop entries without ".desktop", the usual one first.
    std::span<const std::string_view> desktopEntries = {};
    /// The commands that start it, the usual one first.
    std::span<const std::string_view> executables = {};
    /// The file names of its main process, which owns its windows.
    std::span<const std::string_view> processes = {};
    /// The folders that contain its profiles.
    std::span<const BrowserFolder> profileFolders = {};
    /// The folder in which it looks for the user's native-messaging hosts, relative to each folder of
    /// profiles; empty if there is none.
    std::string_view messagingFolder = {};
    /// The folder in which it looks for the native-messaging hosts of all users; empty if it is not known.
    std::string_view systemMessagingFolder = {};
    /// The folder or file of the extension where the package of Tabulon installs it for all users; empty for
    /// a browser that loads no extension of packages.
    std::string_view systemExtension = {};
};

/// Returns the browsers in the order of the "Open With" menu. An index in this list is the position in that
/// menu.
std::span<const Browser> browsers();

/// Returns the browser with this identifier, in either of its spellings, or nullptr.
const Browser* browserWithIdentifier(std::string_view identifier);

/// Returns the browser with this code, or nullptr.
const Browser* browserWithCode(std::int64_t code);

/// Returns the browser with this title, compared without letter case (ASCII), or nullptr.
const Browser* browserWithTitle(std::string_view title);

} // namespace tabulon
