// One-line diagnostics for whoever maintains the machine. Nothing that the user must see goes here.
#pragma once

#include <string_view>

namespace tabulon {

class SystemLog {
public:
    virtual ~SystemLog() = default;

    /// Writes one line, UTF-8, without a line feed at its end.
    virtual void log(std::string_view line) = 0;
};

} // namespace tabulon
