// `remove`: removes the links of some statuses from a document, or moves them into its Waste Basket.
#include "cli/Verbs.h"

namespace tabulon::cli {

Result<void> removeFromDocument(const Session& session, const std::string& input,
                                const RemovalOptions& options, const std::string& output) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    const Localization& texts = session.services.texts;
    moveWasteBasketDown((*document)->getMaster(), texts);
    const Date now = Date::now(session.services.clock);
    const Removal removal = removeByStatus((*document)->getMaster(), options, texts, now);
    Result<void> done = session.writeDocument(output, **document);
    if (done)
        session.inform(removalSummary(options, removal.items.size(), texts));
    return done;
}

} // namespace tabulon::cli
