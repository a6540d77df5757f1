// The node of every bookmark tree: a folder, a link or a separator. LinkType.h defines its codes;
// ArchiveReader.h and ArchiveWriter.h store it.
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

/// The link of a node to the list of its siblings; see ChunkedList.
struct SiblingLink {
    static void*& chunk(Bookmark& node);
    static std::uint16_t& place(Bookmark& node);
};

/// The link of a node to the visible rows of the outline that shows its tree; see ChunkedList.
struct RowLink {
    static void*& chunk(Bookmark& node);
    static std::uint16_t& place(Bookmark& node);
};

/// The children of one node, in order. Only the node changes it.
using ChildList = ChunkedList<Bookmark, SiblingLink>;

/// The texts of a new node; each may be null.
struct BookmarkDictionary {
    Text name;
    Text url;
    Text note;
    Text tags;
};

/// A node, counted by `Ref`. A parent owns one count of each child; parent and document are references
/// without a count. When a parent or a document is destroyed, the reference of each remaining child or node
/// becomes nullptr. A node that was removed from its parent's list keeps its parent; a caller that keeps the
/// node must set another parent or nullptr. A node that is destroyed is removed from the rows of its outline.
///
/// Nodes are compared by address; there is no equality of content other than `isIdentical`. No operation is
/// recursive, so a tree may be nested to any depth. All nodes of a tree stay on one thread. Texts are UTF-8.
///
/// A change of the tree does not update the outline, and only `opened` records a change in the document. The
/// caller of any other function does both. Functions that insert, remove or find a child by its node or index
/// have the complexity of the list; see ChunkedList.
class Bookmark {
public:
    // Construction and copying

    /// Returns a link with the added-date `now` and the icon of web pages. All other fields are zero or null.
    static Ref<Bookmark> init(Date now);
    /// Returns a node whose fields are all zero or null, also dates and icon. For readers, which set every
    /// field.
    static Ref<Bookmark> initEmpty();
    /// Returns a node like `init` with the dictionary's texts, classified by `determineType`.
    static Ref<Bookmark> initWithDictionary(const BookmarkDictionary& dictionary, Date now);
    /// Returns a shallow copy: texts, dates, codes (of the browser the low 8 bits), folder state, icon and
    /// document. The copy of a folder is an empty folder. The copy has no parent.
    static Ref<Bookmark> initWithBookmark(const Bookmark& source);
    /// Copies the fields that the user edits: texts (null too), modified date, type, flags, label, status and
    /// the low 8 bits of the browser. Folder state, auto-tab, the other dates, icon, children, parent and
    /// document are unchanged, so the icon may not fit the type afterwards.
    void setWithBookmark(const Bookmark& source);

    /// Adds and removes a count; see Ref. `release` destroys the node with its last count, and its children
    /// that have no other count, in time linear in their number.
    void retain() noexcept { ++references_; }
    void release() noexcept {
        if (--references_ == 0)
            destroy(this);
    }

    // Texts and dates. Each may be null. The setters do not check them: the URL of a file may be any text,
    // and a date may be in the future. Texts are shared with their copies, and dates have fractions of a
    // second.

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

    /// Sets the last-opened date to the current time and records a change in the document, if there is one.
    /// Does nothing if the setting "LastOpened" is off. May call the document's presenter and observer.
    void opened(const BaseServices& services);

    // Tree

    /// Appends `child` and makes this node its parent. Makes a child list if there is none; the node does not
    /// become a folder by this. The child is not removed from the list of its former parent, and its document
    /// does not change. Requires: the child is not nullptr, this node or an ancestor of it.
    void addChild(Ref<Bookmark> child);
    /// Inserts `child` at index 0, otherwise like `addChild`.
    void addBegin(Ref<Bookmark> child);
    /// Inserts `child` at `index`, otherwise like `addChild`. Requires: `index` is at most the number of
    /// children.
    void insertChild(std::size_t index, Ref<Bookmark> child);
    /// Returns the first child, or nullptr if there are no children.
    Bookmark* getChild() const { return children_ ? children_->front() : nullptr; }
    /// Returns the last child, or nullptr if there are no children.
    Bookmark* getLast() const { return children_ ? children_->back() : nullptr; }
    /// Removes the last child, which keeps its parent if the caller has a Ref and is destroyed otherwise.
    /// Does nothing if there are no children.
    void removeLast();
    /// Removes every occurrence of this node from its parent's list; the parent itself is kept. Logs "parent
    /// is nil" and does nothing else if there is no parent. Destroys the node unless the caller has a Ref.
    void remove(SystemLog& log);
    /// Removes the first occurrence of this node from its parent's list; the parent itself is kept. Does
    /// nothing if there is no parent or the parent's list does not contain the node. Destroys the node unless
    /// the caller has a Ref.
    void detachMe();
    /// Returns the child list, or nullptr if the node has none. Valid until the node gets another list.
    const ChildList* getChildren() const { return children_.get(); }
    /// Replaces the child list by a list of these nodes, which may be empty. The parents of the nodes do not
    /// change.
    void setChildren(const std::vector<Ref<Bookmark>>& children);
    /// Replaces the child list by an empty one with room for `count` children. Children without another count
    /// are destroyed; the others keep their parent.
    void makeChildList(std::size_t count = 0);

    /// Returns true if there is a child, also for a node that is no folder.
    bool hasChildren() const { return children_ && !children_->empty(); }
    /// Returns true for a folder without children, and for every node that is no folder.
    bool childLess() const { return !folder_ || !hasChildren(); }
    /// Returns the folder flag, which does not depend on the type or on a child list.
    bool isFolder() const { return folder_; }
    bool isSeparator() const { return type_ == kSeparatorType; }
    /// Makes the node a folder with the icon of folders and a new empty child list; see `makeChildList`.
    void makeParent();
    /// Both return the parent, or nullptr. Not owned.
    Bookmark* getParent() const { return parent_; }
    Bookmark* parent() const { return parent_; }
    /// Sets the parent, which may be nullptr, and changes no list.
    void setParent(Bookmark* parent) { parent_ = parent; }
    /// Returns true if `node` is this node or is below it, by the parents. Linear in the depth of `node`.
    bool offSpring(const Bookmark& node) const;
    /// Returns the number of ancestors, 0 for the root. Linear in it.
    int getLevel() const;
    /// Returns the next sibling, or nullptr after the last one, without a parent, and for a node that its
    /// parent's list does not contain. Constant time, except in a list that shares nodes; see ChunkedList.
    Bookmark* nextBookmark() const {
        return parent_ && parent_->children_ ? parent_->children_->next(*this) : nullptr;
    }
    /// Returns true if a direct child has the URL of `node`, byte by byte. Returns false if that is null.
    /// Linear in the number of children.
    bool containsURL(const Bookmark& node) const;
    /// Returns true if both have the same name, URL, note, tags, type, flags, browser, label and status. Of
    /// the browsers, this node's full value is compared with the low 8 bits of the other's. Returns false if
    /// the name is null. Dates, folder state, children and icon are not compared.
    bool isIdentical(const Bookmark& node) const;

    /// Sets the document of this node and, if it is a folder, of its children and so on. `document` may be
    /// nullptr. Linear in the number of these nodes.
    void setDocument(Document* document);
    /// Returns the document, or nullptr if there is none or it no longer exists. Not owned.
    Document* getDocument() const { return document_ ? document_->document : nullptr; }

    // Codes and flags

    /// Returns the type: one of LinkType.h, or another code from a file.
    std::uint8_t getType() const { return type_; }
    /// Sets the type and, if the type has an icon, the icon.
    void setType(std::uint8_t type);
    /// Sets type and icon by the URL (see `typeForURL`) and returns the type. Changes nothing if no rule
    /// matches, and for queries and separators. Returns 0 and changes nothing for folders and without a URL.
    std::uint8_t determineType();
    /// Sets the icon by folder state and type; for types without an icon it is that of web pages.
    void linkIcon();
    ItemIcon itemIcon() const { return icon_; }
    /// Sets the icon only, until a function that sets it by the type is called.
    void setItemIcon(ItemIcon icon) { icon_ = icon; }
    bool itemQuery() const { return type_ == kQueryType; }
    /// Makes the node a query, or a web page that is then classified by `determineType`. Does nothing for a
    /// folder.
    void setItemQuery(bool query);

    // Label, status and flags are bytes of a file, so every value is possible.

    /// Returns the label: 0 for none, 1 to 11 for those with a colour of their own.
    std::uint8_t getLabel() const { return label_; }
    void setLabel(std::uint8_t label) { label_ = label; }
    LabelColor getLabelColor() const { return labelColor(label_); }
    std::uint8_t getStatus() const { return status_; }
    void setStatus(std::uint8_t status) { status_ = status; }
    std::uint8_t getFlags() const { return flags_; }
    void setFlags(std::uint8_t flags) { flags_ = flags; }
    // The bits of the flags: 1 reload, 2 password, 4 locked. The others are kept.
    bool getReload() const { return (flags_ & 1) != 0; }
    bool getPassword() const { return (flags_ & 2) != 0; }
    bool getLocked() const { return (flags_ & 4) != 0; }
    bool itemLocked() const { return getLocked(); }
    /// Sets or clears the locked bit, and keeps the other flags.
    void setItemLocked(bool locked);
    bool getAutoTab() const { return autoTab_; }
    void setAutoTab(bool autoTab) { autoTab_ = autoTab; }
    /// Returns true for a folder that is shown expanded, which files contain.
    bool showHier() const { return openFolder_; }
    void setShowHier(bool shown) { openFolder_ = shown; }

    /// Returns the low 8 bits of the browser index.
    std::uint8_t getBrowser() const { return static_cast<std::uint8_t>(browser_); }
    /// Sets the whole browser index to a number without a sign.
    void setBrowser(std::uint32_t browser) { browser_ = browser; }
    /// Returns the whole browser index, as stored in files.
    std::int64_t itemBrowser() const { return browser_; }
    void setItemBrowser(std::int64_t browser) { browser_ = browser; }
    /// Returns the bundle identifier of the browser that opens this link; see `browserID` in LinkType.h.
    std::string getBrowserID(std::string_view defaultHandler) const {
        return browserID(browser_, defaultHandler);
    }

    /// Sets flags and status from a byte of a classic file: the flags are its low nibble, the status is its
    /// high nibble.
    void handleFlags(std::uint8_t byte);
    /// Sets four fields from a byte of a classic file. Bit 0 sets expanded and bit 1 sets auto-tab; neither
    /// is cleared. The label is 8 minus the high nibble, modulo 256, or 0 for a nibble of 0. The browser is
    /// the low nibble, which contains both bits.
    void handleShowHier(std::uint8_t byte);

    /// Sets the folder flag only, not the list or the icon. For readers.
    void setItemFolder(bool folder) { folder_ = folder; }

    /// Returns true if this is a Bookmark2.
    bool isBookmark2() const { return bookmark2_; }

    /// Allocates like the global operator, and prefetches memory for nodes that are made next.
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

    /// Destroys a node without a count, and everything below it that has no other count.
    static void destroy(Bookmark* node) noexcept;
    /// Deletes a node by its class. Requires: its child list is removed.
    static void destroyOne(Bookmark* node) noexcept;
    void releaseChildrenInto(std::vector<Bookmark*>& dying) noexcept;

    std::uint32_t references_ = 1; // for the Ref that adopts the new node
    std::uint16_t siblingPlace_ = 0;
    std::uint16_t rowPlace_ = 0;
    void* siblingChunk_ = nullptr;        // owned by the list that contains the node; or nullptr
    void* rowChunk_ = nullptr;            // owned by the outline; nullptr for a node without a row
    std::unique_ptr<ChildList> children_; // nullptr without a list; one count of each child
    Bookmark* parent_ = nullptr;          // not owned
    Ref<DocumentAnchor> document_;        // null without a document
    Text name_;
    Text url_;
    Text note_;
    Text tags_;
    Date dateAdded_;
    Date dateModified_;
    Date lastChecked_;
    Date lastOpened_;
    std::int64_t browser_ = 0; // as in files; `getBrowser` returns its low 8 bits
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

/// A search result: a copy of a node, with a reference to the original.
class Bookmark2 : public Bookmark {
public:
    /// Returns a node like `Bookmark::init`, without an original.
    static Ref<Bookmark2> init(Date now);
    /// Returns a shallow copy like `Bookmark::initWithBookmark`, without an original.
    static Ref<Bookmark2> initWithBookmark(const Bookmark& source);

    /// Returns the node that was found, or nullptr. Not owned; it is not reset when that node is destroyed.
    Bookmark* originalID() const { return originalID_; }
    void setOriginalID(Bookmark* original) { originalID_ = original; }

private:
    friend class Bookmark;
    Bookmark2() { markAsBookmark2(); }
    ~Bookmark2() = default;

    Bookmark* originalID_ = nullptr;
};

/// Returns a copy of the whole subtree: `initWithBookmark` for each node, with the children of folders in
/// order. The children of a node that is no folder are not copied. The copy has no parent. It belongs to the
/// same document and shares the bytes of the texts. Linear in the number of nodes.
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
