// Panels in which the user names files to open or to write. They read and write nothing themselves.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabulon {

class Document;

/// A kind of file that a panel offers: what people call it and its extensions without dots; without
/// extensions every file is of the kind.
struct FileKind {
    std::string label = {};
    std::vector<std::string> extensions = {};
};

struct OpenPanel {
    std::string message = {};
    std::string prompt = {};
    /// Where to start; empty for the folder of the last panel that opened files.
    std::string directory = {};
    /// The file that is selected at first; empty for none.
    std::string selectedFile = {};
    /// Only files of these kinds can be chosen; empty lets every file be chosen.
    std::vector<FileKind> kinds = {};
    bool allowsMultipleSelection = false;
    /// The panel belongs to this document's window; null for the whole application.
    const Document* document = nullptr;
};

/// What an options area does to the save panel that it sits in.
class SavePanelControl {
public:
    virtual ~SavePanelControl() = default;

    /// From now on this is the kind of file that the panel offers; a name that has another extension gets the
    /// new one. The user may still type any other.
    virtual void setAllowedFileType(const FileKind& kind) = 0;
};

/// An area of options in a save panel. Its view is found by its class.
class PanelAccessory {
public:
    virtual ~PanelAccessory() = default;

    /// The panel that it sits in now, or null when that is gone. Not owned.
    virtual void setPanel(SavePanelControl* panel) = 0;
    /// Its view was made. A panel that cannot show it never calls this.
    virtual void viewDidLoad() = 0;
};

struct SavePanel {
    std::string message = {};
    std::string prompt = {};
    /// Where to start; empty for the folder of the last panel that named a file to write.
    std::string directory = {};
    /// Without an extension; the panel adds the one of `kind` when the user types none. Where no file can
    /// have the name the panel offers one like it.
    std::string proposedName = {};
    FileKind kind = {};
    /// Null for none.
    std::shared_ptr<PanelAccessory> accessory = {};
    const Document* document = nullptr;
};

/// Both panels return at once; `done` is called when the user has finished, on the main thread, exactly once.
/// Paths are absolute and in the file system's encoding; texts are UTF-8.
class Panels {
public:
    using OpenDone = std::function<void(const std::vector<std::string>& paths)>;
    using SaveDone = std::function<void(const std::optional<std::string>& path)>;

    virtual ~Panels() = default;

    /// An empty list means cancelled.
    virtual void beginOpenPanel(const OpenPanel& panel, OpenDone done) = 0;
    /// Nothing means cancelled. The panel has asked already before an existing file is named.
    virtual void beginSavePanel(const SavePanel& panel, SaveDone done) = 0;
};

} // namespace tabulon
