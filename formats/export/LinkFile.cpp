#include "formats/export/LinkFile.h"

#include "text/XmlEntities.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr std::string_view kBeginning = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                        "<plist version=\"1.0\">\n"
                                        "<dict>\n"
                                        "\t<key>URL</key>\n"
                                        "\t<string>";
constexpr std::string_view kEnd = "</string>\n"
                                  "</dict>\n"
                                  "</plist>\n";

// Returns false for text that no XML document can contain: control characters but tab, line feed and carriage
// return, and the code points U+FFFE and U+FFFF.
bool fitsIntoXml(std::string_view utf8) {
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
    };
    return std::ranges::none_of(utf8, isControl) && utf8.find("\xEF\xBF\xBE") == utf8.npos &&
           utf8.find("\xEF\xBF\xBF") == utf8.npos;
}

} // namespace

std::string_view linkFileExtension(const Bookmark& link) {
    switch (link.getType()) {
    case kMailType:
        return "mailloc";
    case kFTPType:
        return "ftploc";
    default:
        return "webloc";
    }
}

Result<std::string> exportToLinkFile(const Bookmark& link) {
    const std::string_view url = link.itemURL().view();
    if (url.empty())
        return failure("There is no URL to write: it is a folder, a separator or a bookmark without one.");
    if (!fitsIntoXml(url))
        return failure("The URL has control characters, which a link file cannot hold.");
    std::string text(kBeginning);
    // Written as itself, a carriage return is read back as a line feed.
    for (std::size_t at = 0; at < url.size();) {
        const std::string_view line = url.substr(at, url.find('\r', at) - at);
        appendXmlEscaped(text, line);
        at += line.size();
        if (at < url.size()) {
            text += "&#13;";
            ++at;
        }
    }
    return text.append(kEnd);
}

} // namespace tabulon
