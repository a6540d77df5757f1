// The versions of one document as the user sees them: how each differs from the document, opening one, and
// restoring one, as a whole or in part. The versions are stored by VersionStore; the view is in ui/.
#pragma once

#include "app/VersionStore.h"
#include "model/Document.h"
#include "model/TreeComparison.h"
#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabulon {

/// The view of the panel. It reads its contents from the controller.
class VersionsPanel {
public:
    virtual ~VersionsPanel() = default;

    /// Called when the counts of the version at `index` are known.
    virtual void reloadVersion(std::size_t index) = 0;
    /// Called when the differences of another version are to be shown, or the document has changed.
    virtual void reloadDifferences() = 0;
    /// Closes the panel.
    virtual void dismiss() = 0;
};

/// One version in the list. Its tree is compared with the document while the main loop is idle.
struct VersionRow {
    DocumentVersion version;
    /// The differences of the document from the version (`removed` counts what the document has lost since);
    /// `nullopt` until they are known.
    std::optional<DifferenceCounts> counts = {};
    /// The error for a version that cannot be read; empty for any other.
    std::string problem = {};
};

/// The controller of the panel.
class VersionsController {
public:
    /// Opens a tree as a new untitled document of that name. Returns false if that is not possible.
    using OpenUntitled = std::function<bool(Ref<Bookmark> root, const std::string& name)>;

    /// Returns whether the document's file is as the document was read from it or saved to it.
    using FileIsAsLeft = std::function<bool()>;

    /// Lists the versions. Requires: the document has a file; the document, the store and the services of
    /// `platform` exist while there is a panel.
    VersionsController(Document& document, VersionStore& store, const Platform& platform,
                       OpenUntitled openUntitled, FileIsAsLeft fileIsAsLeft);

    /// Sets the panel, chooses the newest version, and begins to compare the versions one by one from the
    /// main loop; `nullptr` when the panel is closed. Does not take ownership.
    void setPanel(VersionsPanel* panel);

    /// Returns the document.
    const Document& document() const { return document_; }
    /// Returns the texts of the user's language.
    const Localization& texts() const { return platform_.base.texts; }

    /// Returns the versions, the newest first.
    const std::vector<VersionRow>& rows() const { return rows_; }
    /// Returns when the version was saved, in the user's language and time zone. Requires: index <
    /// rows().size().
    std::string dateText(std::size_t index) const;
    /// Returns "3 added, 1 removed, 2 changed" since the version, in the user's language, or that it cannot
    /// be read. Returns an empty text until that is known. Requires: index < rows().size().
    std::string countsText(std::size_t index) const;

    /// Returns the index of the chosen version; `nullopt` before the first choice and if there are no
    /// versions.
    std::optional<std::size_t> chosen() const { return chosen_; }
    /// Chooses a version, reads it and compares it with the document. A version that cannot be read has no
    /// differences. Requires: index < rows().size().
    void choose(std::size_t index);
    /// Returns the differences between the chosen version (before) and the document (after). They are valid
    /// until another version is chosen or a version is restored.
    const std::vector<TreeDifference>& differences() const;
    /// Returns whether the difference can be put back: everything but what was added since.
    static bool canPutBack(const TreeDifference& difference) { return !difference.isAdded(); }
    /// Returns what has changed since the version, such as "removed" or "was in “Folder”", in the user's
    /// language. Several changes are separated by commas. Requires: `difference` is one of `differences()`.
    std::string differenceText(const TreeDifference& difference) const;

    /// Returns whether a version is chosen and can be read.
    bool canOpen() const { return version_ != nullptr; }
    /// Opens the chosen version as an untitled document and closes the panel. Does nothing if it cannot be
    /// read.
    void openChosen();
    /// Puts the differences at these indexes back, as one change of the document, and closes the panel. If
    /// the document has changed since they were listed, they are only listed again. Unsaved changes, and a
    /// file that another program has changed, are first kept as a version; if that fails, an alert is shown
    /// and the document is not changed.
    void putBackDifferences(const std::vector<std::size_t>& indexes);
    /// Replaces the tree of the document by that of the chosen version, as one change, and closes the panel.
    /// Keeps unsaved changes as `putBackDifferences` does.
    void putBackAll();

private:
    /// Returns the document of a version. Returns `nullptr` and sets `problem` if it cannot be read.
    std::unique_ptr<Document> read(const DocumentVersion& version, std::string& problem) const;
    /// Compares the next version whose counts are not known.
    void countNext();
    /// Calls `countNext` from the main loop.
    void startCounting();
    /// Compares the chosen version with the document and updates the panel.
    void compareChosen();
    /// Keeps the document as a version if no file has its state. Returns false, after an alert, if that
    /// fails.
    bool keepPresentState();
    /// Closes the panel.
    void finish();
    /// Returns the name of the document that shows the chosen version.
    std::string nameOfVersion() const;
    /// Returns the text about a moved item.
    std::string moveText(const TreeDifference& difference) const;

    Document& document_;
    VersionStore& store_;
    const Platform platform_;
    OpenUntitled openUntitled_;
    FileIsAsLeft fileIsAsLeft_;
    VersionsPanel* panel_ = nullptr;
    std::vector<VersionRow> rows_;
    std::unique_ptr<Timer> timer_;
    std::optional<std::size_t> chosen_;
    /// The document of the chosen version; null if it cannot be read.
    std::unique_ptr<Document> version_;
    /// Of `version_` and the document; `nullopt` if there is no version, and after a restore.
    std::optional<TreeComparison> comparison_;
    long comparedAt_ = 0; // the document's change count at the comparison
};

} // namespace tabulon
