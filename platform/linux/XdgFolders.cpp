#include "platform/linux/XdgFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace tabulon {
namespace {

std::string home() {
    if (const char* variable = std::getenv("HOME"); variable && *variable == '/')
        return variable;
    const passwd* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

// A relative path in the variable counts as none.
std::string baseFolder(const char* variable, const char* fallback) {
    const char* value = std::getenv(variable);
    return value && *value == '/' ? value : home() + "/" + fallback;
}

// What stands between the quotation marks of a line KEY="VALUE", as a shell would take it.
std::string shellValue(std::string_view quoted) {
    std::string value;
    if (quoted.starts_with("$HOME")) {
        value = home();
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

} // namespace

std::string settingsFolder() {
    return baseFolder("XDG_CONFIG_HOME", ".config") + "/tabulon";
}

std::string stateFolder() {
    return baseFolder("XDG_STATE_HOME", ".local/state") + "/tabulon";
}

std::string documentsFolder(FileStore& files) {
    constexpr std::string_view kLine = "XDG_DOCUMENTS_DIR=\"";
    std::string fallback = home() + "/Documents";
    const Result<std::string> list =
        files.readFile(baseFolder("XDG_CONFIG_HOME", ".config") + "/user-dirs.dirs");
    const std::string text = "\n" + list.value_or("");
    const std::size_t line = text.find("\n" + std::string(kLine));
    if (line == std::string::npos)
        return fallback;
    std::string folder = shellValue(std::string_view(text).substr(line + 1 + kLine.size()));
    return folder.starts_with('/') ? folder : fallback;
}

} // namespace tabulon
