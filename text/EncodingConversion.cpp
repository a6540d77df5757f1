#include "text/EncodingConversion.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <array>
#include <memory>
#include <utility>

namespace tabulon {
namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

// ICU's own callback replaces some malformed parts by the control character U+001A instead.
void writeReplacement(const void*, UConverterToUnicodeArgs* arguments, const char*, int32_t,
                      UConverterCallbackReason reason, UErrorCode* status) {
    constexpr UChar kReplacement = 0xFFFD;
    if (reason > UCNV_IRREGULAR)
        return; // a notification about the converter itself, not about malformed input
    *status = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(arguments, &kReplacement, 1, 0, status);
}

Converter open(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name, &status));
    if (converter)
        ucnv_setToUCallBack(converter.get(), writeReplacement, nullptr, nullptr, nullptr, &status);
    return converter;
}

} // namespace

// Converts in pieces, since ICU counts the bytes of one conversion in 32 bits.
std::optional<std::string> utf8FromEncoding(std::string_view bytes, const std::string& encoding) {
    const Converter from =
        encoding.empty() ? nullptr : open(encoding.c_str()); // for ICU "" is the encoding of the locale
    const Converter to = open("UTF-8");
    if (!from || !to)
        return std::nullopt;
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
    return U_SUCCESS(status) ? std::optional(std::move(text)) : std::nullopt;
}

} // namespace tabulon
