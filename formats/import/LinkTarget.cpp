#include "formats/import/LinkTarget.h"

#include "model/LinkType.h"

namespace tabulon {

// Linear over all calls: each "<A" is passed once, since the scan continues after the last one found, and the
// other searches start at increasing offsets and cache their results.
const LinkTarget* LinkTargets::next(std::size_t from) {
    for (;;) {
        const std::size_t anchor = bytes_.find("<A", from);
        if (anchor == ScannedBytes::npos)
            return nullptr;
        const std::size_t href =
            href_.find(anchor, [&](std::size_t at) { return bytes_.find("HREF", at + 2); });
        if (href == ScannedBytes::npos)
            return nullptr;
        const std::size_t quote =
            openingQuote_.find(href, [&](std::size_t at) { return bytes_.find('"', at + 4); });
        if (quote == ScannedBytes::npos)
            return nullptr;
        if (bytes_.at(quote + 1) != '#')
            return withAddressAt(anchor, quote + 1);
        from = quote + 1;
    }
}

const LinkTarget* LinkTargets::withAddressAt(std::size_t anchor, std::size_t begin) {
    last_.anchor = anchor;
    if (begin == addressBegin_) {
        repeatedBytes_ += last_.address.view().size();
        return repeatedBytes_ > kMostRepeatedBytes ? nullptr : &last_;
    }
    const std::size_t end = bytes_.find('"', begin);
    if (end == ScannedBytes::npos)
        return nullptr;
    addressBegin_ = begin;
    last_.addressEnd = end;
    last_.address = texts_.text(begin, end);
    last_.type = typeForURL(last_.address.view());
    return &last_;
}

} // namespace tabulon
