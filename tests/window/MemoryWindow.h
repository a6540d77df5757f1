// A document window in memory. Its outline has a copy of the rows, which changes only by the controller's
// reports. A wrong report therefore appears as a wrong row.
#pragma once

#include "window/DocumentWindow.h"
#include "window/GetInfoController.h"
#include "window/MoveDeleteController.h"
#include "window/ViewController.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {

class MemoryOutline : public OutlineView {
public:
    explicit MemoryOutline(ViewController& controller) : controller_(controller) { copyRows(); }

    void willReloadData() override {
        EXPECT_TRUE(rowsAreRight());
        endEditing();
    }
    void didReloadData() override {
        copyRows();
        ++reloads;
    }
    void willInsertRows(RowRange range) override {
        EXPECT_EQ(controller_.outline().numberOfRows(), rows.size());
        pending_ = range;
    }
    void didInsertRows() override {
        rows.insert(rows.begin() + offset(), pending_.count, nullptr);
        for (std::size_t row = pending_.first; row < pending_.first + pending_.count; ++row)
            rows[row] = &controller_.outline().itemAtRow(row);
        EXPECT_TRUE(rowsAreRight());
    }
    void willRemoveRows(RowRange range) override {
        EXPECT_EQ(controller_.outline().numberOfRows(), rows.size());
        pending_ = range;
        moveCurrentFrom(range);
        std::size_t deselected = 0;
        for (std::size_t row = range.first; row < range.first + range.count; ++row) {
            deselected += selected.erase(rows[row]);
            if (edited && edited->second == rows[row]) // its field is removed with it
                edited.reset();
        }
        if (deselected > 0)
            controller_.outline().selectionDidChange(SelectedBy::Program);
    }
    void didRemoveRows() override {
        rows.erase(rows.begin() + offset(),
                   rows.begin() + offset() + static_cast<std::ptrdiff_t>(pending_.count));
        EXPECT_TRUE(rowsAreRight());
    }
    void reloadRows(RowRange range) override { reloaded.push_back(range); }

    RowSet selectedRows() const override {
        RowSet result;
        for (std::size_t row = 0; row < rows.size(); ++row)
            if (selected.contains(rows[row]))
                addRow(result, row);
        return result;
    }
    std::optional<std::size_t> selectedRow() const override {
        const RowSet set = selectedRows();
        if (set.empty())
            return std::nullopt;
        const auto last =
            std::find_if(order_.rbegin(), order_.rend(), [&](auto* item) { return selected.contains(item); });
        const Bookmark* item = selected.contains(current) ? current : *last;
        return static_cast<std::size_t>(std::ranges::find(rows, item) - rows.begin());
    }
    void selectRows(const RowSet& set) override {
        std::vector<Bookmark*> wanted;
        for (const RowRange& range : set)
            for (std::size_t row = range.first; row < range.first + range.count; ++row)
                wanted.push_back(rows.at(row));
        if (!wanted.empty() && std::ranges::find(wanted, current) == wanted.end())
            current = wanted.back();
        selectOnly(std::move(wanted));
    }
    void selectAll() override { selectOnly(rows); }
    /// Selects these items as the user does with a click on the first one and a click with Ctrl on each
    /// other one. Makes no report.
    void clickOn(const std::vector<Bookmark*>& items) {
        selected = {items.begin(), items.end()};
        order_ = items;
        current = items.empty() ? current : items.back();
    }
    /// Selects or deselects the item as the user does by a click with Ctrl. Makes no report.
    void clickWithControl(Bookmark& item) {
        if (selected.erase(&item) == 0)
            selected.insert(&item);
        std::erase(order_, &item);
        order_.push_back(&item);
        current = &item;
    }
    void scrollRowToVisible(std::size_t row) override { scrolledTo = row; }
    void editCell(Column column, std::size_t row) override {
        EXPECT_TRUE(controller_.cells().viewForTableColumn(column, row, true).editable);
        EXPECT_FALSE(edited) << "another cell is being edited";
        edited = {{column, &controller_.outline().itemAtRow(row)}};
        ++editingsBegun;
    }
    void endEditing() override {
        if (!edited)
            return;
        const auto [column, item] = *std::exchange(edited, std::nullopt);
        ++editingsEnded;
        const std::optional<std::string> text = std::exchange(typed, std::nullopt);
        const std::optional<std::size_t> row = controller_.outline().rowForItem(*item);
        if (text && row)
            column == Column::Name  ? controller_.fields().endNameEdit(*row, *text)
            : column == Column::URL ? controller_.fields().endURLEdit(*row, *text)
                                    : controller_.fields().endTagsEdit(*row, *text);
    }
    bool isEditing() const override { return edited.has_value(); }
    bool hasKeyboard() const override { return keyboard; }
    std::optional<Column> columnUnderPointer() const override { return pointer; }
    void addTagsColumn(std::size_t index, double width) override {
        EXPECT_FALSE(tagsColumn) << "the column is shown already";
        tagsColumn = std::min<std::size_t>(index, 2); // Name and URL are always shown
        tagsWidth = width;
    }
    void removeTagsColumn() override { tagsColumn.reset(); }
    std::optional<std::size_t> tagsColumnIndex() const override { return tagsColumn; }
    void showSortIndicator(std::optional<Column> column, SortDirection direction) override {
        sortedBy = column;
        sortDirection = direction;
    }
    void setTableFont(const OutlineFont& newFont, double newRowHeight) override {
        font = newFont;
        rowHeight = newRowHeight;
    }

    bool rowsAreRight() const {
        if (rows.size() != controller_.outline().numberOfRows())
            return false;
        for (std::size_t row = 0; row < rows.size(); ++row)
            if (rows[row] != &controller_.outline().itemAtRow(row))
                return false;
        return true;
    }

    std::vector<Bookmark*> rows;
    std::set<Bookmark*> selected;
    /// The item of the row with the cursor, `nullptr` without one. Its row is the current one if it is
    /// selected.
    Bookmark* current = nullptr;
    std::optional<std::pair<Column, Bookmark*>> edited;
    /// The text that the user has typed into the field; `nullopt` for a field that was not changed.
    std::optional<std::string> typed;
    int editingsBegun = 0;
    int editingsEnded = 0;
    bool keyboard = true;
    std::optional<Column> pointer;
    std::vector<RowRange> reloaded;
    std::optional<std::size_t> scrolledTo;
    int reloads = 0;
    std::optional<std::size_t> tagsColumn;
    double tagsWidth = 0;
    std::optional<Column> sortedBy;
    SortDirection sortDirection = SortDirection::Ascending;
    OutlineFont font;
    double rowHeight = 0;

private:
    std::ptrdiff_t offset() const { return static_cast<std::ptrdiff_t>(pending_.first); }
    void selectOnly(std::vector<Bookmark*> items) {
        order_ = std::move(items);
        const std::set<Bookmark*> before = std::exchange(selected, {order_.begin(), order_.end()});
        if (selected != before)
            controller_.outline().selectionDidChange(SelectedBy::Program);
    }
    // Moves the cursor from rows that will be removed to the row after them, or to the row before them if
    // they are the last rows or all the rows of the folder above them.
    void moveCurrentFrom(RowRange range) {
        const std::size_t end = range.first + range.count;
        if (std::find(rows.begin() + offset(), rows.begin() + static_cast<std::ptrdiff_t>(end), current) ==
            rows.begin() + static_cast<std::ptrdiff_t>(end))
            return;
        const Bookmark* parent = rows[range.first]->getParent();
        Bookmark* before = range.first > 0 ? rows[range.first - 1] : nullptr;
        Bookmark* after = end < rows.size() ? rows[end] : nullptr;
        const bool isWholeFolder = before == parent && !(after && after->getParent() == parent);
        current = after && !isWholeFolder ? after : before;
    }
    void copyRows() {
        rows.clear();
        selected.clear();
        current = nullptr;
        for (std::size_t row = 0; row < controller_.outline().numberOfRows(); ++row)
            rows.push_back(&controller_.outline().itemAtRow(row));
    }

    ViewController& controller_;
    RowRange pending_{0, 0};
    std::vector<Bookmark*> order_; // the selected items in the order in which they were selected, and others
};

class MemoryFindBar : public FindBar {
public:
    bool isFindBarShown() const override { return shown; }
    void setFindBarShown(bool isShown) override { shown = isShown; }
    void selectSearchText() override { ++selections; }
    bool hasKeyboard() const override { return keyboard; }
    void setSearchText(const std::string& newText) override { text = newText; }
    void setMatchesLabel(const std::string& newLabel) override { label = newLabel; }

    bool shown = false;
    bool keyboard = false;
    int selections = 0;
    std::string text;
    std::string label;
};

class MemoryInfoPanel : public InfoPanel {
public:
    void reloadFields() override { ++reloads; }
    void setButtons(const InfoButtons& newButtons) override { buttons = newButtons; }
    void setTitle(const std::string& newTitle) override { title = newTitle; }
    void selectName() override { ++nameSelections; }
    void selectNote(const std::string& string) override { selectedNote = string; }
    void selectTags(const std::string& string) override { selectedTags = string; }
    std::string frame() const override { return place; }
    void setFrame(const std::string& frame) override { place = frame; }
    void dismiss() override { ++dismissals; }
    void bringToFront() override { ++broughtToFront; }

    int reloads = 0;
    InfoButtons buttons;
    std::string title;
    int nameSelections = 0;
    std::string selectedNote;
    std::string selectedTags;
    std::string place;
    int dismissals = 0;
    int broughtToFront = 0;
};

class MemoryWindow : public DocumentWindow {
public:
    explicit MemoryWindow(ViewController& controller) : outlineView(controller) {}

    OutlineView& outline() override { return outlineView; }
    void setTitle(const std::string& name, const std::string& path, bool isEdited) override {
        title = name;
        file = path;
        edited = isEdited;
    }
    void setURLFieldText(const std::string& text) override { urlField = text; }
    void setURLFieldAction(const std::string& newTitle, const std::string&) override {
        urlFieldAction = newTitle;
    }
    void setURLFieldFontSize(double size) override { urlFieldFontSize = size; }
    void showEmptyState(bool isEmpty) override { empty = isEmpty; }
    FindBar& findBar() override { return bar; }
    void presentMoveDelete(std::shared_ptr<MoveDeleteController> controller) override {
        moveDelete = std::move(controller);
        moveDelete->viewDidLoad();
    }
    void presentInfo(std::shared_ptr<GetInfoController> controller) override {
        info = std::move(controller);
        info->setPanel(&infoPanel);
    }
    void presentLegenda() override { ++legends; }
    std::string frame() const override { return place; }
    void setFrame(const std::string& frame) override { place = frame; }
    bool isKeyWindow() const override { return active; }
    void show() override { shown = true; }
    void makeKeyAndOrderFront() override {
        ++broughtToFront;
        miniaturized = false;
    }
    void performMiniaturize() override { miniaturized = true; }

    MemoryOutline outlineView;
    MemoryFindBar bar;
    std::shared_ptr<MoveDeleteController> moveDelete;
    MemoryInfoPanel infoPanel;
    std::shared_ptr<GetInfoController> info;
    int legends = 0;
    std::string title;
    std::string file;
    bool edited = false;
    bool active = true; ///< whether the user works with it
    std::string urlField;
    std::string urlFieldAction; ///< the button's title, empty for none
    double urlFieldFontSize = 0;
    bool empty = false;
    bool shown = false;
    std::string place = "0 0 900 600";
    int broughtToFront = 0;
    bool miniaturized = false;
};

} // namespace tabulon
