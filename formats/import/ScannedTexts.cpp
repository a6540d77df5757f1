#include "formats/import/ScannedTexts.h"

#include "text/XmlEntities.h"

#include <simdjson.h>

#include <algorithm>
#include <string>

namespace tabulon {

// Nearly every file is UTF-8 as a whole. One validation then serves all its texts.
ScannedTexts::ScannedTexts(const ScannedBytes& bytes)
    : bytes_(bytes), isUtf8_(simdjson::validate_utf8(bytes.range(0, bytes.size()))) {
    bytes.countExamined(0, bytes.size());
}

Text ScannedTexts::text(std::size_t from, std::size_t to) const {
    bytes_.countExamined(from, to);
    const std::string_view bytes = bytes_.range(from, to);
    return isBorder(from) && isBorder(to) ? textOfXml(bytes) : textOfXmlBytes(bytes);
}

Text ScannedTexts::line(std::size_t from, std::size_t to) const {
    if (bytes_.find('\n', from, to) == ScannedBytes::npos &&
        bytes_.find('\r', from, to) == ScannedBytes::npos)
        return text(from, to);
    std::string line(bytes_.range(from, to));
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::replace(line.begin(), line.end(), '\r', ' ');
    return textOfXmlBytes(line);
}

} // namespace tabulon
