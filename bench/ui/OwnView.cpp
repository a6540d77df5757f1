// The program's own outline, with its controller, in a window without the other views.
#include "bench/ui/MeasuredViews.h"
#include "platform/fake/FakePlatform.h"
#include "ui/document/OutlineWidget.h"
#include "window/DocumentWindow.h"
#include "window/ViewController.h"

namespace tabulon::bench {
namespace {

class NoFindBar : public FindBar {
public:
    bool isFindBarShown() const override { return false; }
    void setFindBarShown(bool) override {}
    void selectSearchText() override {}
    bool hasKeyboard() const override { return false; }
    void setSearchText(const std::string&) override {}
    void setMatchesLabel(const std::string&) override {}
};

class OutlineAlone : public DocumentWindow {
public:
    explicit OutlineAlone(ViewController& controller) : widget(controller, nullptr) {}
    ~OutlineAlone() override { widget.detach(); }

    OutlineView& outline() override { return widget; }
    void setTitle(const std::string&, const std::string&, bool) override {}
    void setURLFieldText(const std::string&) override {}
    void setURLFieldAction(const std::string&, const std::string&) override {}
    void setURLFieldFontSize(double) override {}
    void showEmptyState(bool) override {}
    FindBar& findBar() override { return findBar_; }
    void presentMoveDelete(std::shared_ptr<MoveDeleteController>) override {}
    void presentInfo(std::shared_ptr<GetInfoController>) override {}
    void presentLegenda() override {}
    std::string frame() const override { return {}; }
    void setFrame(const std::string&) override {}
    bool isKeyWindow() const override { return false; }
    void show() override {}
    void makeKeyAndOrderFront() override {}
    void performMiniaturize() override {}

    OutlineWidget widget;

private:
    NoFindBar findBar_;
};

class NoCommands : public SharedCommands {
public:
    void grabAllHTML(const std::string&) override {}
    void showMarks(bool) override {}
};

class OwnView : public MeasuredView {
public:
    explicit OwnView(Bookmark& root) {
        document_.setMaster(Ref<Bookmark>(&root));
        controller_ = std::make_unique<ViewController>(document_, platform_.platform(), shared_);
        window_ = std::make_unique<OutlineAlone>(*controller_);
        controller_->setWindow(window_.get());
        window_->widget.setTableFont({}, kRowHeight * 72.0 / window_->widget.logicalDpiY());
    }

    QAbstractItemView& widget() override { return window_->widget; }
    void expandAll() override { controller_->outline().changeWholeExpansion(ExpansionChange::ExpandPlus); }
    void show(Bookmark& node) override { controller_->outline().selectRowOf(node); }
    void rename(Bookmark& node, const std::string& name) override {
        controller_->fields().endNameEdit(controller_->outline().rowForItem(node).value(), name);
    }
    void insert(Bookmark& folder, std::size_t index, Ref<Bookmark> item) override {
        controller_->outline().insertChild(folder, index, std::move(item));
    }

private:
    FakePlatform platform_;
    NoCommands commands_;
    SharedState shared_{commands_};
    Document document_{platform_.base.services()};
    std::unique_ptr<ViewController> controller_;
    std::unique_ptr<OutlineAlone> window_;
};

} // namespace

std::unique_ptr<MeasuredView> makeOwnView(Bookmark& root) {
    return std::make_unique<OwnView>(root);
}

} // namespace tabulon::bench
