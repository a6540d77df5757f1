#include "formats/import/LinkFileReader.h"

#include "base/Ascii.h"
#include "plist/PropertyList.h"
#include "text/ByteOrderMark.h"

#include <algorithm>
#include <string>

namespace tabulon {
namespace {

constexpr std::string_view kBlank = " \t\r";

std::string_view trimmed(std::string_view text) {
    return ascii::trimmed(text, kBlank);
}

std::optional<LinkFileContent> contentWith(Text url, Text name) {
    if (url.isEmpty())
        return std::nullopt;
    return LinkFileContent{std::move(url), std::move(name)};
}

// The two formats that consist of sections with keys. In shortcuts, the names of sections and keys are
// case-insensitive.
struct Sections {
    enum class Section { None, Shortcut, DesktopEntry, Other };

    Section section = Section::None;
    std::optional<std::string_view> shortcutUrl, entryUrl, name, type;

    void readLine(std::string_view line) {
        line = trimmed(line);
        if (line.starts_with('['))
            return enter(line);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            return;
        const std::string_view key = trimmed(line.substr(0, equals));
        const std::string_view value = trimmed(line.substr(equals + 1));
        if (section == Section::Shortcut && key.size() == 3 && ascii::lowered(key) == "url")
            keep(shortcutUrl, value);
        else if (section == Section::DesktopEntry && key == "URL")
            keep(entryUrl, value);
        else if (section == Section::DesktopEntry && key == "Name")
            keep(name, value);
        else if (section == Section::DesktopEntry && key == "Type")
            keep(type, value);
    }

private:
    void enter(std::string_view line) {
        constexpr std::string_view kShortcut = "[internetshortcut]";
        if (line == "[Desktop Entry]")
            section = Section::DesktopEntry;
        else if (line.size() == kShortcut.size() && ascii::lowered(line) == kShortcut)
            section = Section::Shortcut;
        else
            section = Section::Other;
    }
    static void keep(std::optional<std::string_view>& first, std::string_view value) {
        if (!first)
            first = value;
    }
};

std::optional<LinkFileContent> readSections(std::string_view bytes) {
    bytes = withoutUtf8Mark(bytes);
    Sections sections;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        sections.readLine(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    if (sections.shortcutUrl)
        return contentWith(Text::fromBytes(*sections.shortcutUrl), {});
    if (sections.type != "Link" || !sections.entryUrl)
        return std::nullopt;
    return contentWith(Text::fromBytes(*sections.entryUrl),
                       sections.name ? Text::fromBytes(*sections.name) : Text());
}

} // namespace

std::optional<LinkFileContent> readLinkFile(std::string_view bytes) {
    if (const auto list = PropertyList::open(bytes))
        return contentWith(list->text(list->top(), "URL"), {});
    return readSections(bytes);
}

} // namespace tabulon
