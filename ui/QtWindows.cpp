#include "ui/QtWindows.h"

#include "ui/Icons.h"
#include "ui/Strings.h"
#include "ui/document/DocumentMainWindow.h"
#include "ui/document/FindBarWidget.h"
#include "ui/document/InfoSheet.h"
#include "ui/document/MarkSheets.h"
#include "ui/document/OutlineWidget.h"
#include "ui/versions/VersionsSheet.h"

#include <QApplication>
#include <QFile>

namespace tabulon {

/// The window as controllers own it. Its destructor hides the real window at once; that is deleted after all
/// of its own events were handled.
class QtWindows::Window : public DocumentWindow {
public:
    Window(QtWindows& owner, DocumentMainWindow* window) : owner_(owner), window_(window) {
        owner_.windows_.push_back(window);
    }
    ~Window() override {
        std::erase(owner_.windows_, window_);
        qDeleteAll(window_->findChildren<VersionsSheet*>()); // before their document is destroyed
        window_->detach();
        window_->hide();
        window_->deleteLater();
    }

    OutlineView& outline() override { return window_->outline(); }
    void setTitle(const std::string& name, const std::string& path, bool edited) override {
        window_->showTitle(toQString(name), QFile::decodeName(path.c_str()), edited);
    }
    void setURLFieldText(const std::string& text) override { window_->showURLFieldText(oneLine(text)); }
    void setURLFieldAction(const std::string& title, const std::string& description) override {
        window_->showURLFieldAction(toQString(title), oneLine(description));
    }
    void setURLFieldFontSize(double size) override { window_->setURLFieldFontSize(size); }
    void showEmptyState(bool empty) override { window_->showEmptyState(empty); }
    FindBar& findBar() override { return window_->findBar(); }
    void presentMoveDelete(std::shared_ptr<MoveDeleteController> controller) override {
        tabulon::presentMoveDelete(window_, controller, owner_.platform_.base.texts);
    }
    void presentInfo(std::shared_ptr<GetInfoController> controller) override {
        auto* sheet = new InfoSheet(std::move(controller), owner_.platform_.base.texts, window_);
        window_->findBar().hasKeyboard() ? sheet->presentBeside() : sheet->present();
    }
    void presentLegenda() override { tabulon::presentLegenda(window_, owner_.platform_.base.texts); }
    std::string frame() const override { return window_->frame(); }
    void setFrame(const std::string& frame) override { window_->setFrame(frame); }
    bool isKeyWindow() const override { return window_->isActiveWindow(); }
    void show() override { window_->show(); }
    void makeKeyAndOrderFront() override { window_->bringToFront(); }
    void performMiniaturize() override { window_->showMinimized(); }

private:
    QtWindows& owner_;
    DocumentMainWindow* window_;
};

QtWindows::QtWindows(AppDelegate& app, const Platform& platform) : app_(app), platform_(platform) {
    QApplication::setWindowIcon(iconNamed("tabulon"));
}

std::unique_ptr<DocumentWindow> QtWindows::makeWindow(ViewController& controller) {
    return std::make_unique<Window>(
        *this, new DocumentMainWindow(controller, app_, platform_.base.texts, platform_.state));
}

void QtWindows::presentVersions(std::shared_ptr<VersionsController> controller) {
    QWidget* window = windowFor(&controller->document());
    (new VersionsSheet(std::move(controller), window))->open();
}

QWidget* QtWindows::windowFor(const DocumentIdentity* document) const {
    for (DocumentMainWindow* window : windows_)
        if (document && window->document() == document)
            return window;
    return QApplication::activeWindow();
}

} // namespace tabulon
