// Any bytes as a browser's JSON. They are read or refused, both as another parser accepts or refuses them,
// and a tree that was read is a valid document.
#include "formats/import/ChromiumJSON.h"
#include "fuzz/RoundTrip.h"
#include "platform/fake/FakeBaseServices.h"

#include <simdjson.h>

#include <cstdint>

namespace {

// Aborts if the other parser accepts an object that the reader refuses with an error of no domain. Bytes with
// \u escapes are not checked, because the reader refuses unpaired surrogates.
void requireReadable(std::string_view bytes, const tabulon::Error& error) {
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    if (error.domain == tabulon::ErrorDomain::None && bytes.find("\\u") == std::string_view::npos &&
        parser.parse(bytes.data(), bytes.size()).get(object) == simdjson::SUCCESS)
        std::abort();
}

// Aborts if the other parser refuses bytes that the reader accepts, except for large numbers, deep nesting
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
