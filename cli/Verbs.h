// The verbs of the command-line tool and what they share: services of one run, inputs and outputs.
#pragma once

#include "cli/CommandLine.h"
#include "model/Document.h"
#include "platform/BaseServices.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::cli {

/// One run: the services that the verbs hand on, and where files and streams are.
struct Session {
    const Environment& environment;
    BaseServices services;

    /// The bytes of a file, or of standard input for "-".
    Result<std::string> read(const std::string& path) const;
    /// Replaces the file atomically, or writes to standard output for "-".
    Result<void> write(const std::string& path, std::string_view bytes) const;
    /// The document in a file or on standard input.
    Result<std::unique_ptr<Document>> readDocument(const std::string& path) const;
};

/// Requires the name of an import or export format.
Result<void> importFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output);
Result<void> exportFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output);

Result<void> showForPeople(const Session& session, const std::string& input);
Result<void> showAsJson(const Session& session, const std::string& input);

Result<void> makeFromJson(const Session& session, const std::string& input, const std::string& output);

/// Requires a node path.
Result<void> exportLink(const Session& session, const std::string& input, const std::string& path,
                        const std::string& output);

/// True for child indexes from the root on, joined by "/" (0/3/1), and for the empty path of the root itself.
bool isNodePath(std::string_view text);

} // namespace tabulon::cli
