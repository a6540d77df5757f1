#include "formats/import/TextDecoding.h"

#include "base/Utf8.h"
#include "formats/import/EncodingNames.h"
#include "text/ByteOrderMark.h"
#include "text/EncodingConversion.h"

#include <uchardet.h>

#include <memory>
#include <optional>

namespace tabulon {
namespace {

constexpr const char* kLastResort = "windows-1252";

// A name that ICU does not know counts as UTF-8.
std::string converted(std::string_view bytes, const std::string& encoding) {
    std::optional<std::string> text = utf8FromEncoding(bytes, encoding);
    return text ? *std::move(text) : decodeUtf8Leniently(bytes);
}

DecodedText decodedAs(std::string_view bytes, std::string_view encoding) {
    if (encoding.empty())
        return {decodeUtf8Leniently(bytes), {}};
    return {converted(bytes, std::string(encoding)), std::string(encoding)};
}

struct CloseDetector {
    void operator()(uchardet_t detector) const { uchardet_delete(detector); }
};

// Returns ICU's name of the encoding that is detected from the bytes. The beginning of a long text is
// sufficient.
std::string detectedEncoding(std::string_view bytes) {
    constexpr std::size_t kEnough = std::size_t{1} << 20;
    const std::unique_ptr<uchardet, CloseDetector> detector(uchardet_new());
    const std::string_view some = bytes.substr(0, kEnough);
    if (uchardet_handle_data(detector.get(), some.data(), some.size()) != 0)
        return kLastResort;
    uchardet_data_end(detector.get());
    const auto converter = converterForLabel(uchardet_get_charset(detector.get()));
    // The bytes are not UTF-8, which was checked before.
    return converter && !converter->empty() ? std::string(*converter) : kLastResort;
}

} // namespace

DecodedText decodeText(std::string_view bytes, TextKind kind) {
    const ByteOrderMark mark = byteOrderMarkOf(bytes);
    const std::string_view marked = bytes.substr(bytesOf(mark).size());
    switch (mark) {
    case ByteOrderMark::Utf8:
        return decodedAs(marked, "");
    case ByteOrderMark::Utf16LittleEndian:
        return {converted(marked, "UTF-16LE"), {}};
    case ByteOrderMark::Utf16BigEndian:
        return {converted(marked, "UTF-16BE"), {}};
    case ByteOrderMark::None:
        break;
    }
    if (kind == TextKind::Html)
        if (const DeclaredEncoding declared = declaredEncoding(bytes); declared.found)
            return decodedAs(bytes, declared.converter);
    if (isValidUtf8(bytes))
        return {std::string(bytes), {}};
    return decodedAs(bytes, detectedEncoding(bytes));
}

} // namespace tabulon
