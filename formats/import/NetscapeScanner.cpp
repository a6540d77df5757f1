#include "formats/import/NetscapeScanner.h"

#include "formats/import/NetscapeScan.h"

namespace tabulon {

Ref<Bookmark> NetscapeScanner::scan(std::string_view bytes, const BaseServices& services,
                                    Progress* progress) {
    return NetscapeScan(bytes, services, lastItem_).run(progress);
}

} // namespace tabulon
