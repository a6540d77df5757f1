// The desktop's clipboard, and the content of drags.
#pragma once

#include "platform/Pasteboard.h"
#include "platform/linux/X11LinkLists.h"

namespace tabulon {

/// The clipboard of Qt. On X11, lists of links with titles ("text/x-moz-url") bypass Qt in both directions,
/// since it converts them. Requires: the application object. See platform/Pasteboard.h for the contracts.
class QtPasteboard : public Pasteboard {
public:
    /// Returns the text on the clipboard, UTF-8, or `nullopt` where it has no "text/plain".
    std::optional<std::string> string() override;
    /// Returns the content of those `types` that are on the clipboard. A program that does not answer delays
    /// each request, so none is sent after four seconds.
    MimeContent content(std::span<const std::string_view> types) override;
    /// Replaces the content of the clipboard.
    void setContent(const MimeContent& content) override;
    /// Sets the list of links that other X11 programs receive in the drag that begins.
    void dragBegins(const MimeContent& content) override;
    /// Returns the list of links in the drag of another X11 program if `types` contain its type. Returns no
    /// content on other displays.
    MimeContent draggedContent(std::span<const std::string_view> types) override;

private:
    X11LinkLists linkLists_;
};

} // namespace tabulon
