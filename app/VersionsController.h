// The versions of one document as its user sees them: what each has that the document has not, opening one,
// and putting one back, whole or in part. The versions themselves are VersionStore's; what the panel looks
// like is ui/'s.
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

/// What the controller needs of the view. The view asks the controller for the contents.
class VersionsPanel {
public:
    virtual ~VersionsPanel() = default;

    /// The counts of the version at `index` are known now.
    virtual void reloadVersion(std::size_t index) = 0;
    /// Another version is shown, or the document has changed.
    virtual void reloadDifferences() = 0;
    virtual void dismiss() = 0;
};

/// One version in the list. Its tree is compared with the document when there is time for it.
struct VersionRow {
    DocumentVersion version;
    /// What putting the version back would do to the document: `removed` counts what the document lost since.
    std::optional<DifferenceCounts> counts = {};
    /// Why the version cannot be read; empty while it can.
    std::string problem = {};
};

class VersionsController {
public:
    /// Opens a tree as a new untitled document of that name. False when there can be none.
    using OpenUntitled = std::function<bool(Ref<Bookmark> root, const std::string& name)>;

    /// Whether the document's file is as the document was read from it or saved to it.
    using FileIsAsLeft = std::function<bool()>;

    /// What is handed in must live longer than the panel is up. Requires a document with a file.
    VersionsController(Document& document, VersionStore& store, const Platform& platform,
                       OpenUntitled openUntitled, FileIsAsLeft fileIsAsLeft);

    /// The view is there, or, with null, gone. The versions are compared one after the other between events.
    void setPanel(VersionsPanel* panel);

    const Document& document() const { return document_; }
    const Localization& texts() const { return platform_.base.texts; }

    /// Newest first.
    const std::vector<VersionRow>& rows() const { return rows_; }
    /// When the version was saved, as people write it in their language and time zone.
    std::string dateText(std::size_t index) const;
    /// "3 added, 1 removed, 2 changed" since the version, or why it cannot be read. Empty until it is known.
    std::string countsText(std::size_t index) const;

    /// The version that is shown, or nullopt before the first choice and when there are none.
    std::optional<std::size_t> chosen() const { return chosen_; }
    /// Shows the differences of a version. One that cannot be read has none.
    void choose(std::size_t index);
    /// The differences between the chosen version (before) and the document (after).
    const std::vector<TreeDifference>& differences() const;
    /// What was added since cannot be put back; everything else can.
    static bool canPutBack(const TreeDifference& difference) { return !difference.isAdded(); }
    /// "Removed: Name", "Moved from Folder", and so on.
    std::string differenceText(const TreeDifference& difference) const;

    bool canOpen() const { return version_ != nullptr; }
    /// Opens the chosen version as an untitled document and dismisses the panel.
    void openChosen();
    /// Puts the differences at these indexes back as one change of the document, and dismisses the panel.
    /// When the document has changed since they were listed they are listed anew, and nothing else happens.
    void putBackDifferences(const std::vector<std::size_t>& indexes);
    /// Replaces the tree of the document by that of the chosen version, as one change, and dismisses the
    /// panel.
    void putBackAll();

private:
    std::unique_ptr<Document> read(const DocumentVersion& version, std::string& problem) const;
    void countNext();
    void startCounting();
    void compareChosen();
    bool keepPresentState();
    void finish();
    std::string nameOfVersion() const;
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
    std::unique_ptr<Document> version_;
    std::optional<TreeComparison> comparison_;
    long comparedAt_ = 0; // the document's count of changes
};

} // namespace tabulon
