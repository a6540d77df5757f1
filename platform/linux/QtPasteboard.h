// The desktop's clipboard, and the content of drags.
#pragma once

#include "platform/Pasteboard.h"
#include "platform/linux/X11LinkLists.h"

namespace tabulon {

/// The clipboard of Qt. On X11, lists of links with titles ("text/x-moz-url") bypass Qt in both directions,
/// since it converts them. Requires: the application object. See platform/Pasteboard.h for the contracts.
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
