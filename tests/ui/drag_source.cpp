// A program for other tests: a window from which files can be dragged. It is called as drag_source ACTIONS
// URI…, where ACTIONS is "copy", "move" or both with a comma. When the drag has ended it prints the action
// that was performed, and exits.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace {

class Source : public QWidget {
public:
    Source(Qt::DropActions actions, QByteArray uris) : actions_(actions), uris_(std::move(uris)) {}

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* files = new QMimeData;
        files->setData("text/uri-list", uris_);
        auto* drag = new QDrag(this); // deleted by Qt after the files were fetched
        drag->setMimeData(files);
        const Qt::DropAction preferred = actions_.testFlag(Qt::MoveAction) ? Qt::MoveAction : Qt::CopyAction;
        const Qt::DropAction result = drag->exec(actions_, preferred);
        std::puts(result == Qt::CopyAction ? "copy" : result == Qt::MoveAction ? "move" : "nothing");
        // The target may fetch the files after the drag has ended.
        QTimer::singleShot(2000, qApp, [] { QCoreApplication::exit(0); });
    }

private:
    Qt::DropActions actions_;
    QByteArray uris_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 3)
        return 2;
    const QByteArray names = argv[1];
    Qt::DropActions actions;
    actions.setFlag(Qt::CopyAction, names.contains("copy"));
    actions.setFlag(Qt::MoveAction, names.contains("move"));
    QByteArray uris;
    for (int i = 2; i < argc; ++i)
        uris += QByteArray(argv[i]) + "\r\n";
    Source source(actions, uris);
    source.setWindowTitle("drag source");
    source.setGeometry(1000, 500, 200, 200);
    source.show();
    return QApplication::exec();
}
