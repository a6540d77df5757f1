// Any bytes as a browser's JSON: they are read or refused, the same as sound or damaged as another parser
// finds them, and what was read is a sound document.
#include "formats/import/ChromiumJSON.h"
#include "fuzz/RoundTrip.h"
#include "platform/fake/FakeBaseServices.h"

#include <simdjson.h>

#include <cstdint>

namespace {

// Wherever the other parser has a tree of an object, there is one here too; half surrogate pairs are refused
// here alone.
void requireReadable(std::string_view bytes, const tabulon::Error& error) {
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    if (error.domain == tabulon::ErrorDomain::None && bytes.find("\\u") == std::string_view::npos &&
        parser.parse(bytes.data(), bytes.size()).get(object) == simdjson::SUCCESS)
        std::abort();
}

// What is accepted is a tree to the other parser too, but for numbers and depths that are too large for it
// and the byte-order mark.
void requireSound(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    simdjson::dom::parser parser;
    const simdjson::error_code error = parser.parse(bytes.data(), bytes.size()).error();
    if (error && error != simdjson::NUMBER_ERROR && error != simdjson::DEPTH_ERROR)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tabulon::FakeBaseServices fake;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const auto read : {tabulon::readChromiumBookmarks, tabulon::readOperaBookmarks}) {
        const auto master = read(bytes, {fake.services()});
        if (master) {
            tabulon::requireRoundTrip(**master);
            requireSound(bytes);
        } else {
            requireReadable(bytes, master.error());
        }
    }
    return 0;
}
