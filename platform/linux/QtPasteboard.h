// The desktop's clipboard.
#pragma once

#include "platform/Pasteboard.h"

namespace tabulon {

class QtPasteboard : public Pasteboard {
public:
    std::optional<std::string> string() override;
    MimeContent content(std::span<const std::string_view> types) override;
    void setContent(const MimeContent& content) override;
};

} // namespace tabulon
