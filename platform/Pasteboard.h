// What is copied and dragged between programs, in the forms that the desktop knows, and the clipboard that
// keeps it. What the forms mean is in window/MimeItems.h.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tabulon {

/// One thing in several forms: bytes by media type ("text/uri-list"). Texts in "text/plain" are UTF-8.
class MimeContent {
public:
    void set(std::string_view type, std::string bytes) {
        forms_.insert_or_assign(std::string(type), std::move(bytes));
    }
    /// Null where there is no such form.
    const std::string* get(std::string_view type) const {
        const auto found = forms_.find(type);
        return found == forms_.end() ? nullptr : &found->second;
    }
    const std::map<std::string, std::string, std::less<>>& forms() const { return forms_; }

private:
    std::map<std::string, std::string, std::less<>> forms_;
};

class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// The general pasteboard's text, UTF-8; nothing when it holds none. A list of addresses is no text.
    virtual std::optional<std::string> string() = 0;
    /// What it holds, in those of these forms that it has.
    virtual MimeContent content(std::span<const std::string_view> types) = 0;
    virtual void setContent(const MimeContent& content) = 0;

    /// A drag of `content` begins in this program. The program that it is dropped on may fetch it after the
    /// drag has ended.
    virtual void dragBegins(const MimeContent& content) = 0;
    /// What the drag of another program over this one carries, in those of these forms that the toolkit does
    /// not hand on as they are; for all others the toolkit is to be asked.
    virtual MimeContent draggedContent(std::span<const std::string_view> types) = 0;
};

} // namespace tabulon
