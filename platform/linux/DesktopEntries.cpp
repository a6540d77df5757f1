#include "platform/linux/DesktopEntries.h"

#include "base/Browsers.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <algorithm>
#include <memory>

namespace tabulon {
namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
struct Free {
    void operator()(void* memory) const { g_free(memory); }
};
struct FreeWords {
    void operator()(char** words) const { g_strfreev(words); }
};
using AppInfo = std::unique_ptr<GAppInfo, Unref>;

constexpr std::string_view kEntrySuffix = ".desktop";

// Returns the first name of a themed icon, the path of a file icon, or an empty string.
std::string iconOf(GAppInfo* application) {
    GIcon* icon = g_app_info_get_icon(application);
    if (!icon)
        return {};
    if (G_IS_THEMED_ICON(icon)) {
        const char* const* names = g_themed_icon_get_names(G_THEMED_ICON(icon));
        return names && names[0] ? names[0] : "";
    }
    if (!G_IS_FILE_ICON(icon))
        return {};
    const std::unique_ptr<char, Free> path(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))));
    return path ? path.get() : "";
}

// Returns the name of the entry without its suffix.
std::string entryName(GAppInfo* application) {
    const char* id = g_app_info_get_id(application);
    std::string name = id ? id : "";
    if (name.ends_with(kEntrySuffix))
        name.resize(name.size() - kEntrySuffix.size());
    return name;
}

std::string identifierOf(const std::string& entry) {
    for (const Browser& browser : browsers())
        if (std::ranges::find(browser.desktopEntries, entry) != browser.desktopEntries.end())
            return std::string(browser.identifier);
    return entry;
}

// A field code of an Exec line, such as "%u", or one of the marks that flatpak puts around addresses.
bool isPlaceholder(const std::string& word) {
    return (word.size() == 2 && word[0] == '%' && word[1] != '%') || word.starts_with("@@");
}

// Returns an empty list for a command that cannot be parsed.
std::vector<std::string> wordsOf(const char* commandLine) {
    char** words = nullptr;
    int count = 0;
    if (!commandLine || !g_shell_parse_argv(commandLine, &count, &words, nullptr))
        return {};
    const std::unique_ptr<char*, FreeWords> owned(words);
    return {words, words + count};
}

std::optional<InstalledApplication> applicationOf(GAppInfo* info) {
    std::vector<std::string> words = wordsOf(g_app_info_get_commandline(info));
    const bool takesMany = std::ranges::count_if(words, [](const std::string& word) {
                               return word == "%U" || word == "%F";
                           }) > 0;
    std::erase_if(words, isPlaceholder);
    if (words.empty())
        return std::nullopt;
    const std::string identifier = identifierOf(entryName(info));
    return InstalledApplication{.identifier = identifier,
                                .shown = {.name = g_app_info_get_display_name(info), .icon = iconOf(info)},
                                .command = std::move(words),
                                // Browsers take several, whatever their entries say.
                                .takesManyAddresses = takesMany || browserWithIdentifier(identifier)};
}

std::optional<InstalledApplication> applicationOfEntry(std::string_view entry) {
    const std::string name = std::string(entry) + std::string(kEntrySuffix);
    const std::unique_ptr<GDesktopAppInfo, Unref> info(g_desktop_app_info_new(name.c_str()));
    return info ? applicationOf(G_APP_INFO(info.get())) : std::nullopt;
}

} // namespace

std::optional<InstalledApplication> installedApplication(std::string_view identifier) {
    const Browser* browser = browserWithIdentifier(identifier);
    if (!browser)
        return applicationOfEntry(identifier);
    for (const std::string_view entry : browser->desktopEntries)
        if (auto application = applicationOfEntry(entry))
            return application;
    for (const std::string_view executable : browser->executables)
        if (const std::unique_ptr<char, Free> path(g_find_program_in_path(std::string(executable).c_str()));
            path)
            return InstalledApplication{.identifier = std::string(browser->identifier),
                                        .shown = {.name = std::string(browser->title), .icon = {}},
                                        .command = {path.get()},
                                        .takesManyAddresses = true};
    return std::nullopt;
}

std::optional<InstalledApplication> applicationForScheme(const std::string& scheme) {
    const AppInfo info(g_app_info_get_default_for_uri_scheme(scheme.c_str()));
    return info ? applicationOf(info.get()) : std::nullopt;
}

} // namespace tabulon
