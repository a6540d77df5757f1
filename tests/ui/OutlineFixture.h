// A document in a real outline on a screen in memory. Qt's own tester checks its model.
#pragma once

#include "tests/window/WindowFixture.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineWidget.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include <memory>
#include <string>
#include <vector>

namespace tabulon {

/// A window whose outline is the real one.
class WidgetWindow : public DocumentWindow {
public:
    explicit WidgetWindow(ViewController& controller) : widget(controller, nullptr) {
        widget.resize(900, 600);
        widget.show();
    }
    ~WidgetWindow() override { widget.detach(); }

    OutlineView& outline() override { return widget; }
    void setTitle(const std::string&, const std::string&, bool) override {}
    void setURLFieldText(const std::string& text) override { urlField = text; }
    void setURLFieldAction(const std::string&, const std::string&) override {}
    void setURLFieldFontSize(double) override {}
    void showEmptyState(bool) override {}
    FindBar& findBar() override { return bar; }
    void presentMoveDelete(std::shared_ptr<MoveDeleteController>) override {}
    void presentInfo(std::shared_ptr<GetInfoController>) override { ++presentedInfos; }
    void presentLegenda() override {}
    std::string frame() const override { return {}; }
    void setFrame(const std::string&) override {}
    bool isKeyWindow() const override { return active; }
    void show() override {}
    void makeKeyAndOrderFront() override {}
    void performMiniaturize() override {}

    OutlineWidget widget;
    MemoryFindBar bar;
    std::string urlField;
    int presentedInfos = 0;
    bool active = true; ///< whether the user works with it
};

class OutlineTest : public WindowTest {
protected:
    /// Closes the window that was open before.
    void openWidget() {
        closeWidget();
        document.setMaster(Ref<Bookmark>(&document.getMaster())); // sets the document of every node
        controller = std::make_unique<ViewController>(document, platform(), shared);
        widgetWindow = std::make_unique<WidgetWindow>(*controller);
        controller->setWindow(widgetWindow.get());
        tester = std::make_unique<QAbstractItemModelTester>(
            widget().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }
    void closeWidget() {
        tester.reset();
        widgetWindow.reset();
        controller.reset();
    }
    void TearDown() override { closeWidget(); }

    OutlineWidget& widget() { return widgetWindow->widget; }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&widget(), key, modifiers);
    }
    std::vector<std::string> shownNames() {
        std::vector<std::string> names;
        for (int row = 0; row < widget().model()->rowCount(); ++row)
            names.push_back(widget().model()->index(row, 0).data().toString().toStdString());
        return names;
    }
    QRect cell(int row, Column column) {
        return widget().visualRect(widget().model()->index(row, widget().header().sectionOf(column)));
    }
    int currentRow() { return widget().currentIndex().row(); }

    std::unique_ptr<WidgetWindow> widgetWindow;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

} // namespace tabulon
