// Percent coding: a byte as "%" and two hexadecimal digits. Which bytes are escaped is the caller's rule.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::percent {

/// Appends "%XX", with capital letters.
void appendEscaped(std::string& result, char byte);

/// Returns `bytes` with every byte escaped for which `isPlain`, a predicate of a char, is false. What is to
/// be decoded again needs a rule that escapes "%".
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

/// Returns the bytes with every "%XX", in digits of either case, replaced by its byte. A "%" before anything
/// else is unchanged. The result need not be UTF-8 and may contain zeros.
std::string decode(std::string_view text);

} // namespace tabulon::percent
