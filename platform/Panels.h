// Panels in which the user chooses files to open or to write. They do not read or write the files.
#pragma once

#include "base/DocumentIdentity.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabulon {

/// A kind of file that a panel offers.
struct FileKind {
    /// The name of the kind for the user.
    std::string label = {};
    /// The extensions without dots; the first one is the default. If empty, every file is of this kind.
    std::vector<std::string> extensions = {};
};

/// The options of a panel that opens files.
struct OpenPanel {
    /// The title of the panel.
    std::string message = {};
    /// The title of the button that accepts.
    std::string prompt = {};
    /// The folder that is shown first; empty for the folder of the last panel that opened files. If it does
    /// not exist, the home folder is shown.
    std::string directory = {};
    /// The file that is selected first; empty for none.
    std::string selectedFile = {};
    /// The kinds of files that can be chosen; empty if every file can be chosen.
    std::vector<FileKind> kinds = {};
    bool allowsMultipleSelection = false;
    /// The document in whose window the panel is shown; nullptr for the whole application. Not owned.
    const DocumentIdentity* document = nullptr;
};

/// The functions of a save panel for the options area in it.
class SavePanelControl {
public:
    virtual ~SavePanelControl() = default;

    /// Sets the kind of file that the panel offers, and replaces another extension in the name by that of
    /// `kind`, if it has one. The user can still type any extension.
    virtual void setAllowedFileType(const FileKind& kind) = 0;
};

/// An area of options in a save panel. The platform makes the view, by the class of the accessory.
class PanelAccessory {
public:
    virtual ~PanelAccessory() = default;

    /// Sets the panel that contains the area, or nullptr when the panel is closed. Not owned.
    virtual void setPanel(SavePanelControl* panel) = 0;
    /// Called after the view was made, before `setPanel`. Not called if the panel cannot show the area.
    virtual void viewDidLoad() = 0;
};

/// The options of a panel that chooses a file to write.
struct SavePanel {
    /// The title of the panel.
    std::string message = {};
    /// The title of the button that accepts.
    std::string prompt = {};
    /// The folder that is shown first; empty for the folder of the last panel that chose a file to write. If
    /// it does not exist, the home folder is shown.
    std::string directory = {};
    /// The name that is shown first, without an extension. The panel replaces characters that a file name
    /// cannot have, and cuts a name that is too long.
    std::string proposedName = {};
    /// The kind of file; its first extension is added to a name without one. Requires: it has an extension.
    FileKind kind = {};
    /// The options area; nullptr if there is none. The panel shares the ownership until it is closed.
    std::shared_ptr<PanelAccessory> accessory = {};
    /// The document in whose window the panel is shown; nullptr for the whole application. Not owned.
    const DocumentIdentity* document = nullptr;
};

/// Both functions show a panel and return. `done` is called exactly once, on the main thread, when the user
/// has finished; the platform of tests calls it before the function returns. Paths are absolute and in the
/// file system's encoding; texts are UTF-8.
class Panels {
public:
    using OpenDone = std::function<void(const std::vector<std::string>& paths)>;
    using SaveDone = std::function<void(const std::optional<std::string>& path)>;

    virtual ~Panels() = default;

    /// Shows a panel that opens files. Passes the chosen paths to `done`, or an empty list if the user
    /// cancels.
    virtual void beginOpenPanel(const OpenPanel& panel, OpenDone done) = 0;
    /// Shows a panel that chooses a file to write. Passes the path to `done`, or `nullopt` if the user
    /// cancels. The panel itself asks whether an existing file is to be replaced.
    virtual void beginSavePanel(const SavePanel& panel, SaveDone done) = 0;
};

} // namespace tabulon
