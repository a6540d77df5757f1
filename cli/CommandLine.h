// The command-line tool: what it was asked for, and the verbs that do it. One file per verb; none prints by
// itself.
#pragma once

#include "base/Clock.h"
#include "base/SystemLog.h"
#include "platform/FileStore.h"

#include <functional>
#include <string>
#include <vector>

namespace tabulon::cli {

/// What the tool touches of the world outside. References must live through the run.
struct Environment {
    FileStore& files;
    Clock& clock;
    SystemLog& log;
    /// The name of the locale that holds when the command line names none, such as "de_DE.UTF-8".
    std::string locale;
    /// Where the desktop program keeps its own files, such as versions of documents.
    std::string stateFolder;
    std::function<Result<std::string>()> readStandardInput;
    std::function<Result<void>(std::string_view)> writeStandardOutput;
    std::function<void(std::string_view)> writeStandardError;
};

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

/// Runs the tool with the arguments after the program's name and gives its exit status. A command that fails
/// writes one line to standard error and no output.
int run(const std::vector<std::string>& arguments, const Environment& environment);

} // namespace tabulon::cli
