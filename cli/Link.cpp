// `link`: one bookmark of a document → a single-link file.
#include "cli/NodePath.h"
#include "cli/Verbs.h"
#include "formats/export/LinkFile.h"

namespace tabulon::cli {

Result<void> exportLink(const Session& session, const std::string& input, const std::string& path,
                        const std::string& output) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    const Bookmark* node = nodeAt((*document)->getMaster(), path);
    if (!node)
        return failure(input + ": There is no node at the path " + path + ".");
    const Result<std::string> bytes = exportToLinkFile(*node);
    if (!bytes)
        return failure(input + ": " + bytes.error().message);
    return session.write(output, *bytes);
}

} // namespace tabulon::cli
