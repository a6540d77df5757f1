#include "url/PercentEncoding.h"

#include "base/Utf8.h"
#include "text/PercentCoding.h"

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

#include <array>
#include <memory>

namespace tabulon::url {
namespace {

bool isIn(EscapeSet set, char c) {
    if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) > 0x7E)
        return true;
    const auto anyOf = [c](std::string_view some) { return some.find(c) != std::string_view::npos; };
    switch (set) {
    case EscapeSet::Controls:
        return false;
    case EscapeSet::Fragment:
        return anyOf(" \"<>`");
    case EscapeSet::Query:
        return anyOf(" \"#<>'");
    case EscapeSet::Path:
        return anyOf(" \"#<>?^`{|}");
    case EscapeSet::UserInfo:
        return anyOf(" \"#<>?^`{|}/:;=@[\\]'");
    }
    return false;
}

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

// Returns the character in the converter's encoding, or an empty text if the encoding does not contain it.
std::string encoded(UConverter& converter, char32_t character) {
    std::array<UChar, 2> units{};
    std::int32_t length = 0;
    U16_APPEND_UNSAFE(units.data(), length, character);
    std::array<char, 16> bytes{};
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t size = ucnv_fromUChars(
        &converter, bytes.data(), static_cast<std::int32_t>(bytes.size()), units.data(), length, &status);
    return U_SUCCESS(status) ? std::string(bytes.data(), static_cast<std::size_t>(size)) : std::string();
}

} // namespace

void appendEscaped(std::string_view text, EscapeSet set, std::string& result) {
    for (const char c : text) {
        if (isIn(set, c))
            percent::appendEscaped(result, c);
        else
            result += c;
    }
}

void appendEscapedIn(std::string_view encoding, std::string_view text, EscapeSet set, std::string& result) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, CloseConverter> converter(
        ucnv_open(std::string(encoding).c_str(), &status));
    if (U_SUCCESS(status))
        ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    if (U_FAILURE(status))
        return appendEscaped(text, set, result);
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = utf8::next(text, position);
        if (character < 0x80) {
            appendEscaped(std::string(1, static_cast<char>(character)), set, result);
            continue;
        }
        const std::string bytes = encoded(*converter, character);
        if (bytes.empty())
            result += "%26%23" + std::to_string(static_cast<std::uint32_t>(character)) + "%3B";
        else
            appendEscaped(bytes, set, result);
    }
}

} // namespace tabulon::url
