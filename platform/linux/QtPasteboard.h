// The desktop's clipboard.
#pragma once

#include "platform/Pasteboard.h"
#include "platform/linux/X11LinkLists.h"

namespace tabulon {

/// Under X11 lists of links with titles go past the toolkit both ways. Requires the application object.
class QtPasteboard : public Pasteboard {
public:
    std::optional<std::string> string() override;
    MimeContent content(std::span<const std::string_view> types) override;
    void setContent(const MimeContent& content) override;
    void dragBegins(const MimeContent& content) override;
    MimeContent draggedContent(std::span<const std::string_view> types) override;

private:
    X11LinkLists linkLists_;
};

} // namespace tabulon
