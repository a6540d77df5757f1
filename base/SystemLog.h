// One-line diagnostics for the administrator of the computer. Messages for the user are alerts, not log
// lines.
#pragma once

#include <string_view>

namespace tabulon {

class SystemLog {
public:
    virtual ~SystemLog() = default;

    /// Writes one line, UTF-8, and adds the line feed. Cannot fail for the caller.
    virtual void log(std::string_view line) = 0;
};

} // namespace tabulon
