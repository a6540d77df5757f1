// `make`: the JSON of `show --json` → a document.
#include "cli/JsonTree.h"
#include "cli/Verbs.h"

namespace tabulon::cli {

Result<void> makeFromJson(const Session& session, const std::string& input, const std::string& output) {
    const Result<std::string> bytes = session.read(input);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<Ref<Bookmark>> master = treeFromJson(*bytes);
    if (!master)
        return failure(input + ": " + master.error().message);
    Document document(session.services);
    document.setMaster(std::move(*master));
    return session.writeDocument(output, document);
}

} // namespace tabulon::cli
