// The table as a whole: the font of its cells, the height of its rows, and the tags column. What cells show
// is in OutlineCells.
#pragma once

#include "platform/Platform.h"
#include "window/CellContent.h"

namespace tabulon {

class ActionTable;
class Outline;
class WindowController;
struct FindPhases;

/// The direction of a step.
enum class FontSizeStep { Larger, Smaller };

/// Adds the actions "zoomIn:" and "zoomOut:". Lengths are in points of 1/72 inch.
class TableSettings {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    TableSettings(Outline& outline, const WindowController& window, const Platform& platform,
                  FindPhases& findPhases, ActionTable& actions);

    /// Applies the settings to the view. A font of 11 points sets the row height to 17 points. Called when
    /// the window exists.
    void viewDidLoad();

    /// Returns the font of the cells, from the settings.
    OutlineFont font() const;
    /// Returns the height of every row, from the settings.
    double rowHeight() const;

    // Font size. One step changes the size and the row height by one point. A step beyond the smallest or the
    // largest size does nothing.

    /// Makes the font one step larger.
    void zoomIn();
    /// Makes the font one step smaller.
    void zoomOut();
    /// Makes the font one step larger or smaller.
    void moveTableFontSize(FontSizeStep step);
    /// Stores both values and shows the cells with them. The URL field has the same size if it is at least 11
    /// and less than 14.
    void setTableFontSizeRowHeight(double size, double rowHeight);
    /// In points.
    static constexpr double kSmallestFontSize = 6;
    /// In points.
    static constexpr double kLargestFontSize = 64;

    // The tags column. It is shown in a new window where the setting "AddTagsColumn" is on.

    /// Shows the tags column at its stored place and width, and searches tags together with names. Shows
    /// nothing new if it is shown already.
    void addTagsColumn();
    /// Hides the tags column, and searches tags apart from names.
    void removeTagsColumn();
    /// Stores the place of the tags column, if it is shown. Called when the user has moved a column.
    void outlineViewColumnDidMove();
    /// Stores the width of the tags column. Called when the user has changed it.
    void tagsColumnDidResize(double width);

private:
    /// Returns whether a step stays within the two limits.
    bool canMoveTableFontSize(FontSizeStep step) const;
    /// Sets the font size of the URL field, if it takes this size.
    void fitURLField(double fontSize);

    Outline& outline_;
    const WindowController& window_;
    const Platform platform_;
    FindPhases& findPhases_;
};

} // namespace tabulon
