#include "url/UrlHost.h"

#include "base/Ascii.h"
#include "base/Utf8.h"
#include "text/PercentCoding.h"
#include "url/IpAddress.h"
#include "url/PercentEncoding.h"

#include <unicode/uidna.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace tabulon::url {
namespace {

bool isForbiddenInHost(char c) {
    return std::string_view("\0\t\n\r #/:<>?@[\\]^|", 17).find(c) != std::string_view::npos;
}

bool isForbiddenInDomain(char c) {
    return isForbiddenInHost(c) || static_cast<unsigned char>(c) < 0x20 || c == '%' || c == '\x7F';
}

struct CloseIdna {
    void operator()(UIDNA* idna) const { uidna_close(idna); }
};

// The errors of IDNA that the URL standard ignores.
constexpr std::uint32_t kToleratedErrors = UIDNA_ERROR_EMPTY_LABEL | UIDNA_ERROR_LABEL_TOO_LONG |
                                           UIDNA_ERROR_DOMAIN_NAME_TOO_LONG | UIDNA_ERROR_LEADING_HYPHEN |
                                           UIDNA_ERROR_TRAILING_HYPHEN | UIDNA_ERROR_HYPHEN_3_4;

std::optional<std::string> asciiByIdna(const std::string& domain) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UIDNA, CloseIdna> idna(uidna_openUTS46(UIDNA_CHECK_BIDI | UIDNA_CHECK_CONTEXTJ |
                                                                     UIDNA_NONTRANSITIONAL_TO_ASCII |
                                                                     UIDNA_NONTRANSITIONAL_TO_UNICODE,
                                                                 &status));
    std::vector<char> result(domain.size() * 4 + 64);
    std::int32_t length = 0;
    UIDNAInfo info = UIDNA_INFO_INITIALIZER;
    for (int attempt = 0; attempt < 2 && U_SUCCESS(status); ++attempt) {
        info = UIDNA_INFO_INITIALIZER;
        length =
            uidna_nameToASCII_UTF8(idna.get(), domain.data(), static_cast<std::int32_t>(domain.size()),
                                   result.data(), static_cast<std::int32_t>(result.size()), &info, &status);
        if (status != U_BUFFER_OVERFLOW_ERROR)
            break;
        status = U_ZERO_ERROR;
        result.resize(static_cast<std::size_t>(length));
    }
    if (U_FAILURE(status) || (info.errors & ~kToleratedErrors) != 0)
        return std::nullopt;
    return std::string(result.data(), static_cast<std::size_t>(length));
}

std::optional<std::string> asciiOf(const std::string& domain) {
    // A DNS name has at most 253 characters. ICU takes very long for names that are far longer.
    constexpr std::size_t kLongest = std::size_t{16} << 10;
    if (isAscii(domain))
        return ascii::lowered(domain);
    return domain.size() > kLongest ? std::nullopt : asciiByIdna(domain);
}

} // namespace

std::optional<std::string> parseHost(std::string_view text, bool isSpecial) {
    if (text.starts_with('[')) {
        if (!text.ends_with(']'))
            return std::nullopt;
        const std::optional<std::string> address = parseIPv6(text.substr(1, text.size() - 2));
        return address ? std::optional('[' + *address + ']') : std::nullopt;
    }
    if (!isSpecial) {
        if (std::ranges::any_of(text, isForbiddenInHost))
            return std::nullopt;
        std::string host;
        appendEscaped(text, EscapeSet::Controls, host);
        return host;
    }
    const std::optional<std::string> domain = asciiOf(decodeUtf8Leniently(percent::decode(text)));
    if (!domain || domain->empty() || std::ranges::any_of(*domain, isForbiddenInDomain))
        return std::nullopt;
    return endsInNumber(*domain) ? parseIPv4(*domain) : domain;
}

} // namespace tabulon::url
