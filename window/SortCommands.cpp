#include "window/SortCommands.h"

#include "base/Settings.h"
#include "window/ActionTable.h"
#include "window/FieldEditing.h"
#include "window/Outline.h"

#include <array>

namespace tabulon {
namespace {

constexpr double kPauseBeforeQuestion = 0.8; // seconds

int sortIndexOf(Column column) {
    return column == Column::Name ? 0 : column == Column::URL ? 1 : 2;
}

SortDirection opposite(SortDirection direction) {
    return direction == SortDirection::Ascending ? SortDirection::Descending : SortDirection::Ascending;
}

} // namespace

SortCommands::SortCommands(Outline& outline, FieldEditing& fields, const Collation& collation,
                           const Platform& platform, ActionTable& actions)
    : outline_(outline), fields_(fields), collation_(collation), platform_(platform) {
    static constexpr std::array kActions = {
        "sortByName:",      "sortByURL:",          "sortByTags:",
        "sortByDateAdded:", "sortByDateModified:", "sortByDateLastOpened:"};
    for (std::size_t index = 0; index < kActions.size(); ++index)
        actions.add(
            kActions[index],
            [this, index](const MenuItem& sender) {
                const bool descending = sender.tag == kSortDescendingTag || platform_.keyboard.isOptionDown();
                sortByIndexAscending(static_cast<int>(index), !descending);
            },
            [this](const MenuItem&) { return outline_.hasOneSelectedFolder(); });
}

void SortCommands::viewDidLoad() {
    if (valueOf(platform_.base.defaults, settings::kColumnSort))
        addSortDescriptors();
}

void SortCommands::sortByIndexAscending(int index, bool ascending) {
    const auto direction = ascending ? SortDirection::Ascending : SortDirection::Descending;
    for (Bookmark* item : outline_.getSelectionArray()) {
        if (!item->isFolder())
            continue;
        sortFolder(*item, sortKeyForIndex(index), direction, collation_);
        outline_.childrenDidReorder(*item);
        outline_.makeDirty();
    }
}

void SortCommands::sortDescriptorsDidChange(Column column, SortDirection direction) {
    sortFolder(outline_.getMaster(), sortKeyForIndex(sortIndexOf(column)), direction, collation_);
    outline_.childrenDidReorder(outline_.getMaster());
    outline_.makeDirty();
}

void SortCommands::headerClicked(Column column) {
    fields_.commitEditing();
    const UserDefaults& defaults = platform_.base.defaults;
    if (!valueOf(defaults, settings::kColumnSort) && !valueOf(defaults, settings::kSuppressColumnSortSheet))
        sortQuestion_ = platform_.timers.after(kPauseBeforeQuestion, [this] { sortNameSheet(); });
    const auto prototype = sortPrototypes_.find(column);
    if (prototype == sortPrototypes_.end())
        return;
    const bool again = sortedBy_ && sortedBy_->first == column;
    sortedBy_ = {column, again ? opposite(sortedBy_->second) : prototype->second};
    outline_.view().showSortIndicator(column, sortedBy_->second);
    sortDescriptorsDidChange(column, sortedBy_->second);
}

void SortCommands::sortNameSheet() {
    UserDefaults& defaults = platform_.base.defaults;
    const Localization& texts = platform_.base.texts;
    constexpr int kYes = kAlertFirstButton + 1;
    const SuppressibleAnswer answer = platform_.alerts.runModalSuppressible(
        Alert{.style = AlertStyle::Warning,
              .message = texts.text("SortByName"),
              .informative = texts.text("SortByNameInfo"),
              .buttons = {{texts.text("No"), AlertButtonRole::Cancel}, {texts.text("Yes")}},
              .document = &outline_.document()},
        texts.text("DontAskAgain"));
    if (answer.suppressed)
        setValue(defaults, settings::kSuppressColumnSortSheet, true);
    if (answer.response == kYes) {
        setValue(defaults, settings::kColumnSort, true);
        addSortDescriptors();
        return;
    }
    outline_.view().endEditing();
    outline_.view().selectRows({});
}

void SortCommands::addSortDescriptors() {
    for (const Column column : {Column::Name, Column::URL, Column::Tags}) {
        if (column == Column::Tags && !outline_.view().tagsColumnIndex())
            continue;
        const auto had = sortPrototypes_.find(column);
        sortPrototypes_[column] =
            had == sortPrototypes_.end() ? SortDirection::Ascending : opposite(had->second);
    }
}

void SortCommands::defaultNoSorting() {
    sortPrototypes_.clear();
    sortedBy_.reset();
    outline_.view().showSortIndicator(std::nullopt, SortDirection::Ascending);
}

} // namespace tabulon
