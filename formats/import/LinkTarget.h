// The target of a link in the tag scan: its "<A", its address and the type of link. The scanner reads its
// name and dates.
#pragma once

#include "formats/import/ScannedBytes.h"
#include "formats/import/ScannedTexts.h"

#include <cstdint>
#include <optional>

namespace tabulon {

struct LinkTarget {
    /// The offset of its "<A".
    std::size_t anchor = 0;
    /// The offset of the double quote that ends its address.
    std::size_t addressEnd = 0;
    Text address;
    /// The type for the address, or `nullopt` where the address determines none.
    std::optional<std::uint8_t> type;
};

/// Finds link targets from increasing offsets. Many links may share one address, if it is the next one after
/// each of them. It is searched, decoded and classified once, and its text is shared.
class LinkTargets {
public:
    /// The limit on the bytes of repeated addresses over all links. Without it a document or an export, which
    /// write each of them out, could have the square of the file's size.
    static constexpr std::size_t kMostRepeatedBytes = std::size_t{1} << 28;

    /// Both objects must outlive this one.
    LinkTargets(const ScannedBytes& bytes, const ScannedTexts& texts) : bytes_(bytes), texts_(texts) {}

    /// Returns the target of the first "<A" at or after `from` whose address is no in-page anchor ("#…").
    /// Returns `nullptr` where the bytes end before its address does, or where `kMostRepeatedBytes` is
    /// exceeded. Valid until the next call. Requires: `from` is not less than in the call before. Linear over
    /// all calls.
    const LinkTarget* next(std::size_t from);

private:
    /// Returns the target with the address at `begin`, which is not made again if it is that of the last
    /// target.
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
