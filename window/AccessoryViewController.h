// The options area of the export panel: a menu of formats, and check boxes for settings. Its view is in ui/;
// ExportCommands runs the panel.
#pragma once

#include "base/BaseServices.h"
#include "platform/Panels.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tabulon {

struct ExportFormat;

/// Returns the kind of the format's files for a panel: the format's title in the user's language and its one
/// extension.
FileKind exportFileKind(const ExportFormat& format, const Localization& texts);

/// The state of one check box.
struct CheckBox {
    /// Whether the box is ticked.
    bool on = false;
    /// Whether the box is hidden, because the chosen format does not have the option.
    bool hidden = false;
};

/// The state of the options area. Nothing is stored in the settings before `savePreferences`.
class AccessoryViewController : public PanelAccessory {
public:
    /// Requires: the services outlive this object.
    explicit AccessoryViewController(const BaseServices& services) : services_(services) {}

    /// Sets every check box from its setting, chooses the first format, and hides the boxes of options that
    /// this format does not have. Writes a line to the log.
    void viewDidLoad() override;
    /// Returns the titles of the formats in the user's language, in the order of the menu.
    std::vector<std::string> exportTypes() const;
    /// Hides the check boxes of options that the format at `index` of the menu does not have, and changes the
    /// file kind of the panel to that of the format. Requires: index < exportTypes().size().
    void exportTypeSelected(std::size_t index);
    /// Stores every check box in its setting. Does nothing if `viewDidLoad` was never called.
    void savePreferences();

    /// Returns the panel that contains the area, or `nullptr` while there is none. Not owned.
    SavePanelControl* panel() const { return panel_; }
    /// Sets the panel that contains the area; `nullptr` when the panel is closed. Does not take ownership.
    void setPanel(SavePanelControl* panel) override { panel_ = panel; }

    /// Returns whether `viewDidLoad` was called.
    bool loaded() const { return loaded_; }

    /// Returns how much higher the area is than with the first format, in points of 1/72 inch:
    /// `kTextOptionsHeight` while the options of text files are shown, else 0.
    double addedHeight() const { return addedHeight_; }
    static constexpr double kTextOptionsHeight = 100;

    // The check boxes. The view shows them, and sets `on` when the user clicks one. The comment names the
    // setting.

    CheckBox exportName;     ///< "ExportName"
    CheckBox exportURL;      ///< "ExportURL"
    CheckBox exportTags;     ///< "ExportTags"
    CheckBox exportNote;     ///< "ExportNote"
    CheckBox sortByName;     ///< "ExportSortName"
    CheckBox skipFolders;    ///< "SkipFolders"
    CheckBox skipSeparators; ///< "SkipSeparators"
    CheckBox saveCopyHTML;   ///< "SaveAsHTML"

private:
    /// Hides the boxes of options that the format does not have.
    void showOptionsOf(std::size_t index);

    const BaseServices services_;
    SavePanelControl* panel_ = nullptr;
    bool loaded_ = false;
    double addedHeight_ = 0;
};

} // namespace tabulon
