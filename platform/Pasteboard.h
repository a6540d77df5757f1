// The clipboard, and the data of drags between programs, as bytes by media type. window/MimeItems.h converts
// them from and to bookmarks.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tabulon {

/// The same data in several forms: bytes by media type ("text/uri-list"). The form "text/plain" is UTF-8.
class MimeContent {
public:
    /// Sets or replaces a form.
    void set(std::string_view type, std::string bytes) {
        forms_.insert_or_assign(std::string(type), std::move(bytes));
    }
    /// Returns the bytes of a form, or nullptr if there is no such form. Types are compared byte by byte.
    /// Valid until the form is set again, or this object is destroyed.
    const std::string* get(std::string_view type) const {
        const auto found = forms_.find(type);
        return found == forms_.end() ? nullptr : &found->second;
    }
    /// Returns all forms, by media type.
    const std::map<std::string, std::string, std::less<>>& forms() const { return forms_; }

private:
    std::map<std::string, std::string, std::less<>> forms_;
};

/// Called on the main thread. Types are ASCII.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// Returns the text of the clipboard, UTF-8, or `nullopt` if it has no form "text/plain". A list of
    /// addresses in another form is no text. May wait like `content`.
    virtual std::optional<std::string> string() = 0;
    /// Returns the content of the clipboard in those of `types` that it has. May wait some seconds for the
    /// program that owns the clipboard; forms that do not arrive in time are missing.
    virtual MimeContent content(std::span<const std::string_view> types) = 0;
    /// Replaces the content of the clipboard by all forms of `content`, of which a copy is kept.
    virtual void setContent(const MimeContent& content) = 0;

    /// Announces a drag of `content` from this program. The target program may request the content after the
    /// end of the drag, so it is kept until the next drag.
    virtual void dragBegins(const MimeContent& content) = 0;
    /// Returns the content of a drag from another program over a window of this one, in those of `types` that
    /// the toolkit does not return correctly. The caller gets all other forms from the toolkit.
    virtual MimeContent draggedContent(std::span<const std::string_view> types) = 0;
};

} // namespace tabulon
