// One bookmark document: the tree it owns, what it knows of its file, and whether it has unsaved changes.
// Reading and writing bytes is here; files, windows and the tasks of a save are the business of the layers
// above.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "model/Bookmark.h"
#include "model/DocumentAnchor.h"

#include <functional>
#include <string>
#include <string_view>

namespace tabulon {

/// The document type identifier and the file extension.
inline constexpr std::string_view kDocumentType = "com.tabulon.bookmarks";
inline constexpr std::string_view kDocumentExtension = "tbln";

/// What `updateChangeCount` records.
enum class ChangeKind { Done, Undone, Cleared };

/// What shows a document. One at a time; implemented above the model. Every call comes on the document's
/// thread.
class DocumentPresenter {
public:
    virtual ~DocumentPresenter() = default;

    /// The document has another tree, or the tree was changed from outside: show it anew.
    virtual void setMaster(Bookmark& master) = 0;
    /// The document's name, file or edited state changed.
    virtual void documentStateChanged() = 0;
};

class Document {
public:
    /// A new document with an empty root folder "Master", expanded, without a file and without changes. The
    /// services must live longer than the document.
    explicit Document(const BaseServices& services);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// The root folder; never null.
    Bookmark& getMaster() const { return *fMaster_; }
    /// Replaces the tree and sets the document reference on every node of the new one.
    void setMaster(Ref<Bookmark> master);

    /// Makes a root folder of what a file has as one: named "Master", expanded, and a folder with a list of
    /// children whatever the file says.
    static void makeMaster(Bookmark& root);

    /// The folder of this tree that receives dropped and captured bookmarks, or null.
    Bookmark* getDropFolder() const { return fDropFolder_.get(); }
    void setDropFolder(Bookmark* folder) { fDropFolder_ = Ref<Bookmark>(folder); }

    /// The document as the bytes of its file.
    std::string dataOfType(std::string_view type) const;
    /// Replaces the tree by the one in `data`, of the current or the classic format (see ArchiveReader.h and
    /// ClassicReader.h for what is taken and refused). On failure
    /// the document keeps its tree. The presenter is not told: the caller decides when to show the new tree.
    Result<void> readFromDataOfType(std::string_view data, std::string_view type);

    /// The type identifier of what the document was read from; a classic file is of the current type from
    /// then on.
    const std::string& fileType() const { return fileType_; }

    /// Documents are saved in place by themselves; when is DocumentController's affair.
    static constexpr bool autosavesInPlace() { return true; }

    void updateChangeCount(ChangeKind change);
    /// Called after each change that is recorded, done or undone; not when the document becomes clean.
    void setChangeObserver(std::function<void()> observer) { changeObserver_ = std::move(observer); }
    bool isDocumentEdited() const { return changeCount_ != 0; }
    /// Changes since the document was last clean; may be negative after undoing.
    long changeCount() const { return changeCount_; }

    /// The path of the document's file in the file system's encoding; empty for a document without a file.
    const std::string& fileName() const { return fileName_; }
    void setFileName(std::string path);
    /// What people call the document: the name that was set, else the file's name without extension, else
    /// "Untitled".
    std::string displayName() const;
    void setDisplayName(std::string name);

    /// Null when nothing shows the document. Not owned.
    DocumentPresenter* presenter() const { return presenter_; }
    void setPresenter(DocumentPresenter* presenter) { presenter_ = presenter; }
    /// Hands the tree to the presenter again, after a change that did not come through it.
    void updateUI();

    const Ref<DocumentAnchor>& anchor() const { return anchor_; }

private:
    void stateChanged();

    const BaseServices services_;
    Ref<DocumentAnchor> anchor_;
    Ref<Bookmark> fMaster_;
    Ref<Bookmark> fDropFolder_;
    std::string fileType_ = std::string(kDocumentType);
    std::string fileName_;
    std::string displayName_;
    DocumentPresenter* presenter_ = nullptr;
    std::function<void()> changeObserver_;
    long changeCount_ = 0;
};

} // namespace tabulon
