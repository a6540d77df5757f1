// The desktop's clipboard.
#pragma once

#include "platform/Pasteboard.h"

namespace tabulon {

class QtPasteboard : public Pasteboard {
public:
    std::optional<std::string> string() override;
};

} // namespace tabulon
