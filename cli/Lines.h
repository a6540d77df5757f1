// Long listings on their way to standard output: nothing is gathered beyond a piece of it.
#pragma once

#include "cli/Verbs.h"

#include <string>

namespace tabulon::cli {

class Lines {
public:
    /// The session must live longer.
    explicit Lines(const Session& session) : session_(session) {}

    /// Adds a line, which has no line feed. False once the output can take no more; then `finish` tells why.
    bool add(const std::string& line);
    /// Adds the JSON of a node without its children, with its path.
    bool addJson(const Bookmark& node, const std::string& path);
    /// To be called once, at the end.
    Result<void> finish();

private:
    const Session& session_;
    std::string pending_;
    Result<void> done_;
};

} // namespace tabulon::cli
