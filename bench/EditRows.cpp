// Single edits in a document of a million nodes whose rows are all shown. They use the controllers of a
// window; the window itself stores the current row and draws nothing.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "platform/fake/FakePlatform.h"
#include "window/DocumentWindow.h"
#include "window/ViewController.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>

namespace tabulon::bench {

namespace {

constexpr double kFrame = 0.016;               // seconds
constexpr std::size_t kMillionNodes = 909'000; // links, about a million nodes

class CurrentRow : public OutlineView {
public:
    void willReloadData() override {}
    void didReloadData() override { row_.reset(); }
    void willInsertRows(RowRange rows) override {
        if (row_ && *row_ >= rows.first)
            *row_ += rows.count;
    }
    void didInsertRows() override {}
    void willRemoveRows(RowRange rows) override {
        if (row_ && *row_ >= rows.first + rows.count)
            *row_ -= rows.count;
        else if (row_ && *row_ >= rows.first)
            row_.reset();
    }
    void didRemoveRows() override {}
    void reloadRows(RowRange) override {}
    RowSet selectedRows() const override { return row_ ? RowSet{{*row_, 1}} : RowSet(); }
    std::optional<std::size_t> selectedRow() const override { return row_; }
    void selectRows(const RowSet& rows) override {
        row_ = rows.empty() ? std::nullopt : std::optional(rows.back().first + rows.back().count - 1);
    }
    void selectAll() override {}
    void scrollRowToVisible(std::size_t) override {}
    void editCell(Column, std::size_t) override {}
    void endEditing() override {}
    bool isEditing() const override { return false; }
    bool hasKeyboard() const override { return true; }
    std::optional<Column> columnUnderPointer() const override { return std::nullopt; }
    void addTagsColumn(std::size_t, double) override {}
    void removeTagsColumn() override {}
    std::optional<std::size_t> tagsColumnIndex() const override { return std::nullopt; }
    void showSortIndicator(std::optional<Column>, SortDirection) override {}
    void setTableFont(const OutlineFont&, double) override {}

private:
    std::optional<std::size_t> row_;
};

class HiddenBar : public FindBar {
public:
    bool isFindBarShown() const override { return false; }
    void setFindBarShown(bool) override {}
    void selectSearchText() override {}
    bool hasKeyboard() const override { return false; }
    void setSearchText(const std::string&) override {}
    void setMatchesLabel(const std::string&) override {}
};

class BareWindow : public DocumentWindow {
public:
    OutlineView& outline() override { return outline_; }
    void setTitle(const std::string&, const std::string&, bool) override {}
    void setURLFieldText(const std::string&) override {}
    void setURLFieldAction(const std::string&, const std::string&) override {}
    void setURLFieldFontSize(double) override {}
    void showEmptyState(bool) override {}
    FindBar& findBar() override { return bar_; }
    void presentMoveDelete(std::shared_ptr<MoveDeleteController>) override {}
    void presentInfo(std::shared_ptr<GetInfoController>) override {}
    void presentLegenda() override {}
    std::string frame() const override { return {}; }
    void setFrame(const std::string&) override {}
    bool isKeyWindow() const override { return true; }
    void show() override {}
    void makeKeyAndOrderFront() override {}
    void performMiniaturize() override {}

private:
    CurrentRow outline_;
    HiddenBar bar_;
};

class NoCommands : public SharedCommands {
public:
    void grabAllHTML(const std::string&) override {}
    void showMarks(bool) override {}
};

constexpr std::array<std::string_view, 5> kEdits{"rename", "insert", "move", "delete", "put back"};

/// A document in its window, with all rows shown.
class EditedDocument {
public:
    explicit EditedDocument(Ref<Bookmark> tree) : document_(platform_.base.services()) {
        document_.setMaster(std::move(tree));
        controller_.emplace(document_, platform_.platform(), shared_);
        controller_->setWindow(&window_);
        controller_->expanding().expandAll();
        require(rows() == sizeOf(document_.getMaster()).nodes, "a node has no row");
    }
    EditedDocument(const EditedDocument&) = delete;
    EditedDocument& operator=(const EditedDocument&) = delete;

    std::size_t rows() const { return controller_->outline().numberOfRows(); }

    /// Performs each edit once at `row` and returns their times in seconds, in the order of `kEdits`.
    /// Afterwards `row` contains the inserted bookmark. Requires: two rows follow.
    std::array<double, kEdits.size()> edit(std::size_t row) {
        const std::size_t before = rows();
        const std::string name = fmt::format("renamed {}", ++edits_);
        std::array<double, kEdits.size()> seconds{};
        select(row);
        seconds[0] = timed([&] { controller_->fields().endNameEdit(row, name); });
        require(item(row).itemName().view() == name, "a node was not renamed");
        seconds[1] = timed([&] { controller_->editing().newBookmark(); });
        require(rows() == before + 1 && item(current()).itemURL().view() == "https://",
                "nothing was inserted");
        const Ref<Bookmark> inserted(&item(current()));
        const std::size_t place = current();
        seconds[2] = timed([&] { controller_->editing().moveUp(); });
        require(rows() == before + 1 && current() + 1 == place && &item(current()) == inserted.get(),
                "a node was not moved");
        seconds[3] = timed([&] { controller_->editing().deleteSelection(); });
        require(rows() == before && !controller_->outline().rowForItem(*inserted), "a node was not deleted");
        seconds[4] = timed([&] { controller_->statusLine().performAction(); });
        require(rows() == before + 1 && controller_->outline().rowForItem(*inserted) == place - 1,
                "a node was not put back");
        return seconds;
    }

private:
    Bookmark& item(std::size_t row) { return controller_->outline().itemAtRow(row); }
    std::size_t current() { return window_.outline().selectedRow().value(); }
    void select(std::size_t row) {
        window_.outline().selectRows({{row, 1}});
        controller_->outline().selectionDidChange(SelectedBy::Program);
    }
    // Returns the time of the edit and of the operations that the main loop performs immediately after it, in
    // seconds.
    template <class Edit>
    double timed(Edit edit) {
        return fastest(1, [&] {
            edit();
            platform_.timers.advance(0);
            return true;
        });
    }

    FakePlatform platform_;
    NoCommands commands_;
    SharedState shared_{commands_};
    Document document_;
    BareWindow window_;
    std::optional<ViewController> controller_;
    int edits_ = 0;
};

} // namespace

Row editRow(const Sample& sample, const Effort& effort) {
    EditedDocument document(effort.judged ? makeCorpus(kMillionNodes) : deepCopy(*sample.tree));
    const std::size_t nodes = document.rows();
    std::array<double, kEdits.size()> slowest{}; // of the places
    for (const std::size_t place : {std::size_t{1}, nodes / 2, nodes - 2}) {
        std::array<double, kEdits.size()> best{};
        best.fill(std::numeric_limits<double>::infinity());
        for (int run = 0; run < effort.runs; ++run)
            std::ranges::transform(best, document.edit(place), best.begin(),
                                   [](double a, double b) { return std::min(a, b); });
        std::ranges::transform(slowest, best, slowest.begin(),
                               [](double a, double b) { return std::max(a, b); });
    }
    const double worst = std::ranges::max(slowest);
    std::string times;
    for (std::size_t i = 0; i < kEdits.size(); ++i)
        times += fmt::format("{}{} {:.3f} ms", i == 0 ? "" : ", ", kEdits.at(i), slowest.at(i) * 1000);
    return {fmt::format("a single edit in {} nodes, all shown", nodes),
            times,
            fmt::format("one frame: {}", milliseconds(kFrame)),
            fmt::format("{:.2f} × as long", worst / kFrame),
            "16 ms each",
            verdict(effort, worst < kFrame)};
}

} // namespace tabulon::bench
