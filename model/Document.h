// One bookmark document: its tree, the name of its file, and the number of unsaved changes. It is converted
// from and to bytes here; the layers above handle files, windows and the steps of a save.
#pragma once

#include "base/BaseServices.h"
#include "base/DocumentIdentity.h"
#include "base/Error.h"
#include "model/Bookmark.h"
#include "model/DocumentAnchor.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The document type identifier and the file extension.
inline constexpr std::string_view kDocumentType = "com.tabulon.bookmarks";
inline constexpr std::string_view kDocumentExtension = "tbln";

/// A change to the change count: one more change, one change undone, or the document is clean.
enum class ChangeKind { Done, Undone, Cleared };

/// The view of a document, implemented above the model. A document has at most one. All functions are called
/// on the document's thread.
class DocumentPresenter {
public:
    virtual ~DocumentPresenter() = default;

    /// Shows `master`, which is another tree or was changed by another object than the presenter.
    virtual void setMaster(Bookmark& master) = 0;
    /// Called after a change of the document's name, file or edited state.
    virtual void documentStateChanged() = 0;
};

/// Observes the changes of a document, for saving it later. Called on the document's thread.
class DocumentObserver {
public:
    virtual ~DocumentObserver() = default;

    /// Called after each change that is counted as Done or Undone, but not after Cleared.
    virtual void documentDidChange() = 0;
};

/// Paths are in the file system's encoding; texts are UTF-8. Used on one thread.
class Document : public DocumentIdentity {
public:
    /// Constructs a document with an empty root folder "Master", expanded, without a file and without
    /// changes. `observer` may be nullptr. Requires: the services and the observer outlive the document.
    explicit Document(const BaseServices& services, DocumentObserver* observer = nullptr);
    ~Document();

    /// Returns the root folder, which the document owns.
    Bookmark& getMaster() const { return *fMaster_; }
    /// Replaces the tree, sets the document of every node of the new one, and resets the drop folder. Does
    /// not call the presenter and does not record a change. Linear in the size of the tree. Requires: not
    /// null.
    void setMaster(Ref<Bookmark> master);

    /// Makes a node from a file a valid root: a folder named "Master", expanded, with the icon of folders.
    /// Makes a child list if there is none.
    static void makeMaster(Bookmark& root);

    /// Returns the folder of this tree that receives dropped and captured bookmarks, or nullptr.
    Bookmark* getDropFolder() const { return fDropFolder_.get(); }
    void setDropFolder(Bookmark* folder) { fDropFolder_ = Ref<Bookmark>(folder); }

    /// Returns the document as the bytes of a file in the current format, for every `type`.
    std::string dataOfType(std::string_view type) const;
    /// Replaces the tree by the one in `data`, in the current or the classic format. Fails with the errors of
    /// `readDocumentArchive` and `readClassic`, and then keeps the tree. Does not call the presenter, since
    /// the caller decides when the new tree is shown.
    Result<void> readFromDataOfType(std::string_view data, std::string_view type);

    /// Returns the type identifier with which the document was read. For a classic file it is the current
    /// type.
    const std::string& fileType() const { return fileType_; }

    /// Returns true: documents are saved automatically, at times that DocumentController decides.
    static constexpr bool autosavesInPlace() { return true; }

    /// Adds 1 to the change count, subtracts 1, or sets it to 0. Calls the presenter if the edited state
    /// changes, then the observer.
    void updateChangeCount(ChangeKind change);
    /// Returns true if the change count is not 0.
    bool isDocumentEdited() const { return changeCount_ != 0; }
    /// Returns the number of changes since the document was last clean; negative if changes before that were
    /// undone.
    long changeCount() const { return changeCount_; }

    /// Returns the path of the document's file; empty for a document without a file.
    const std::string& fileName() const { return fileName_; }
    /// Sets the path, removes the display name that was set, and calls the presenter.
    void setFileName(std::string path);
    /// Returns the name for the user: the one that was set, else the file's name without extension, else the
    /// text of the key "Untitled".
    std::string displayName() const;
    /// Sets the name for the user, until the next `setFileName`, and calls the presenter. Empty removes it.
    void setDisplayName(std::string name);

    /// Returns the presenter, or nullptr if the document is not shown. Not owned.
    DocumentPresenter* presenter() const { return presenter_; }
    void setPresenter(DocumentPresenter* presenter) { presenter_ = presenter; }
    /// Calls `setMaster` of the presenter with the current tree, after a change by another object. Does
    /// nothing without a presenter.
    void updateUI();

    /// Returns the anchor by which nodes refer to this document; never null.
    const Ref<DocumentAnchor>& anchor() const { return anchor_; }

private:
    void stateChanged();

    const BaseServices services_;
    DocumentObserver* const observer_; // not owned; may be nullptr
    Ref<DocumentAnchor> anchor_;
    Ref<Bookmark> fMaster_;
    Ref<Bookmark> fDropFolder_;
    std::string fileType_ = std::string(kDocumentType);
    std::string fileName_;
    std::string displayName_;
    DocumentPresenter* presenter_ = nullptr;
    long changeCount_ = 0;
};

} // namespace tabulon
