// QTreeView over the same tree.
#include "bench/ui/MeasuredViews.h"
#include "bench/ui/TreeModel.h"

#include <QHeaderView>
#include <QTreeView>

namespace tabulon::bench {
namespace {

constexpr double kNameShare = 0.45; // as in the own outline

class ReferenceView : public MeasuredView {
public:
    explicit ReferenceView(Bookmark& root) : model_(root, kRowHeight) {
        view_.setUniformRowHeights(true);
        view_.setSelectionMode(QAbstractItemView::ExtendedSelection);
        view_.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        view_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the columns fit
        view_.setFrameShape(QFrame::NoFrame);
        view_.header()->setStretchLastSection(true);
        view_.setModel(&model_);
    }

    QAbstractItemView& widget() override { return view_; }
    void expandAll() override {
        view_.header()->resizeSection(0, static_cast<int>(view_.viewport()->width() * kNameShare));
        view_.expandAll();
    }
    void show(Bookmark& node) override {
        const QModelIndex index = model_.indexOf(node);
        view_.scrollTo(index);
        view_.setCurrentIndex(index);
    }
    void rename(Bookmark& node, const std::string& name) override { model_.rename(node, name); }
    void insert(Bookmark& folder, std::size_t index, Ref<Bookmark> item) override {
        model_.insert(folder, index, std::move(item));
    }

private:
    TreeModel model_;
    QTreeView view_;
};

} // namespace

std::unique_ptr<MeasuredView> makeTreeView(Bookmark& root) {
    return std::make_unique<ReferenceView>(root);
}

} // namespace tabulon::bench
