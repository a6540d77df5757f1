// Where the link of a tag scan leads: its "<A", its address and the kind of link that the address makes it.
// Its name and dates are the scanner's affair.
#pragma once

#include "formats/import/ScannedBytes.h"
#include "formats/import/ScannedTexts.h"

#include <cstdint>
#include <optional>

namespace tabulon {

struct LinkTarget {
    /// Where its "<A" stands.
    std::size_t anchor = 0;
    /// Where the double quote stands that ends its address.
    std::size_t addressEnd = 0;
    Text address;
    /// The type that the address gives, or nothing when it tells none.
    std::optional<std::uint8_t> type;
};

/// Finds link targets from ever later places. An address that many links share, because it is the next one
/// after each of them, is searched, decoded and classified once, and its text is shared.
class LinkTargets {
public:
    /// So many bytes of addresses that were given before are given again, over all links. The tree would
    /// otherwise stand for the square of the file: a document or an export writes each of them out.
    static constexpr std::size_t kMostRepeatedBytes = std::size_t{1} << 28;

    LinkTargets(const ScannedBytes& bytes, const ScannedTexts& texts) : bytes_(bytes), texts_(texts) {}

    /// The target of the first "<A" at or after `from` whose address is no in-page anchor ("#…"), or null
    /// when the bytes end before its address does or too many addresses were repeated. Valid until the next
    /// call.
    const LinkTarget* next(std::size_t from);

private:
    const LinkTarget* withAddressAt(std::size_t anchor, std::size_t begin);

    const ScannedBytes& bytes_;
    const ScannedTexts& texts_;
    RememberedSearch href_;
    RememberedSearch openingQuote_;
    std::size_t addressBegin_ = ScannedBytes::npos;
    std::size_t repeatedBytes_ = 0;
    LinkTarget last_;
};

} // namespace tabulon
