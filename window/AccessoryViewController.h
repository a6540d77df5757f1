// The options area of the export panel: a menu of formats and check boxes that stand for settings. What it
// looks like is ui/'s affair, running the panel the outline controller's.
#pragma once

#include "base/BaseServices.h"
#include "platform/Panels.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tabulon {

struct ExportFormat;

/// The kind of the format's files, as a panel offers it.
FileKind exportFileKind(const ExportFormat& format, const Localization& texts);

struct CheckBox {
    bool on = false;
    /// The chosen format has no such option.
    bool hidden = false;
};

class AccessoryViewController : public PanelAccessory {
public:
    /// The services must live longer.
    explicit AccessoryViewController(const BaseServices& services) : services_(services) {}

    /// Sets every check box from its setting; the first format is chosen.
    void viewDidLoad() override;
    /// What people call the formats, in the order of the menu.
    std::vector<std::string> exportTypes() const;
    /// The format at `index` of the menu was chosen: the panel names files accordingly, and the check boxes
    /// that the format has no use for are hidden.
    void exportTypeSelected(std::size_t index);
    /// Writes every check box back to its setting, if the view was loaded at all.
    void savePreferences();

    SavePanelControl* panel() const { return panel_; }
    void setPanel(SavePanelControl* panel) override { panel_ = panel; }

    bool loaded() const { return loaded_; }

    /// How much higher the area is than with the first format alone, in points of 1/72 inch: 100 as long as
    /// the options of text are shown, else 0.
    double addedHeight() const { return addedHeight_; }
    static constexpr double kTextOptionsHeight = 100;

    // The check boxes. The view shows them, and sets `on` when the user ticks one.

    CheckBox exportName;     ///< "ExportName"
    CheckBox exportURL;      ///< "ExportURL"
    CheckBox exportTags;     ///< "ExportTags"
    CheckBox exportNote;     ///< "ExportNote"
    CheckBox sortByName;     ///< "ExportSortName"
    CheckBox skipFolders;    ///< "SkipFolders"
    CheckBox skipSeparators; ///< "SkipSeparators"
    CheckBox saveCopyHTML;   ///< "SaveAsHTML"

private:
    void showOptionsOf(std::size_t index);

    const BaseServices services_;
    SavePanelControl* panel_ = nullptr;
    bool loaded_ = false;
    double addedHeight_ = 0;
};

} // namespace tabulon
