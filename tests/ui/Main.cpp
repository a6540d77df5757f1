// Runs the tests with an application object on a screen in memory.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(tabulon);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
