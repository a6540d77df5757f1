// `duplicates`: the links of a document whose URL is that of an earlier link.
#include "model/Duplicates.h"

#include "cli/NodeList.h"
#include "cli/PlainText.h"
#include "cli/Verbs.h"

namespace tabulon::cli {
Result<void> listDuplicates(const Session& session, const std::string& input, bool asJson) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    Bookmark& root = (*document)->getMaster();
    moveWasteBasketDown(root, session.services.texts);
    clearDuplicateStatus(root);
    const std::vector<Bookmark*> duplicates = markDuplicates(root);
    Lines lines(session);
    const auto added = addNodes(
        root, {duplicates.begin(), duplicates.end()}, [&](const Bookmark& node, const std::string& path) {
            return asJson ? lines.addJson(node, path)
                          : lines.add(path + '\t' + escapingControls(node.itemURL().view()));
        });
    return added ? lines.finish() : failure(input + ": " + added.error().message);
}

Result<void> writeDuplicates(const Session& session, const std::string& input, DuplicatesOutput kind,
                             const std::string& output) {
    const auto read = session.readDocument(input);
    if (!read)
        return tl::unexpected(read.error());
    Document& document = **read;
    const Localization& texts = session.services.texts;
    if (kind == DuplicatesOutput::Marked)
        moveWasteBasketDown(document.getMaster(), texts);
    clearDuplicateStatus(document.getMaster());
    markDuplicates(document.getMaster());
    if (kind == DuplicatesOutput::Marked)
        return session.writeDocument(output, document);
    constexpr RemovalOptions kDuplicates{.duplicates = true};
    const Date now = Date::now(session.services.clock);
    const Removal removal = removeByStatus(document.getMaster(), kDuplicates, texts, now);
    Result<void> done = session.writeDocument(output, document);
    if (done)
        session.inform(removalSummary(kDuplicates, removal.items.size(), texts));
    return done;
}

} // namespace tabulon::cli
