// Buffered output of listings of any length to standard output.
#pragma once

#include "cli/Session.h"

#include <string>

namespace tabulon::cli {

/// Writes lines to standard output in pieces of about one megabyte.
class Lines {
public:
    /// The session must outlive this object. Lines that are added and not finished are lost.
    explicit Lines(const Session& session) : session_(session) {}

    /// Adds a line. `line` contains no line feed. Returns false after the output has failed; `finish` then
    /// returns the error.
    bool add(const std::string& line);
    /// Adds a line with the JSON of a node without its children, with its path as "path". Returns as `add`.
    /// Requires: the characters of `path` need no escape in JSON; a path of NodePath.h needs none.
    bool addJson(const Bookmark& node, const std::string& path);
    /// Writes the rest. Returns the first error of the output. To be called once, at the end.
    Result<void> finish();

private:
    const Session& session_;
    std::string pending_; ///< lines that are not written yet
    Result<void> done_;   ///< the first error of the output
};

} // namespace tabulon::cli
