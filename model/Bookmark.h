// The one node of every bookmark tree: a folder, a link or a separator. What its codes mean is in LinkType.h,
// how it is stored in ArchiveReader.h and ArchiveWriter.h.
#pragma once

#include "base/BaseServices.h"
#include "base/ChunkedList.h"
#include "base/Date.h"
#include "base/Ref.h"
#include "base/Text.h"
#include "model/DocumentAnchor.h"
#include "model/LinkType.h"

#include <memory>
#include <string_view>
#include <vector>

namespace tabulon {

class Bookmark;
class Document;

/// Where a node keeps its place among its siblings.
struct SiblingLink {
    static void*& chunk(Bookmark& node);
    static std::uint16_t& place(Bookmark& node);
};

/// Where a node keeps its place among the visible rows of the outline that shows its tree.
struct RowLink {
    static void*& chunk(Bookmark& node);
    static std::uint16_t& place(Bookmark& node);
};

/// The children of one node in their order. Change it through the node.
using ChildList = ChunkedList<Bookmark, SiblingLink>;

/// Names and texts a new node is filled with; null fields stay null.
struct BookmarkDictionary {
    Text name;
    Text url;
    Text note;
    Text tags;
};

/// A node. Counted by `Ref`; a parent owns its children, `parent` and the document are plain back references.
/// When a parent is freed, children that live on lose it, and when a document is freed, its nodes lose it. A
/// node that left its parent's list still points there: whoever keeps it for long gives it another parent or
/// null. Identity is the object: there is no equality. No operation recurses, so a tree may be nested to any
/// depth.
class Bookmark {
public:
    // Construction and copying

    /// A link with the added-date `now` and the icon of web pages; everything else zero or null.
    static Ref<Bookmark> init(Date now);
    /// All zero: no dates, no icon. For readers, which fill everything in.
    static Ref<Bookmark> initEmpty();
    /// As `init`, with the dictionary's texts, classified by `determineType`.
    static Ref<Bookmark> initWithDictionary(const BookmarkDictionary& dictionary, Date now);
    /// Shallow copy: texts, dates, codes (the browser's low 8 bits), folder state, icon and document. A
    /// folder's copy is an empty folder; the copy has no parent.
    static Ref<Bookmark> initWithBookmark(const Bookmark& source);
    /// Takes over what a person edits: texts (null clears), modified date, type, flags, label, status,
    /// browser (low 8 bits). Folder state, the other dates, icon, children, parent and document stay.
    void setWithBookmark(const Bookmark& source);

    void retain() noexcept { ++references_; }
    void release() noexcept {
        if (--references_ == 0)
            destroy(this);
    }

    // Texts and dates

    const Text& itemName() const { return name_; }
    const Text& itemURL() const { return url_; }
    const Text& itemNote() const { return note_; }
    const Text& itemTags() const { return tags_; }
    void setItemName(Text name) { name_ = std::move(name); }
    void setItemURL(Text url) { url_ = std::move(url); }
    void setItemNote(Text note) { note_ = std::move(note); }
    void setItemTags(Text tags) { tags_ = std::move(tags); }

    Date itemDateAdded() const { return dateAdded_; }
    Date itemDateModified() const { return dateModified_; }
    Date itemLastChecked() const { return lastChecked_; }
    Date itemLastOpened() const { return lastOpened_; }
    void setItemDateAdded(Date date) { dateAdded_ = date; }
    void setItemDateModified(Date date) { dateModified_ = date; }
    void setItemLastChecked(Date date) { lastChecked_ = date; }
    void setItemLastOpened(Date date) { lastOpened_ = date; }

    /// Stamps the last-opened date and tells the document of a change, if the setting "LastOpened" is on.
    void opened(const BaseServices& services);

    // Tree

    /// Appends `child` and makes this node its parent. A node without a child list gets one; it does not
    /// become a folder by that.
    void addChild(Ref<Bookmark> child);
    /// The same at index 0.
    void addBegin(Ref<Bookmark> child);
    /// The same at `index`, which is at most the number of children.
    void insertChild(std::size_t index, Ref<Bookmark> child);
    /// Null when there are no children.
    Bookmark* getChild() const { return children_ ? children_->front() : nullptr; }
    Bookmark* getLast() const { return children_ ? children_->back() : nullptr; }
    /// Drops the last child, if there is one.
    void removeLast();
    /// Leaves the parent's list, every occurrence; `parent` stays as it was. Without a parent it logs "parent
    /// is nil" and does nothing. The caller holds a Ref if the node is to live on.
    void remove(SystemLog& log);
    /// Leaves the parent's list at the first place where it stands; `parent` stays as it was. Nothing happens
    /// without a parent or when the parent's list does not hold it.
    void detachMe();
    /// The child list, or null for a node that has none.
    const ChildList* getChildren() const { return children_.get(); }
    /// Replaces the list by these nodes (a list is made in any case). Their `parent` is not touched.
    void setChildren(const std::vector<Ref<Bookmark>>& children);
    /// Gives the node an empty list in place of the one it has, ready for `count` children.
    void makeChildList(std::size_t count = 0);

    bool hasChildren() const { return children_ && !children_->empty(); }
    bool childLess() const { return !folder_ || !hasChildren(); }
    bool isFolder() const { return folder_; }
    bool isSeparator() const { return type_ == kSeparatorType; }
    /// Makes the node a folder with a new empty list and the folder's icon.
    void makeParent();
    Bookmark* getParent() const { return parent_; }
    Bookmark* parent() const { return parent_; }
    void setParent(Bookmark* parent) { parent_ = parent; }
    /// True when `node` is this node or lies below it.
    bool offSpring(const Bookmark& node) const;
    /// Number of ancestors: 0 for the root.
    int getLevel() const;
    /// The next sibling, or null after the last one and without a parent. Constant time.
    Bookmark* nextBookmark() const {
        return parent_ && parent_->children_ ? parent_->children_->next(*this) : nullptr;
    }
    /// True when a direct child has exactly the URL of `node`; null matches nothing.
    bool containsURL(const Bookmark& node) const;
    /// Same name (null never matches), URL, note, tags, type, flags, browser (this node's full value against
    /// the low 8 bits of the other's), label and status. Dates, folder state, children and icon do not count.
    bool isIdentical(const Bookmark& node) const;

    /// Sets the document on this node and, through folders, on everything below it. Null clears it.
    void setDocument(Document* document);
    Document* getDocument() const { return document_ ? document_->document : nullptr; }

    // Codes and flags

    std::uint8_t getType() const { return type_; }
    /// Stores the code and, where the code has an icon, that icon.
    void setType(std::uint8_t type);
    /// Classifies the node by the scheme of its URL and gives the type code; see LinkType.h.
    std::uint8_t determineType();
    /// Computes the icon anew from folder state and type.
    void linkIcon();
    ItemIcon itemIcon() const { return icon_; }
    void setItemIcon(ItemIcon icon) { icon_ = icon; }
    bool itemQuery() const { return type_ == kQueryType; }
    /// Ignored on a folder. Yes makes the node a query, no a web page that is then classified.
    void setItemQuery(bool query);

    std::uint8_t getLabel() const { return label_; }
    void setLabel(std::uint8_t label) { label_ = label; }
    LabelColor getLabelColor() const { return labelColor(label_); }
    std::uint8_t getStatus() const { return status_; }
    void setStatus(std::uint8_t status) { status_ = status; }
    std::uint8_t getFlags() const { return flags_; }
    void setFlags(std::uint8_t flags) { flags_ = flags; }
    bool getReload() const { return (flags_ & 1) != 0; }
    bool getPassword() const { return (flags_ & 2) != 0; }
    bool getLocked() const { return (flags_ & 4) != 0; }
    bool itemLocked() const { return getLocked(); }
    void setItemLocked(bool locked);
    bool getAutoTab() const { return autoTab_; }
    void setAutoTab(bool autoTab) { autoTab_ = autoTab; }
    bool showHier() const { return openFolder_; }
    void setShowHier(bool shown) { openFolder_ = shown; }

    /// The low 8 bits of the browser index.
    std::uint8_t getBrowser() const { return static_cast<std::uint8_t>(browser_); }
    void setBrowser(std::uint32_t browser) { browser_ = browser; }
    /// The whole browser index, as stored in files.
    std::int64_t itemBrowser() const { return browser_; }
    void setItemBrowser(std::int64_t browser) { browser_ = browser; }
    /// The bundle identifier of the browser that opens this link; see LinkType.h.
    std::string getBrowserID(std::string_view defaultHandler) const {
        return browserID(browser_, defaultHandler);
    }

    /// From one byte of a classic file: low nibble flags, high nibble status.
    void handleFlags(std::uint8_t byte);
    /// From one byte of a classic file: bit 0 expanded, bit 1 auto-tab (set, never cleared), label 8 minus
    /// the high nibble (0 stays 0, the arithmetic is that of a byte), browser the low nibble, overlap
    /// included.
    void handleShowHier(std::uint8_t byte);

    /// For readers: the folder flag alone, without a list or an icon.
    void setItemFolder(bool folder) { folder_ = folder; }

    bool isBookmark2() const { return bookmark2_; }

    static void* operator new(std::size_t size);
    static void operator delete(void* block, std::size_t size) noexcept;
    Bookmark(const Bookmark&) = delete;
    Bookmark& operator=(const Bookmark&) = delete;

protected:
    Bookmark() = default;
    ~Bookmark();
    void markAsBookmark2() { bookmark2_ = true; }

private:
    friend struct SiblingLink;
    friend struct RowLink;

    static void destroy(Bookmark* node) noexcept;
    static void destroyOne(Bookmark* node) noexcept;
    void releaseChildrenInto(std::vector<Bookmark*>& dying) noexcept;

    std::uint32_t references_ = 1;
    std::uint16_t siblingPlace_ = 0;
    std::uint16_t rowPlace_ = 0;
    void* siblingChunk_ = nullptr;
    void* rowChunk_ = nullptr;
    std::unique_ptr<ChildList> children_;
    Bookmark* parent_ = nullptr;
    Ref<DocumentAnchor> document_;
    Text name_;
    Text url_;
    Text note_;
    Text tags_;
    Date dateAdded_;
    Date dateModified_;
    Date lastChecked_;
    Date lastOpened_;
    std::int64_t browser_ = 0;
    std::uint8_t type_ = 0;
    std::uint8_t label_ = 0;
    std::uint8_t flags_ = 0;
    std::uint8_t status_ = 0;
    ItemIcon icon_ = ItemIcon::None;
    bool folder_ : 1 = false;
    bool openFolder_ : 1 = false;
    bool autoTab_ : 1 = false;
    bool bookmark2_ : 1 = false;
};

static_assert(sizeof(void*) != 8 || sizeof(Bookmark) == 128, "a node fills a size class of the allocator");

/// A search result: a copy of a node that points back, without owning, to the node it was found as.
class Bookmark2 : public Bookmark {
public:
    /// As `Bookmark::init`, with a null `originalID`.
    static Ref<Bookmark2> init(Date now);
    /// A shallow copy of `source` with a null `originalID`.
    static Ref<Bookmark2> initWithBookmark(const Bookmark& source);

    Bookmark* originalID() const { return originalID_; }
    void setOriginalID(Bookmark* original) { originalID_ = original; }

private:
    friend class Bookmark;
    Bookmark2() { markAsBookmark2(); }
    ~Bookmark2() = default;

    Bookmark* originalID_ = nullptr;
};

/// A copy of the whole subtree: `initWithBookmark` for each node, children appended in order. The copy has no
/// parent.
Ref<Bookmark> deepCopy(const Bookmark& source);

inline void*& SiblingLink::chunk(Bookmark& node) {
    return node.siblingChunk_;
}
inline std::uint16_t& SiblingLink::place(Bookmark& node) {
    return node.siblingPlace_;
}
inline void*& RowLink::chunk(Bookmark& node) {
    return node.rowChunk_;
}
inline std::uint16_t& RowLink::place(Bookmark& node) {
    return node.rowPlace_;
}

} // namespace tabulon
