// Archives read with libplist, for comparison.
#pragma once

#include <plist/plist.h>

#include <cstdint>
#include <memory>
#include <string>

namespace tabulon::bench {

/// Frees an object of libplist.
struct FreePlist {
    void operator()(void* plist) const { plist_free(plist); }
};
using Plist = std::unique_ptr<void, FreePlist>;

/// Returns the property list in a binary archive, or `nullptr` where libplist cannot read it. Requires: less
/// than 4 GiB.
inline Plist plistOf(const std::string& archive) {
    plist_t plist = nullptr;
    plist_from_bin(archive.data(), static_cast<std::uint32_t>(archive.size()), &plist);
    return Plist(plist);
}

} // namespace tabulon::bench
