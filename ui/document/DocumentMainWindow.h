// The window of one document: menu bar, outline or empty state, URL field. It reports what the user does to
// the outline controller and to the application delegate, and decides nothing.
#pragma once

#include "base/UserDefaults.h"

#include <QMainWindow>

class QStackedWidget;

namespace tabulon {

class AppDelegate;
class Document;
class EmptyState;
class FindBarWidget;
class Localization;
class OutlineWidget;
class StatusLineWidget;
class ViewController;

class DocumentMainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// All must live until `detach`. `state` keeps the window's size and its columns from one run to the
    /// next.
    DocumentMainWindow(ViewController& controller, AppDelegate& app, const Localization& texts,
                       UserDefaults& state);

    /// Forgets the controller; the window goes soon after.
    void detach();

    OutlineWidget& outline() const { return *outline_; }
    FindBarWidget& findBar() const { return *findBar_; }
    /// Null after `detach`.
    Document* document() const;

    void showTitle(const QString& name, const QString& path, bool edited);
    void showURLFieldText(const QString& text);
    /// A button beside the URL field; none for an empty title.
    void showURLFieldAction(const QString& title, const QString& description);
    void setURLFieldFontSize(double points);
    void showEmptyState(bool empty);
    void bringToFront();
    /// "x y width height" in the desktop's coordinates, without the window manager's border.
    std::string frame() const;
    /// Takes place and size from such a text as far as the screen has them; any other text is passed over.
    void setFrame(const std::string& frame);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void rememberColumns();
    void restoreGeometryOfLastWindow();
    bool takesLinks(const QDropEvent& event) const;
    void takeFiles(const std::vector<std::string>& files, bool intoDocument);
    void becomeKey();

    ViewController* controller_;
    AppDelegate& app_;
    UserDefaults& state_;
    QStackedWidget* pages_;
    OutlineWidget* outline_;
    EmptyState* emptyState_;
    FindBarWidget* findBar_;
    StatusLineWidget* urlField_;
};

} // namespace tabulon
