// The table as a whole: the font of its cells, the height of its rows, the tags column. What cells show is
// OutlineCells'.
#pragma once

#include "platform/Platform.h"
#include "window/CellContent.h"

namespace tabulon {

class ActionTable;
class Outline;
class WindowController;
struct FindPhases;

enum class FontSizeStep { Larger, Smaller };

/// Adds the actions "zoomIn:" and "zoomOut:". Lengths are in points of 1/72 inch.
class TableSettings {
public:
    /// What is handed in must live longer.
    TableSettings(Outline& outline, const WindowController& window, const Platform& platform,
                  FindPhases& findPhases, ActionTable& actions);

    /// Applies what is stored. Called when the window is there.
    void viewDidLoad();

    OutlineFont font() const;
    /// Returns the height of every row.
    double rowHeight() const;

    // Font size. One step changes the size and the row height by one point, within the two limits.

    void zoomIn();
    void zoomOut();
    void moveTableFontSize(FontSizeStep step);
    /// Shows and stores both. A size from 11 up to, not including, 14 is the URL field's as well.
    void setTableFontSizeRowHeight(double size, double rowHeight);
    static constexpr double kSmallestFontSize = 6;
    static constexpr double kLargestFontSize = 64;

    // The tags column. It is shown in a new window where the setting "AddTagsColumn" is on.

    void addTagsColumn();
    void removeTagsColumn();
    /// The user has moved a column.
    void outlineViewColumnDidMove();
    /// The user has made the tags column this wide.
    void tagsColumnDidResize(double width);

private:
    bool canMoveTableFontSize(FontSizeStep step) const;
    void fitURLField(double fontSize);

    Outline& outline_;
    const WindowController& window_;
    const Platform platform_;
    FindPhases& findPhases_;
};

} // namespace tabulon
