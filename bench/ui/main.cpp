// tabulon_outline_bench [LINKS]: compares the program's own outline with QTreeView on the same tree, of about
// a million rows without LINKS, and prints a row of the table for each operation. Each view is measured in
// processes of its own, which alternate. Ends with status 1 if a result is wrong or, without LINKS, the
// target is missed.
#include "bench/Corpus.h"
#include "bench/Measure.h"
#include "bench/Sample.h"
#include "bench/ui/MeasuredViews.h"
#include "model/TreeWalk.h"

#include <fmt/format.h>
#include <unistd.h>

#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>

using namespace tabulon;
using namespace tabulon::bench;

namespace {

constexpr std::size_t kLinks = 910'000; // a million nodes
constexpr int kTurns = 3;
constexpr int kPages = 1'000;
constexpr int kRenames = 201;
constexpr int kInserts = 11;
constexpr double kTarget = 2; // × faster in at least one operation, and never slower
/// A node's link to its row in the own outline: a pointer and a place (RowLink), in every tree.
constexpr double kBytesOfRowLink = sizeof(void*) + sizeof(std::uint16_t);

/// The figures of one view: processor seconds and bytes.
struct Figures {
    double expand = 0;
    double page = 0;
    double rename = 0;
    double insert = 0;
    double bytes = 0;
};

class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& painted) : painted_(painted) { painted.installEventFilter(this); }

    /// Runs the event loop until the widget is painted. Ends the program if it is not.
    void paint() {
        const int before = paints_;
        for (int i = 0; i < 10 && paints_ == before; ++i)
            QApplication::processEvents();
        require(paints_ > before, "a view was not painted after a change");
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        paints_ += object == &painted_ && event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    QWidget& painted_;
    int paints_ = 0;
};

void collapseAll(Bookmark& root) {
    walkBelow(root, [](Bookmark& node) {
        node.setShowHier(false);
        return true;
    });
}

/// Returns a link near the middle of the tree.
Bookmark& linkInTheMiddle(Bookmark& root, std::size_t nodes) {
    Bookmark* found = nullptr;
    std::size_t number = 0;
    walkBelow(root, [&](Bookmark& node) {
        if (++number > nodes / 2 && !found && !node.isFolder() && !node.isSeparator())
            found = &node;
        return true;
    });
    require(found, "the corpus has no link in its second half");
    return *found;
}

template <class Work>
double secondsOf(Work work) {
    const double begin = processorSeconds();
    work();
    return processorSeconds() - begin;
}

/// Returns the median of the times of `work`, which is called with each number below `times`.
template <class Work>
double medianOf(int times, Work work) {
    std::vector<double> seconds;
    for (int i = 0; i < times; ++i)
        seconds.push_back(secondsOf([&] { work(i); }));
    std::ranges::sort(seconds);
    return seconds[seconds.size() / 2];
}

/// Returns the seconds for one page, on pages that are evenly distributed from the top to the bottom.
double secondsOfAPage(QAbstractItemView& view, PaintCounter& counter) {
    QScrollBar& bar = *view.verticalScrollBar();
    const int pages = std::min(kPages, bar.maximum() / bar.pageStep());
    require(pages > 0, "the tree is too small to be scrolled");
    const double seconds = secondsOf([&] {
        for (int page = 0; page < pages; ++page) {
            bar.setValue(static_cast<int>(static_cast<qint64>(bar.maximum()) * (page + 1) / pages));
            counter.paint();
        }
    });
    require(bar.value() == bar.maximum(), "a view was not scrolled to its end");
    return seconds / pages;
}

void requireRows(QAbstractItemView& view, std::size_t rows) {
    const auto height =
        static_cast<std::size_t>(view.verticalScrollBar()->maximum() + view.viewport()->height());
    require(height / MeasuredView::kRowHeight == rows,
            "a view shows another number of rows than the tree has");
}

Figures measure(bool own, std::size_t links) {
    const Ref<Bookmark> root = makeCorpus(links);
    const std::size_t nodes = sizeOf(*root).nodes;
    collapseAll(*root);
    const auto before = static_cast<double>(residentAnonymousBytes());
    const std::unique_ptr<MeasuredView> measured = own ? makeOwnView(*root) : makeTreeView(*root);
    QAbstractItemView& view = measured->widget();
    view.resize(1024, 768);
    PaintCounter counter(*view.viewport());
    view.show();
    counter.paint();

    Figures figures;
    figures.expand = secondsOf([&] {
        measured->expandAll();
        counter.paint();
    });
    figures.bytes = static_cast<double>(residentAnonymousBytes()) - before +
                    (own ? kBytesOfRowLink * static_cast<double>(nodes) : 0);
    requireRows(view, nodes);
    figures.page = secondsOfAPage(view, counter);
    Bookmark& link = linkInTheMiddle(*root, nodes);
    measured->show(link);
    counter.paint();
    const QImage picture = view.grab().toImage();
    figures.rename = medianOf(kRenames, [&](int i) {
        measured->rename(link, fmt::format("renamed {}", i));
        counter.paint();
    });
    require(view.grab().toImage() != picture, "a view does not show the new name");
    Bookmark& folder = *link.getParent();
    const std::size_t place = folder.getChildren()->indexOf(link);
    figures.insert = medianOf(kInserts, [&](int) {
        measured->insert(folder, place, Bookmark::init(Date()));
        counter.paint();
    });
    requireRows(view, nodes + kInserts);
    return figures;
}

Figures figuresOf(std::string_view view, std::size_t links) {
    std::istringstream output(outputOf(fmt::format("/proc/{}/exe --view {} {}", getpid(), view, links)));
    Figures figures;
    output >> figures.expand >> figures.page >> figures.rename >> figures.insert >> figures.bytes;
    require(!output.fail(), "a view could not be measured");
    return figures;
}

void keepBest(Figures& best, const Figures& turn) {
    for (double Figures::*figure :
         {&Figures::expand, &Figures::page, &Figures::rename, &Figures::insert, &Figures::bytes})
        best.*figure = best.*figure == 0 ? turn.*figure : std::min(best.*figure, turn.*figure);
}

std::string megabytes(double bytes) {
    return fmt::format("{:.1f} MB", bytes / 1e6);
}

std::string fineMilliseconds(double seconds) {
    return fmt::format("{:.2f} ms", seconds * 1000);
}

int compare(std::size_t links, bool judged) {
    Figures own;
    Figures tree;
    for (int turn = 0; turn < kTurns; ++turn) {
        keepBest(own, figuresOf("own", links));
        keepBest(tree, figuresOf("tree", links));
    }
    struct Work {
        const char* name;
        double Figures::*figure;
        std::string (*text)(double);
    };
    const Work works[] = {{"expand all", &Figures::expand, fineMilliseconds},
                          {"scroll to a page", &Figures::page, fineMilliseconds},
                          {"rename a row", &Figures::rename, fineMilliseconds},
                          {"insert a row", &Figures::insert, fineMilliseconds},
                          {"memory with all expanded", &Figures::bytes, megabytes}};
    const std::size_t rows = sizeOf(*makeCorpus(links)).nodes;
    double best = 0;
    double worst = std::numeric_limits<double>::infinity();
    for (const Work& work : works) {
        best = std::max(best, tree.*work.figure / own.*work.figure);
        worst = std::min(worst, tree.*work.figure / own.*work.figure);
    }
    std::vector<Row> table;
    for (const Work& work : works) {
        const double ratio = tree.*work.figure / own.*work.figure;
        table.push_back({fmt::format("outline of {} rows: {}", rows, work.name), work.text(own.*work.figure),
                         "`QTreeView` on the same tree: " + work.text(tree.*work.figure),
                         fmt::format("{:.1f} × less", ratio), "no more in any, 2 × less in one",
                         verdict({.judged = judged}, ratio >= 1 && best >= kTarget)});
    }
    fmt::print("{}", markdown(table));
    return judged && (worst < 1 || best < kTarget) ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view command = argc > 1 ? argv[1] : "";
    if (command != "--view" && argc <= 2)
        return compare(argc > 1 ? std::strtoul(argv[1], nullptr, 10) : kLinks, argc == 1);
    const std::string_view view = argc == 4 ? argv[2] : "";
    if (view != "own" && view != "tree") {
        fmt::print(stderr, "usage: tabulon_outline_bench [LINKS]\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    Q_INIT_RESOURCE(tabulon);
    const Figures figures = measure(view == "own", std::strtoul(argv[3], nullptr, 10));
    fmt::print("{} {} {} {} {}\n", figures.expand, figures.page, figures.rename, figures.insert,
               figures.bytes);
    return 0;
}
