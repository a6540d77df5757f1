#include "base/Browsers.h"

#include "base/Ascii.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

constexpr auto kNative = BrowserPackaging::Native;
constexpr auto kSnap = BrowserPackaging::Snap;
constexpr auto kFlatpak = BrowserPackaging::Flatpak;

constexpr BrowserFolder inConfig(std::string_view path) {
    return {kNative, true, path};
}
constexpr BrowserFolder inSnap(std::string_view path) {
    return {kSnap, false, path};
}
constexpr BrowserFolder inFlatpak(std::string_view path) {
    return {kFlatpak, false, path};
}

// The folders of native-messaging hosts, relative to a folder of profiles.
constexpr std::string_view kInProfiles = "NativeMessagingHosts";
constexpr std::string_view kBesideProfiles = "../native-messaging-hosts";

constexpr std::string_view kChromeEntries[] = {"google-chrome", "com.google.Chrome"};
constexpr std::string_view kChromeExecutables[] = {"google-chrome-stable", "google-chrome"};
constexpr std::string_view kChromeProcesses[] = {"chrome"};
constexpr BrowserFolder kChromeProfiles[] = {inConfig("google-chrome"),
                                             inFlatpak(".var/app/com.google.Chrome/config/google-chrome")};

constexpr std::string_view kChromiumEntries[] = {"chromium", "chromium-browser", "chromium_chromium",
                                                 "org.chromium.Chromium"};
constexpr std::string_view kChromiumExecutables[] = {"chromium", "chromium-browser"};
constexpr std::string_view kChromiumProcesses[] = {"chromium", "chromium-browser"};
constexpr BrowserFolder kChromiumProfiles[] = {inConfig("chromium"), inSnap("snap/chromium/common/chromium"),
                                               inFlatpak(".var/app/org.chromium.Chromium/config/chromium")};

constexpr std::string_view kOperaEntries[] = {"opera", "opera_opera", "com.opera.Opera"};
constexpr std::string_view kOperaExecutables[] = {"opera"};
constexpr std::string_view kOperaProcesses[] = {"opera"};
constexpr BrowserFolder kOperaProfiles[] = {inConfig("opera"), inSnap("snap/opera/current/.config/opera"),
                                            inFlatpak(".var/app/com.opera.Opera/config/opera")};

constexpr std::string_view kFirefoxEntries[] = {"firefox", "firefox-esr", "firefox_firefox",
                                                "org.mozilla.firefox"};
constexpr std::string_view kFirefoxExecutables[] = {"firefox", "firefox-esr"};
constexpr std::string_view kFirefoxProcesses[] = {"firefox", "firefox-esr", "firefox-bin"};
constexpr BrowserFolder kFirefoxProfiles[] = {inConfig("mozilla/firefox"),
                                              {kNative, false, ".mozilla/firefox"},
                                              inSnap("snap/firefox/common/.mozilla/firefox"),
                                              inFlatpak(".var/app/org.mozilla.firefox/.mozilla/firefox")};

constexpr std::string_view kVivaldiEntries[] = {"vivaldi-stable", "vivaldi", "com.vivaldi.Vivaldi"};
constexpr std::string_view kVivaldiExecutables[] = {"vivaldi-stable", "vivaldi"};
constexpr std::string_view kVivaldiProcesses[] = {"vivaldi-bin"};
constexpr BrowserFolder kVivaldiProfiles[] = {inConfig("vivaldi"),
                                              inFlatpak(".var/app/com.vivaldi.Vivaldi/config/vivaldi")};

constexpr std::string_view kBraveEntries[] = {"brave-browser", "brave_brave", "com.brave.Browser"};
constexpr std::string_view kBraveExecutables[] = {"brave-browser", "brave-browser-stable", "brave"};
constexpr std::string_view kBraveProcesses[] = {"brave"};
constexpr BrowserFolder kBraveProfiles[] = {
    inConfig("BraveSoftware/Brave-Browser"), inSnap("snap/brave/current/.config/BraveSoftware/Brave-Browser"),
    inFlatpak(".var/app/com.brave.Browser/config/BraveSoftware/Brave-Browser")};

constexpr std::string_view kEdgeEntries[] = {"microsoft-edge", "com.microsoft.Edge"};
constexpr std::string_view kEdgeExecutables[] = {"microsoft-edge-stable", "microsoft-edge"};
constexpr std::string_view kEdgeProcesses[] = {"msedge"};
constexpr BrowserFolder kEdgeProfiles[] = {inConfig("microsoft-edge"),
                                           inFlatpak(".var/app/com.microsoft.Edge/config/microsoft-edge")};

constexpr auto kBrowsers = std::to_array<Browser>({
    {.identifier = "com.apple.Safari",
     .codeIdentifier = "com.apple.Safari",
     .title = "Safari",
     .code = 10,
     .family = BrowserFamily::Safari},
    {.identifier = "com.google.Chrome",
     .codeIdentifier = "com.google.Chrome",
     .title = "Chrome",
     .code = 15,
     .family = BrowserFamily::Chromium,
     .desktopEntries = kChromeEntries,
     .executables = kChromeExecutables,
     .processes = kChromeProcesses,
     .profileFolders = kChromeProfiles,
     .messagingFolder = kInProfiles},
    {.identifier = "org.chromium.Chromium",
     .codeIdentifier = "org.chromium.Chromium",
     .title = "Chromium",
     .code = 16,
     .family = BrowserFamily::Chromium,
     .desktopEntries = kChromiumEntries,
     .executables = kChromiumExecutables,
     .processes = kChromiumProcesses,
     .profileFolders = kChromiumProfiles,
     .messagingFolder = kInProfiles},
    {.identifier = "com.operasoftware.Opera",
     .codeIdentifier = "com.operasoftware.Opera",
     .title = "Opera",
     .code = 5,
     .family = BrowserFamily::Opera,
     .desktopEntries = kOperaEntries,
     .executables = kOperaExecutables,
     .processes = kOperaProcesses,
     .profileFolders = kOperaProfiles,
     .messagingFolder = kInProfiles},
    {.identifier = "org.mozilla.firefox",
     .codeIdentifier = "org.mozilla.Firefox",
     .title = "Firefox",
     .code = 11,
     .family = BrowserFamily::URLSuite,
     .desktopEntries = kFirefoxEntries,
     .executables = kFirefoxExecutables,
     .processes = kFirefoxProcesses,
     .profileFolders = kFirefoxProfiles,
     .messagingFolder = kBesideProfiles},
    {.identifier = "de.icab.iCab",
     .codeIdentifier = "de.icab.iCab",
     .title = "iCab",
     .code = 6,
     .family = BrowserFamily::URLSuite},
    {.identifier = "com.vivaldi.Vivaldi",
     .codeIdentifier = "com.vivaldi.Vivaldi",
     .title = "Vivaldi",
     .code = 17,
     .family = BrowserFamily::Chromium,
     .desktopEntries = kVivaldiEntries,
     .executables = kVivaldiExecutables,
     .processes = kVivaldiProcesses,
     .profileFolders = kVivaldiProfiles,
     .messagingFolder = kInProfiles},
    {.identifier = "com.brave.Browser",
     .codeIdentifier = "com.brave.Browser",
     .title = "Brave",
     .code = 18,
     .family = BrowserFamily::Chromium,
     .desktopEntries = kBraveEntries,
     .executables = kBraveExecutables,
     .processes = kBraveProcesses,
     .profileFolders = kBraveProfiles,
     .messagingFolder = kInProfiles},
    {.identifier = "com.microsoft.edgemac",
     .codeIdentifier = "com.microsoft.edgemac",
     .title = "Edge",
     .code = 19,
     .family = BrowserFamily::Chromium,
     .desktopEntries = kEdgeEntries,
     .executables = kEdgeExecutables,
     .processes = kEdgeProcesses,
     .profileFolders = kEdgeProfiles,
     .messagingFolder = kInProfiles},
});

template <class Matches>
const Browser* firstBrowser(Matches matches) {
    const auto* const found = std::ranges::find_if(kBrowsers, matches);
    return found == kBrowsers.end() ? nullptr : &*found;
}

} // namespace

std::span<const Browser> browsers() {
    return kBrowsers;
}

const Browser* browserWithIdentifier(std::string_view identifier) {
    return firstBrowser([&](const Browser& browser) {
        return browser.identifier == identifier || browser.codeIdentifier == identifier;
    });
}

const Browser* browserWithCode(std::int64_t code) {
    return firstBrowser([&](const Browser& browser) { return browser.code == code; });
}

const Browser* browserWithTitle(std::string_view title) {
    return firstBrowser(
        [&](const Browser& browser) { return ascii::equalsIgnoringCase(browser.title, title); });
}

} // namespace tabulon
