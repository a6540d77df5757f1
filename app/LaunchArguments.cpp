#include "app/LaunchArguments.h"

#include "base/Utf8.h"
#include "text/FileUri.h"

namespace tabulon {
namespace {

using Purpose = LaunchArguments::Purpose;

// Returns an absolute path without double slashes and "." components. A ".." stays, because the component
// before it may be a symbolic link.
std::string absolutePath(const std::string& path, const std::string& workingFolder) {
    const std::string whole = path.starts_with('/') ? path : workingFolder + "/" + path;
    std::string result;
    for (std::size_t begin = 0; begin < whole.size();) {
        const std::size_t end = std::min(whole.find('/', begin), whole.size());
        const std::string_view part = std::string_view(whole).substr(begin, end - begin);
        if (!part.empty() && part != ".")
            result.append("/").append(part);
        begin = end + 1;
    }
    return result.empty() ? "/" : result;
}

std::string uriOf(const std::string& argument, const std::string& workingFolder) {
    return looksLikeUri(argument) ? argument : fileUri(absolutePath(argument, workingFolder));
}

LaunchArguments complaint(const char* what, const std::string& argument) {
    LaunchArguments result;
    result.purpose = Purpose::Complain;
    result.problem = std::string(what) + " “" + decodeUtf8Leniently(argument) + "”.";
    return result;
}

} // namespace

LaunchArguments parseLaunchArguments(const std::vector<std::string>& arguments,
                                     const std::string& workingFolder) {
    constexpr std::string_view kThemeIs = "--theme=";
    LaunchArguments result;
    bool optionsEnded = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (optionsEnded || !argument->starts_with('-'))
            result.request.uris.push_back(uriOf(*argument, workingFolder));
        else if (*argument == "--")
            optionsEnded = true;
        else if (*argument == "--help" || *argument == "-h")
            return {.purpose = Purpose::ShowHelp};
        else if (*argument == "--version")
            return {.purpose = Purpose::ShowVersion};
        else if (*argument == "--new-document")
            result.request.kind = LaunchRequest::Kind::NewDocument;
        else if (*argument == "--dbus-service")
            result.purpose = Purpose::Serve;
        else if (argument->starts_with(kThemeIs))
            result.theme = argument->substr(kThemeIs.size());
        else if (*argument == "--theme" && argument + 1 == arguments.end())
            return complaint("The name of a theme has to follow", *argument);
        else if (*argument == "--theme")
            result.theme = *++argument;
        else
            return complaint("There is no option", *argument);
    }
    if (result.theme != "system" && result.theme != "light" && result.theme != "dark")
        return complaint("There is no theme", result.theme);
    if (!result.request.uris.empty())
        result.request.kind = LaunchRequest::Kind::Open;
    return result;
}

std::string_view launchUsage() {
    return "Usage: tabulon [OPTIONS] [FILE...]\n\n"
           "Opens bookmark documents and bookmark files in HTML, each in a window of its own. If Tabulon is\n"
           "running already, it opens them there.\n\n"
           "  --new-document   open a new, empty document\n"
           "  --theme NAME     system (the desktop's, which is the default), light or dark; where Tabulon\n"
           "                   is running already, its windows keep the theme they have\n"
           "  --version        print the version and end\n"
           "  --help           print this text and end\n";
}

} // namespace tabulon
