// The command-line tool: its environment and its entry. Each verb has a file of its own; only the streams of
// the environment are written.
#pragma once

#include "base/Clock.h"
#include "base/SystemLog.h"
#include "platform/EventSender.h"
#include "platform/FileStore.h"
#include "platform/Workspace.h"

#include <functional>
#include <string>
#include <vector>

namespace tabulon::cli {

/// The services of the desktop that opening a bookmark needs.
class OpeningDesktop {
public:
    virtual ~OpeningDesktop() = default;

    /// The references of the three functions are valid as long as this object, which owns what they refer to.
    virtual Workspace& workspace() = 0;
    virtual EventSender& events() = 0;
    virtual AutomationPermission& permission() = 0;
    /// Starts the programs that were asked for. Fails with a sentence if one could not be started. Called
    /// once, after the bookmarks were opened. The other services may delay every start until then.
    virtual Result<void> startPrograms() = 0;
};

/// The services and streams that the tool uses. Objects referred to are not owned and must outlive the run.
struct Environment {
    /// Reads and writes the files that the command line names, and reads the stored versions.
    FileStore& files;
    /// The present time for dates that a command sets, and the time zone of dates that it prints.
    Clock& clock;
    /// Receives diagnostics. Failures of a command are written to standard error instead.
    SystemLog& log;
    /// The name of the locale that is used unless the command line names one, such as "de_DE.UTF-8".
    std::string locale;
    /// The absolute path of the folder for the desktop program's own files, such as versions of documents.
    std::string stateFolder;
    /// Returns all bytes of standard input. Fails with a sentence if it cannot be read.
    std::function<Result<std::string>()> readStandardInput;
    /// Writes all bytes to standard output. Fails with a sentence if they cannot be written. A command may
    /// call it several times.
    std::function<Result<void>(std::string_view)> writeStandardOutput;
    /// Writes text to standard error. It may wait for its reader. The text is UTF-8, with its line feeds. The
    /// caller does not learn of a failure.
    std::function<void(std::string_view)> writeStandardError;
    /// The desktop, or nullptr in a tool that was built without one.
    OpeningDesktop* desktop = nullptr;
};

/// The exit statuses.
inline constexpr int kDone = 0;       ///< the command, or the help, has succeeded
inline constexpr int kFailed = 1;     ///< the command failed; one line on standard error says why
inline constexpr int kWrongUsage = 2; ///< the arguments are wrong; no command was performed

/// Runs the tool and returns its exit status. `arguments` are those after the program's name. A command that
/// fails writes one line to standard error. It writes no output, except where writing fails. The settings of
/// `--default` apply to this run only and are not stored. A lack of memory is such a failure.
int run(const std::vector<std::string>& arguments, const Environment& environment);

} // namespace tabulon::cli
