#include "window/MarkCommands.h"

#include "base/Settings.h"
#include "model/Duplicates.h"
#include "text/NumberFormat.h"
#include "window/ActionTable.h"
#include "window/BasketCommands.h"
#include "window/EditingCommands.h"
#include "window/Outline.h"
#include "window/SharedState.h"
#include "window/StatusLine.h"
#include "window/WindowController.h"

namespace tabulon {

MarkCommands::MarkCommands(const MarkParts& parts, const Platform& platform, SharedState& shared,
                           ActionTable& actions)
    : outline_(parts.outline), editing_(parts.editing), baskets_(parts.baskets),
      statusLine_(parts.statusLine), platform_(platform), shared_(shared) {
    actions.add("showMarks:", [this](const MenuItem&) { showMarks(); });
    actions.add("findDuplicates:", [this](const MenuItem&) { findDuplicates(); });
    actions.add("clearMarks:", [this](const MenuItem&) { clearMarks(); });
    actions.add("deleteDuplicatesCommand:", [this](const MenuItem&) { deleteDuplicatesCommand(); });
    actions.add("moveDeleteSheet:", [this, &window = parts.window](const MenuItem&) {
        window.moveDeleteSheet([this] { deleteSheetExecute(); });
    });
}

void MarkCommands::setShowMarks(bool shown) {
    setValue(platform_.base.defaults, settings::kShowMarks, shown);
    shared_.application.showMarks(shown);
}

void MarkCommands::showMarks() {
    setShowMarks(!valueOf(platform_.base.defaults, settings::kShowMarks));
}

void MarkCommands::enableMarks() {
    if (!valueOf(platform_.base.defaults, settings::kShowMarks))
        setShowMarks(true);
}

void MarkCommands::showMarksView() {
    if (outline_.numberOfRows() > 0)
        outline_.view().reloadRows({0, outline_.numberOfRows()});
}

void MarkCommands::findDuplicates() {
    if (moveWasteDown() != kAlertFirstButton)
        return;
    enableMarks();
    outline_.reloadItems(clearDuplicateStatus(outline_.getMaster()));
    const std::vector<Bookmark*> duplicates = markDuplicates(outline_.getMaster());
    outline_.reloadItems(duplicates);
    statusLine_.replaceStatus(platform_.base.texts.format("%d duplicates marked", duplicates.size()));
}

void MarkCommands::clearMarks() {
    tabulon::clearMarks(outline_.getMaster());
    if (valueOf(platform_.base.defaults, settings::kShowMarks))
        showMarksView();
}

int MarkCommands::moveWasteDown() {
    const Ref<Bookmark> basket(misplacedWasteBasket(outline_.getMaster(), platform_.base.texts));
    if (!basket)
        return kAlertFirstButton;
    const Localization& texts = platform_.base.texts;
    const int response = platform_.alerts.runModal(
        Alert{.style = AlertStyle::Warning,
              .message = texts.text("WasteBasketTitle"),
              .informative = texts.text("WasteBasketInfo"),
              .buttons = {{texts.text("OK")}, {texts.text("Cancel"), AlertButtonRole::Cancel}}});
    if (response == kAlertFirstButton) {
        outline_.removeItem(*basket);
        baskets_.DropBasketAtEnd(basket);
    }
    return response;
}

void MarkCommands::deleteSheetExecute() {
    if (moveWasteDown() != kAlertFirstButton)
        return;
    enableMarks();
    deleteBookmarksConditionalCommand(removalOptions(platform_.base.defaults));
}

// All rows are laid out again once, even if a single link is removed.
Removal MarkCommands::deleteBookmarksConditional(const RemovalOptions& options) {
    const std::vector<Bookmark*> selected = outline_.selectedItems();
    Removal removal;
    {
        const Outline::ManyRows rows(outline_, Outline::ManyRows::kAlways);
        removal = removeByStatus(outline_.getMaster(), options, platform_.base.texts,
                                 Date::now(platform_.base.clock));
    }
    const bool arrived = options.move && !removal.items.empty();
    if (!arrived) // links that were moved clear the selection
        outline_.selectItems(selected);
    return removal;
}

void MarkCommands::deleteBookmarksConditionalCommand(const RemovalOptions& options) {
    shared_.removedLinks = 0;
    Removal removal = deleteBookmarksConditional(options);
    const std::size_t count = shared_.removedLinks = removal.items.size();
    // Each link that was moved into the basket counts as a change of its own, and so does a new basket.
    const std::size_t arrivals = options.move ? count + std::size_t{removal.madeBasket} : 0;
    for (std::size_t changes = count > 0 ? arrivals + 1 : 0; changes > 0; --changes)
        outline_.makeDirty();
    if (count > 0 && !options.move)
        editing_.didDelete(std::move(removal.places));
    const Localization& texts = platform_.base.texts;
    platform_.alerts.runModal(Alert{.style = AlertStyle::Informational,
                                    .message = removalSummary(options, count, texts),
                                    .buttons = {{texts.text("OK")}},
                                    .document = &outline_.document()});
}

void MarkCommands::deleteDuplicatesCommand() {
    const Localization& texts = platform_.base.texts;
    const std::size_t count = tabulon::findDuplicates(outline_.getMaster()).size();
    const std::string title = texts.counted("Delete %d Duplicates", count, numberText(count, texts.locale()));
    const int response = platform_.alerts.runModal(Alert{
        .style = AlertStyle::Informational,
        .message = texts.text("DeleteDuplicates"),
        .informative = texts.text("DuplicatesWarning"),
        .buttons = {{title, AlertButtonRole::Destructive}, {texts.text("Cancel"), AlertButtonRole::Cancel}},
        .document = &outline_.document(),
        .cancelIsDefault = true});
    if (response == kAlertFirstButton)
        deleteDuplicatesExecute();
}

// The options are fixed: duplicates alone, deleted and not moved.
void MarkCommands::deleteDuplicatesExecute() {
    clearDuplicateStatus(outline_.getMaster());
    markDuplicates(outline_.getMaster());
    deleteBookmarksConditionalCommand({.duplicates = true});
}

} // namespace tabulon
