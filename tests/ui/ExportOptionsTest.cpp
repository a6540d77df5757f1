// The options area of the export panel in the real panel: the options of each format, the name of the file,
// the keyboard.
#include "ui/ExportOptions.h"

#include "base/Settings.h"
#include "platform/fake/FakeBaseServices.h"
#include "platform/linux/QtPanels.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace tabulon {
namespace {

class ExportOptionsTest : public testing::Test, private AccessoryViewMaker {
protected:
    ~ExportOptionsTest() override { delete dialog(); }

    void open() {
        panels.beginSavePanel({.message = "m",
                               .prompt = "Export",
                               .directory = folder.path().toStdString(),
                               .proposedName = "My Links",
                               .kind = {"HTML", {"html"}},
                               .accessory = options},
                              [this](const std::optional<std::string>& path) {
                                  chosen = path;
                                  ++answers;
                              });
        ASSERT_NE(dialog(), nullptr);
    }

    static QFileDialog* dialog() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* panel = qobject_cast<QFileDialog*>(widget))
                return panel;
        return nullptr;
    }
    QComboBox& formats() { return *dialog()->findChild<ExportOptions*>()->findChild<QComboBox*>(); }
    QLineEdit& name() { return *dialog()->findChild<QLineEdit*>("fileNameEdit"); }
    QStringList shownBoxes() {
        QStringList titles;
        for (const QCheckBox* box : dialog()->findChild<ExportOptions*>()->findChildren<QCheckBox*>())
            if (box->isVisible())
                titles << box->text().remove('&');
        return titles;
    }
    QCheckBox& box(const QString& title) {
        for (QCheckBox* box : dialog()->findChildren<QCheckBox*>())
            if (box->text().remove('&') == title)
                return *box;
        throw std::logic_error("no box " + title.toStdString());
    }
    // Accepts the dialog. It deletes itself and reports the answer from the main loop.
    void accept() {
        const int before = answers;
        QMetaObject::invokeMethod(dialog(), "accept");
        EXPECT_EQ(answers, before) << "not from inside the dialog";
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory) override {
        return tabulon::makeAccessoryView(accessory, base.texts);
    }

    FakeBaseServices base;
    QTemporaryDir folder;
    QtPanels panels{[](const DocumentIdentity*) { return nullptr; }, this};
    std::shared_ptr<AccessoryViewController> options =
        std::make_shared<AccessoryViewController>(base.services());
    std::optional<std::string> chosen;
    int answers = 0;
};

TEST_F(ExportOptionsTest, EachFormatShowsItsOwnOptionsAndNamesTheFile) {
    open();
    EXPECT_EQ(name().text(), "My Links.html");
    const QString copy = QString::fromStdString(base.texts.text("SaveAsHTML"));
    EXPECT_EQ(shownBoxes(), (QStringList{"Sort by name", copy}));
    formats().setCurrentIndex(1);
    EXPECT_EQ(name().text(), "My Links.xbel");
    EXPECT_EQ(shownBoxes(), QStringList{"Sort by name"});
    formats().setCurrentIndex(2);
    EXPECT_EQ(name().text(), "My Links.txt");
    EXPECT_EQ(shownBoxes(),
              (QStringList{"Sort by name", "Names", "URLs", "Tags", "Notes", "Folders", "Separators"}));
    formats().setCurrentIndex(0);
    EXPECT_EQ(shownBoxes(), (QStringList{"Sort by name", copy}));
}

TEST_F(ExportOptionsTest, PanelGrowsByAHundredPointsForTextAndBack) {
    open();
    auto* area = dialog()->findChild<ExportOptions*>();
    const int points = static_cast<int>(std::lround(100.0 * area->logicalDpiY() / 72));
    const int before = area->height();
    const int panelBefore = dialog()->height();
    formats().setCurrentIndex(2);
    EXPECT_EQ(area->height(), before + points);
    EXPECT_EQ(dialog()->height(), panelBefore + points);
    formats().setCurrentIndex(1);
    EXPECT_EQ(area->height(), before);
    EXPECT_EQ(dialog()->height(), panelBefore);
}

TEST_F(ExportOptionsTest, BoxesShowTheSettingsAndGiveBackWhatTheUserTicks) {
    setValue(base.defaults, settings::kExportTags, false);
    open();
    formats().setCurrentIndex(2);
    EXPECT_TRUE(box("Names").isChecked());
    EXPECT_FALSE(box("Tags").isChecked());
    QTest::mouseClick(&box("Tags"), Qt::LeftButton, {}, QPoint(8, box("Tags").height() / 2));
    box("Folders").click();
    EXPECT_TRUE(options->exportTags.on);
    EXPECT_FALSE(options->skipFolders.on);
}

TEST_F(ExportOptionsTest, TypedExtensionStaysAndAMissingOneIsAdded) {
    open();
    formats().setCurrentIndex(1);
    name().setText("other.html");
    accept();
    EXPECT_EQ(chosen, folder.path().toStdString() + "/other.html");
    open();
    formats().setCurrentIndex(1);
    name().setText("other");
    accept();
    EXPECT_EQ(chosen, folder.path().toStdString() + "/other.xbel");
    EXPECT_EQ(answers, 2);
}

TEST_F(ExportOptionsTest, NameThatTheUserChangedGetsTheExtensionOfAFormatChosenLater) {
    open();
    name().setText("notes.xml");
    formats().setCurrentIndex(1);
    EXPECT_EQ(name().text(), "notes.xbel");
    name().setText("notes.html");
    EXPECT_EQ(name().text(), "notes.html");
}

TEST_F(ExportOptionsTest, EveryControlHasALetterOfItsOwnAndIsReachedByTab) {
    open();
    formats().setCurrentIndex(2);
    QSet<QKeySequence> letters{QKeySequence::mnemonic(dialog()->findChild<QLabel*>("fileNameLabel")->text())};
    for (const QPushButton* button : dialog()->findChildren<QPushButton*>())
        if (button->isVisible() && !QKeySequence::mnemonic(button->text()).isEmpty())
            letters.insert(QKeySequence::mnemonic(button->text()));
    EXPECT_EQ(letters.size(), 2);
    qsizetype expected = letters.size();
    for (const QCheckBox* box : dialog()->findChildren<QCheckBox*>()) {
        EXPECT_FALSE(QKeySequence::mnemonic(box->text()).isEmpty()) << box->text().toStdString();
        letters.insert(QKeySequence::mnemonic(box->text()));
        EXPECT_EQ(letters.size(), ++expected) << box->text().toStdString();
    }
    const QWidget* next = &name();
    QStringList reached;
    do {
        next = next->nextInFocusChain();
        if (next->isVisible() && next->focusPolicy() & Qt::TabFocus)
            reached << next->metaObject()->className();
    } while (!qobject_cast<const QPushButton*>(next));
    EXPECT_EQ(reached.mid(0, 8), (QStringList{"QComboBox"} + QStringList(7, "QCheckBox")));
}

TEST_F(ExportOptionsTest, AnswerMayTakeLongAndHandleEvents) {
    open();
    bool gone = false;
    QObject::connect(dialog(), &QObject::destroyed, [&gone] { gone = true; });
    panels.beginSavePanel(
        {.directory = folder.path().toStdString(), .proposedName = "b", .kind = {"L", {"l"}}},
        [&](const std::optional<std::string>&) {
            QCoreApplication::processEvents();
            ++answers;
        });
    QTimer::singleShot(0, [] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* panel = qobject_cast<QFileDialog*>(widget))
                panel->findChild<QPushButton*>()->click();
    });
    QTest::qWait(100);
    EXPECT_EQ(answers, 2);
    EXPECT_TRUE(gone);
}

TEST_F(ExportOptionsTest, PanelWithoutOptionsHasNone) {
    panels.beginSavePanel({.message = "m", .prompt = "Save", .kind = {"Links", {"webloc"}}},
                          [](const std::optional<std::string>&) {});
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->findChild<ExportOptions*>(), nullptr);
}

TEST_F(ExportOptionsTest, ProposedNameIsOneThatAFileCanHave) {
    const auto offered = [this](std::string proposed) {
        panels.beginSavePanel({.proposedName = std::move(proposed), .kind = {"Links", {"webloc"}}},
                              [](const std::optional<std::string>&) {});
        const QString text = name().text();
        delete dialog();
        return text;
    };
    EXPECT_EQ(offered("and/or"), "and-or.webloc");
    EXPECT_EQ(offered("two\nlines  \x7f"), "two lines   .webloc");
    std::string bookmarks;
    for (int i = 0; i < 200; ++i)
        bookmarks += "\U0001F516";
    const QString cut = offered(bookmarks);
    EXPECT_LE(cut.toUtf8().size(), 255);
    EXPECT_TRUE(cut.toStdString().starts_with(bookmarks.substr(0, 236))) << "as much as there is room for";
    EXPECT_TRUE(cut.endsWith(QString::fromUtf8("\U0001F516.webloc"))) << "no half of a character";
}

TEST_F(ExportOptionsTest, OptionsOutliveTheirPanelAndForgetIt) {
    open();
    EXPECT_NE(options->panel(), nullptr);
    delete dialog();
    EXPECT_EQ(options->panel(), nullptr);
    options->exportTypeSelected(1);
    EXPECT_EQ(answers, 0);
}

} // namespace
} // namespace tabulon
