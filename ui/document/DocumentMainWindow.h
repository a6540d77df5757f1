// The window of one document: menu bar, find bar, outline or empty state, URL field. It reports what the user
// does to the outline controller and to the application delegate. It makes no decisions.
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

/// The window. Texts are ready to be shown.
class DocumentMainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `state` stores the size of the window and its columns from one run to the next. The caller owns the
    /// window. Requires: the arguments exist until `detach` is called.
    DocumentMainWindow(ViewController& controller, AppDelegate& app, const Localization& texts,
                       UserDefaults& state);

    /// Detaches the window from the controller. Called before the controller is destroyed; the window is
    /// hidden and deleted after that.
    void detach();

    /// Returns the view of the rows, which exists as long as the window.
    OutlineWidget& outline() const { return *outline_; }
    /// Returns the find bar, which exists as long as the window.
    FindBarWidget& findBar() const { return *findBar_; }
    /// Returns the document, or `nullptr` after `detach`.
    Document* document() const;

    /// Shows the name with the program's name, and the mark of unsaved changes if `edited` is true. `path` is
    /// the document's file, empty for none.
    void showTitle(const QString& name, const QString& path, bool edited);
    /// Shows the text in the URL field. Requires: it has one line.
    void showURLFieldText(const QString& text);
    /// Shows a button beside the URL field, or hides it if `title` is empty. `description` is its tool tip
    /// and its description for screen readers.
    void showURLFieldAction(const QString& title, const QString& description);
    /// Shows the URL field in the system's font in this size, in points. Requires: points > 0.
    void setURLFieldFontSize(double points);
    /// Shows the empty state instead of the rows, or the rows again. The keyboard moves to what is shown,
    /// unless the find bar has it.
    void showEmptyState(bool empty);
    /// Shows the window, restores it if it is minimized, raises and activates it, and makes its document the
    /// current one.
    void bringToFront();
    /// Returns "x y width height" in pixels of the desktop, without the window manager's border; of a
    /// maximized or full-screen window, its place before.
    std::string frame() const;
    /// Moves and resizes the window to such a place, but not below its smallest size. Where no screen
    /// contains the middle of that place, only resizes the window, within its screen. Does nothing for any
    /// other text.
    void setFrame(const std::string& frame);

protected:
    /// Ignores the event and asks the document controller to close the document, which may show a question.
    /// The window is closed when its document is.
    void closeEvent(QCloseEvent* event) override;
    /// Makes the document the current one when the window becomes the active one.
    void changeEvent(QEvent* event) override;
    /// Stores the size for the next window, unless the window is hidden, maximized or on the full screen.
    void resizeEvent(QResizeEvent* event) override;
    /// Accepts files, and over the empty state links as well.
    void dragEnterEvent(QDragEnterEvent* event) override;
    /// Accepts the same as `dragEnterEvent`.
    void dragMoveEvent(QDragMoveEvent* event) override;
    /// Ends the drag over the outline.
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    /// Inserts links that are dropped on the empty state. Opens dropped files after the event, from the main
    /// loop, because an alert would block the program that they are from.
    void dropEvent(QDropEvent* event) override;

private:
    /// Restores the stored columns, and stores what the user changes.
    void rememberColumns();
    /// Resizes the window to the size of the last one that the user has resized, within its screen.
    void restoreGeometryOfLastWindow();
    /// Returns whether a drop is inserted into the document, and not opened as files: links on the empty
    /// state.
    bool takesLinks(const QDropEvent& event) const;
    /// Opens dropped files, which are URIs. With `intoDocument`, files that cannot be opened become
    /// bookmarks. May show an alert. Requires: `detach` was not called.
    void takeFiles(const std::vector<std::string>& files, bool intoDocument);
    /// Makes the document the current one. Does nothing after `detach`.
    void becomeKey();

    /// `nullptr` after `detach`.
    ViewController* controller_;
    AppDelegate& app_;
    UserDefaults& state_;
    /// The widgets are owned by this window. `pages_` shows either the rows or the empty state.
    QStackedWidget* pages_;
    OutlineWidget* outline_;
    EmptyState* emptyState_;
    FindBarWidget* findBar_;
    StatusLineWidget* urlField_;
};

} // namespace tabulon
