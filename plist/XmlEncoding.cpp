#include "plist/XmlEncoding.h"

#include "base/Ascii.h"
#include "text/ByteOrderMark.h"
#include "text/EncodingConversion.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tabulon {
namespace {

constexpr std::size_t kMostConvertedBytes = std::size_t{1} << 30;

// Returns the encoding in the XML declaration of a file whose encoding contains ASCII; empty if there is
// none.
std::string declaredEncoding(std::string_view xml) {
    constexpr std::string_view kKey = "encoding";
    if (!xml.starts_with("<?xml"))
        return {};
    const std::string_view declaration = xml.substr(0, xml.find("?>"));
    std::size_t at = declaration.find(kKey);
    if (at == std::string_view::npos)
        return {};
    at = declaration.find_first_not_of(" \t\r\n=", at + kKey.size());
    if (at == std::string_view::npos || (declaration[at] != '"' && declaration[at] != '\''))
        return {};
    const std::size_t end = declaration.find(declaration[at], at + 1);
    return end == std::string_view::npos ? std::string()
                                         : std::string(declaration.substr(at + 1, end - at - 1));
}

// Returns true for the encodings that the parser knows. For those of Unicode it goes by the bytes of the
// file, not by the name.
bool parserReads(const std::string& encoding) {
    static constexpr std::array<std::string_view, 7> kNames = {"utf-8", "utf-16",     "utf-32", "us-ascii",
                                                               "ascii", "iso-8859-1", "latin1"};
    const std::string lower = ascii::lowered(encoding);
    return lower.empty() || lower.starts_with("utf-16") || std::ranges::count(kNames, lower) > 0;
}

} // namespace

bool refersToZero(std::string_view xml) {
    for (std::size_t at = xml.find("&#"); at != std::string_view::npos; at = xml.find("&#", at + 2)) {
        std::size_t digit = at + 2;
        if (digit < xml.size() && (xml[digit] == 'x' || xml[digit] == 'X'))
            ++digit;
        const std::size_t end = xml.find_first_not_of('0', digit);
        if (end != std::string_view::npos && end > digit && xml[end] == ';')
            return true;
    }
    return false;
}

Result<std::string> xmlForParser(std::string_view xml) {
    const std::string encoding = declaredEncoding(xml);
    if (parserReads(encoding))
        return std::string(xml);
    if (xml.size() > kMostConvertedBytes)
        return failure("The file is too large to be read in the encoding " + encoding + ".");
    const std::optional<std::string> text = utf8FromEncoding(xml, encoding);
    if (!text)
        return failure("The file is XML in an encoding that this program does not know: " + encoding + ".");
    return std::string(bytesOf(ByteOrderMark::Utf8)) + *text;
}

} // namespace tabulon
