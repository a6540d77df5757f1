// A program with an empty Qt window: the reference of bench/window.py for the window of an empty document.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(900, 600);
    window.show();
    return QApplication::exec();
}
