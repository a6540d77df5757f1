// What the user has copied, in whatever program.
#pragma once

#include <optional>
#include <string>

namespace tabulon {

class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// The general pasteboard's text, UTF-8; nothing when it holds none.
    virtual std::optional<std::string> string() = 0;
};

} // namespace tabulon
