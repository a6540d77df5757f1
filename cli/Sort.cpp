// `sort`: sorts the whole tree of a document.
#include "cli/Verbs.h"
#include "text/Collation.h"

namespace tabulon::cli {

Result<void> sortDocument(const Session& session, const std::string& input, SortKey key,
                          SortDirection direction, const std::string& output) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    const Collation collation(session.services.texts.locale());
    sortFolder((*document)->getMaster(), key, direction, collation);
    return session.writeDocument(output, **document);
}

} // namespace tabulon::cli
