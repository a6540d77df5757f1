// The real progress panel: when it is shown, the user's actions in it, and the operations that wait until it
// is closed.
#include "platform/linux/QtProgressPanels.h"
#include "platform/linux/QtTimers.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace tabulon {
namespace {

class ProgressPanelsTest : public testing::Test {
protected:
    static QDialog* dialog() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<QDialog*>(widget); found && found->findChild<QProgressBar*>())
                return found;
        return nullptr;
    }

    // Works for this time, or until it is cancelled. Returns false if it was cancelled.
    static bool work(Progress& progress, qint64 milliseconds, double fraction = 0.5) {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < milliseconds)
            if (!progress.goOn(fraction))
                return false;
        return true;
    }

    QtProgressPanels panels{[](const DocumentIdentity*) { return nullptr; }};
    const ProgressPanel panel{.message = "Exporting <b>“Links”", .cancel = "Cancel"};
};

TEST_F(ProgressPanelsTest, ShortWorkShowsNothing) {
    const auto progress = panels.begin(panel);
    EXPECT_TRUE(work(*progress, 300));
    EXPECT_FALSE(panels.isShowing());
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(ProgressPanelsTest, LongWorkShowsHowFarItIsUntilItIsDone) {
    {
        const auto progress = panels.begin(panel);
        EXPECT_TRUE(work(*progress, 700, 0.25));
        EXPECT_TRUE(panels.isShowing());
        ASSERT_NE(dialog(), nullptr);
        EXPECT_TRUE(dialog()->isVisible());
        EXPECT_TRUE(dialog()->isModal());
        const auto* bar = dialog()->findChild<QProgressBar*>();
        EXPECT_EQ(bar->value() * 4, bar->maximum());
        EXPECT_TRUE(work(*progress, 100, 0.75));
        EXPECT_EQ(bar->value() * 4, bar->maximum() * 3);
    }
    EXPECT_FALSE(panels.isShowing());
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(ProgressPanelsTest, ButtonAndEscapeCancelForGood) {
    const auto cancelBy = [this](const std::function<void()>& act) {
        const auto progress = panels.begin(panel);
        EXPECT_TRUE(work(*progress, 600));
        ASSERT_NE(dialog(), nullptr);
        act();
        EXPECT_FALSE(work(*progress, 1000));
        EXPECT_FALSE(progress->goOn(1));
    };
    cancelBy([] { QTest::mouseClick(dialog()->findChild<QPushButton*>(), Qt::LeftButton); });
    cancelBy([] { QTest::keyClick(dialog(), Qt::Key_Escape); });
    cancelBy([] { dialog()->close(); });
}

TEST_F(ProgressPanelsTest, TimersWaitUntilTheWorkIsDone) {
    QtTimers timers([this] { return panels.isShowing(); });
    int once = 0;
    int often = 0;
    const auto first = timers.after(0.55, [&once] { ++once; });
    const auto second = timers.every(0.01, [&often] { ++often; });
    auto progress = panels.begin(panel);
    EXPECT_TRUE(work(*progress, 900));
    EXPECT_EQ(once, 0);
    EXPECT_EQ(often, 0) << "nothing is served from inside the work, shown or not";
    progress.reset();
    QTest::qWait(200);
    EXPECT_EQ(once, 1);
    EXPECT_GT(often, 2);
}

} // namespace
} // namespace tabulon
