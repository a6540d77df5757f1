#include "formats/import/ScannedBytes.h"

#include "formats/XmlEntities.h"

#include <simdjson.h>

namespace tabulon {

// Nearly every file is UTF-8 from end to end, which is known at once for all its texts.
ScannedBytes::ScannedBytes(std::string_view bytes)
    : bytes_(bytes), isUtf8_(simdjson::validate_utf8(bytes.data(), bytes.size())) {}

Text ScannedBytes::text(std::size_t from, std::size_t to) const {
    countExamined(from, to);
    return isBorder(from) && isBorder(to) ? textOfXml(range(from, to)) : textOfXmlBytes(range(from, to));
}

} // namespace tabulon
