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
    /// `state` stores the size of the window and its columns from one run to the next. Requires: the
    /// arguments exist until `detach` is called.
    DocumentMainWindow(ViewController& controller, AppDelegate& app, const Localization& texts,
                       UserDefaults& state);

    /// Detaches the window from the controller. Called before the controller is destroyed; the window is
    /// hidden and deleted after that.
    void detach();

    /// Returns the view of the rows.
    OutlineWidget& outline() const { return *outline_; }
    /// Returns the find bar.
    FindBarWidget& findBar() const { return *findBar_; }
    /// Returns the document, or `nullptr` after `detach`.
    Document* document() const;

    /// Shows the name with the program's name, and the mark of unsaved changes if `edited` is true. `path` is
    /// the document's file, empty for none.
    void showTitle(const QString& name, const QString& path, bool edited);
    /// Shows the text in the URL field.
    void showURLFieldText(const QString& text);
    /// Shows a button beside the URL field, or hides it if `title` is empty. `description` is its tool tip
    /// and its description for screen readers.
    void showURLFieldAction(const QString& title, const QString& description);
    /// Shows the URL field in the system's font in this size, in points.
    void setURLFieldFontSize(double points);
    /// Shows the empty state instead of the rows, or the rows again. The keyboard moves to what is shown,
    /// unless the find bar has it.
    void showEmptyState(bool empty);
    /// Shows the window, restores it if it is minimized, raises and activates it.
    void bringToFront();
    /// Returns "x y width height" in pixels of the desktop, without the window manager's border; of a
    /// maximized window, its place before.
    std::string frame() const;
    /// Moves and resizes the window to such a place. Where no screen contains the middle of that place, only
    /// resizes the window, within its screen. Does nothing for any other text.
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
    /// Restores the stored columns, and stores what the user changes.
    void rememberColumns();
    /// Gives the window the size of the last one that the user has resized, as far as the screen has room.
    void restoreGeometryOfLastWindow();
    /// Returns whether a drop is inserted into the document, and not opened as files.
    bool takesLinks(const QDropEvent& event) const;
    /// Opens dropped files. With `intoDocument`, files that cannot be opened become bookmarks.
    void takeFiles(const std::vector<std::string>& files, bool intoDocument);
    /// Makes the document the current one.
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
