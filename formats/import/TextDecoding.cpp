#include "formats/import/TextDecoding.h"

#include "formats/import/EncodingNames.h"
#include "model/Text.h"

#include <uchardet.h>
#include <unicode/ucnv.h>

#include <array>
#include <memory>

namespace tabulon {
namespace {

constexpr const char* kLastResort = "windows-1252";

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter open(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    return Converter(ucnv_open(name, &status));
}

// In pieces, so that the size is bounded by nothing but memory.
std::string converted(std::string_view bytes, const char* encoding) {
    const Converter from = open(encoding);
    const Converter to = open("UTF-8");
    if (!from || !to)
        return decodeUtf8Leniently(bytes);
    std::string text;
    std::array<char, 8192> piece{};
    std::array<UChar, 4096> pivot{};
    UChar* pivotBegin = pivot.data();
    UChar* pivotEnd = pivot.data();
    const char* source = bytes.data();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    for (bool isFirst = true; status == U_BUFFER_OVERFLOW_ERROR; isFirst = false) {
        status = U_ZERO_ERROR;
        char* end = piece.data();
        ucnv_convertEx(to.get(), from.get(), &end, piece.data() + piece.size(), &source,
                       bytes.data() + bytes.size(), pivot.data(), &pivotBegin, &pivotEnd,
                       pivot.data() + pivot.size(), static_cast<UBool>(isFirst), static_cast<UBool>(true),
                       &status);
        text.append(piece.data(), end);
    }
    return text;
}

DecodedText decodedAs(std::string_view bytes, std::string_view encoding) {
    if (encoding.empty())
        return {decodeUtf8Leniently(bytes), {}};
    return {converted(bytes, std::string(encoding).c_str()), std::string(encoding)};
}

struct CloseDetector {
    void operator()(uchardet_t detector) const { uchardet_delete(detector); }
};

// What the bytes look like; the beginning of a long text tells as much as the whole.
std::string detectedEncoding(std::string_view bytes) {
    constexpr std::size_t kEnough = std::size_t{1} << 20;
    const std::unique_ptr<uchardet, CloseDetector> detector(uchardet_new());
    const std::string_view some = bytes.substr(0, kEnough);
    if (uchardet_handle_data(detector.get(), some.data(), some.size()) != 0)
        return kLastResort;
    uchardet_data_end(detector.get());
    const auto converter = converterForLabel(uchardet_get_charset(detector.get()));
    // It is not UTF-8: that was looked at before.
    return converter && !converter->empty() ? std::string(*converter) : kLastResort;
}

} // namespace

DecodedText decodeText(std::string_view bytes, TextKind kind) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return decodedAs(bytes.substr(3), "");
    if (bytes.starts_with("\xFF\xFE"))
        return {converted(bytes.substr(2), "UTF-16LE"), {}};
    if (bytes.starts_with("\xFE\xFF"))
        return {converted(bytes.substr(2), "UTF-16BE"), {}};
    if (kind == TextKind::Html)
        if (const DeclaredEncoding declared = declaredEncoding(bytes); declared.found)
            return decodedAs(bytes, declared.converter);
    if (isValidUtf8(bytes))
        return {std::string(bytes), {}};
    return decodedAs(bytes, detectedEncoding(bytes));
}

} // namespace tabulon
