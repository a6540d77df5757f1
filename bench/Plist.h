// Archives as libplist reads them, for comparison.
#pragma once

#include <plist/plist.h>

#include <cstdint>
#include <memory>
#include <string>

namespace tabulon::bench {

struct FreePlist {
    void operator()(void* plist) const { plist_free(plist); }
};
using Plist = std::unique_ptr<void, FreePlist>;

inline Plist plistOf(const std::string& archive) {
    plist_t plist = nullptr;
    plist_from_bin(archive.data(), static_cast<std::uint32_t>(archive.size()), &plist);
    return Plist(plist);
}

} // namespace tabulon::bench
