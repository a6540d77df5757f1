// Percent-encoding and decoding: a byte as "%" and two hexadecimal digits. The caller decides which bytes are
// encoded; the rules of URLs are in url/PercentEncoding.h.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::percent {

/// Appends `byte` as "%" and two hexadecimal digits with capital letters.
void appendEscaped(std::string& result, char byte);

/// Returns `bytes` in which every byte for which `isPlain`, a predicate of a char, is false is
/// percent-encoded. `decode` reverses this only if `isPlain` is false for "%".
template <class IsPlain>
std::string encode(std::string_view bytes, IsPlain isPlain) {
    std::string result;
    for (const char byte : bytes) {
        if (isPlain(byte))
            result += byte;
        else
            appendEscaped(result, byte);
    }
    return result;
}

/// Returns `text` with every "%" and two hexadecimal digits, of either case, replaced by the byte of this
/// number. A "%" before anything else is unchanged. The result may be malformed UTF-8 and may contain zero
/// bytes.
std::string decode(std::string_view text);

} // namespace tabulon::percent
