// What the desktop program was started with: options and files.
#pragma once

#include "platform/SingleInstance.h"

#include <string>
#include <vector>

namespace tabulon {

struct LaunchArguments {
    enum class Purpose {
        Run,
        Serve, ///< started by the message bus: what to do comes as a message
        ShowHelp,
        ShowVersion,
        Complain, ///< about `problem`
    };

    Purpose purpose = Purpose::Run;
    /// A sentence that tells what is wrong with the arguments.
    std::string problem = {};
    /// As it was given.
    std::string theme = "system";
    /// What this start asks for: new document, files, or neither.
    LaunchRequest request = {};
};

/// `arguments` are those after the program's name; relative paths begin at `workingFolder`, which is empty
/// when there is none. Files are named by paths or URIs.
LaunchArguments parseLaunchArguments(const std::vector<std::string>& arguments,
                                     const std::string& workingFolder);

/// The text of --help.
std::string_view launchUsage();

} // namespace tabulon
