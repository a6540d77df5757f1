#include "formats/import/NetscapeScanner.h"

#include "formats/import/NetscapeScan.h"

namespace tabulon {

Ref<Bookmark> NetscapeScanner::scan(std::string_view bytes, const BaseServices& services,
                                    Progress* progress) {
    return NetscapeScan(bytes, services, lastItem_).run(progress);
}

Result<Ref<Bookmark>> readBookmarkHTML(std::string_view bytes, const ReadOptions& options) {
    NetscapeScanner own;
    NetscapeScanner& scanner = options.netscape ? *options.netscape : own;
    Ref<Bookmark> root = scanner.scan(bytes, options.services, options.progress);
    if (options.isCancelled())
        return cancelledByUser();
    return root;
}

} // namespace tabulon
