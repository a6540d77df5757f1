// The arguments that the desktop program was started with: options and files.
#pragma once

#include "platform/SingleInstance.h"

#include <string>
#include <vector>

namespace tabulon {

/// The parsed arguments.
struct LaunchArguments {
    /// What the program is started for.
    enum class Purpose {
        Run,
        Serve, ///< started by the message bus, which sends the request later
        ShowHelp,
        ShowVersion,
        Complain, ///< print `problem` and exit
    };

    Purpose purpose = Purpose::Run;
    /// A sentence on what is wrong with the arguments, UTF-8; empty unless the purpose is Complain.
    std::string problem = {};
    /// "system", "light" or "dark". Of several themes the last one counts.
    std::string theme = "system";
    /// The request of this start: a new document, files as URIs, or neither. Files take precedence over a new
    /// document.
    LaunchRequest request = {};
};

/// Returns the parsed arguments. `arguments` are those after the program's name. Files are paths or URIs in
/// the file system's encoding; a relative path is relative to `workingFolder`, which is empty if there is
/// none. The purpose is Complain for an option or theme that does not exist. Reads no file.
LaunchArguments parseLaunchArguments(const std::vector<std::string>& arguments,
                                     const std::string& workingFolder);

/// Returns the text that "--help" prints, with a line feed at its end. Valid as long as the program runs.
std::string_view launchUsage();

} // namespace tabulon
