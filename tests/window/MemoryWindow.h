// A document window in memory. Its outline keeps its own copy of the rows, which only the controller's
// reports change, so that a wrong report appears as a wrong row.
#pragma once

#include "window/DocumentWindow.h"
#include "window/GetInfoController.h"
#include "window/MoveDeleteController.h"
#include "window/ViewController.h"

#include <gtest/gtest.h>

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
        for (std::size_t row = range.first; row < range.first + range.count; ++row) {
            selected.erase(rows[row]);
            if (edited && edited->second == rows[row]) // its field is removed with it
                edited.reset();
        }
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
        return set.empty() ? std::nullopt : std::optional(set.back().first + set.back().count - 1);
    }
    void selectRows(const RowSet& set) override {
        selected.clear();
        for (const RowRange& range : set)
            for (std::size_t row = range.first; row < range.first + range.count; ++row)
                selected.insert(rows.at(row));
        controller_.outline().selectionDidChange(SelectedBy::Program);
    }
    void selectAll() override {
        selected.insert(rows.begin(), rows.end());
        controller_.outline().selectionDidChange(SelectedBy::Program);
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
    std::optional<std::pair<Column, Bookmark*>> edited;
    /// What the user has typed into the field; `nullopt` for a field that was not changed.
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
    void copyRows() {
        rows.clear();
        selected.clear();
        for (std::size_t row = 0; row < controller_.outline().numberOfRows(); ++row)
            rows.push_back(&controller_.outline().itemAtRow(row));
    }

    ViewController& controller_;
    RowRange pending_{0, 0};
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
