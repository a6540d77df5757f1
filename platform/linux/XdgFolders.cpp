#include "platform/linux/XdgFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace tabulon {
namespace {

// A relative path in the variable is ignored, as the rules for these variables require.
std::string baseFolder(const char* variable, const char* fallback) {
    const char* value = std::getenv(variable);
    return value && *value == '/' ? value : homeFolder() + "/" + fallback;
}

// Returns the text between the quotation marks of a line KEY="VALUE", with the shell's escapes.
std::string shellValue(std::string_view quoted) {
    std::string value;
    if (quoted.starts_with("$HOME")) {
        value = homeFolder();
        quoted.remove_prefix(5);
    }
    for (std::size_t i = 0; i < quoted.size() && quoted[i] != '"'; ++i) {
        if (quoted[i] == '\\' && i + 1 < quoted.size())
            ++i;
        value += quoted[i];
    }
    while (value.size() > 1 && value.ends_with('/'))
        value.pop_back();
    return value;
}

// Returns a folder from the desktop's list, else `fallback` in the home folder.
std::string userFolder(FileStore& files, const std::string& key, std::string_view fallback) {
    const std::string start = "\n" + key + "=\"";
    const Result<std::string> list = files.readFile(configFolder() + "/user-dirs.dirs");
    const std::string text = "\n" + list.value_or("");
    if (const std::size_t line = text.find(start); line != std::string::npos) {
        std::string folder = shellValue(std::string_view(text).substr(line + start.size()));
        if (folder.starts_with('/'))
            return folder;
    }
    return homeFolder() + "/" + std::string(fallback);
}

} // namespace

std::string homeFolder() {
    if (const char* variable = std::getenv("HOME"); variable && *variable == '/')
        return variable;
    const passwd* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

std::string configFolder() {
    return baseFolder("XDG_CONFIG_HOME", ".config");
}

std::string settingsFolder() {
    return configFolder() + "/tabulon";
}

std::string stateFolder() {
    return baseFolder("XDG_STATE_HOME", ".local/state") + "/tabulon";
}

std::string runtimeFolder() {
    const char* variable = std::getenv("XDG_RUNTIME_DIR");
    return variable && *variable == '/' ? variable : "/run/user/" + std::to_string(::getuid());
}

std::string documentsFolder(FileStore& files) {
    return userFolder(files, "XDG_DOCUMENTS_DIR", "Documents");
}

std::string downloadsFolder(FileStore& files) {
    return userFolder(files, "XDG_DOWNLOAD_DIR", "Downloads");
}

} // namespace tabulon
