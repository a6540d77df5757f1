#include "formats/import/PlistBookmarks.h"

#include "formats/import/PlistEntries.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tabulon {
namespace {

using Object = PlistEntries::Object;
using Kind = PlistEntries::Kind;

constexpr std::size_t kProgressStride = 4096; // entries and their keys

/// The result of reading an entry that is no folder.
enum class Entry {
    Link,
    Skipped, // not a bookmark: an entry that the browser computes
    Empty,   // neither name nor address
};

// The meaning of one browser's entries.
class EntryReader {
public:
    EntryReader(PlistEntries& list, const BaseServices& services) : list_(list), services_(services) {}
    virtual ~EntryReader() = default;

    /// Sets the values of `folder`. Requires: it is a folder.
    virtual void fillFolder(Object entry, Bookmark& folder) const = 0;
    /// Sets the values of `link`, unless the result is not Entry::Link.
    virtual Entry fillLink(Object entry, Bookmark& link) const = 0;
    /// Reports damage where the keys of an entry are such as no program writes.
    virtual void requireSoundKeys(Object entry) const = 0;
    /// Reports damage where an entry that was read as Entry::Empty contains more.
    virtual void requireEmpty(Object entry) const = 0;
    /// Reports damage where the list has entries in no folder.
    virtual void requireNoneLost() const = 0;

protected:
    Text text(Object entry, std::string_view key) const { return list_.text(entry, key); }
    Text untitledUnless(const Text& name) const {
        return name.isEmpty() ? Text(services_.texts.text("Untitled")) : name;
    }
    /// Makes `folder` the favourites.
    void makeFavourites(Bookmark& folder) const {
        folder.setItemName(services_.texts.text("Favourites"));
        folder.setLabel(1);
    }

    PlistEntries& list_;
    const BaseServices services_;
};

class SafariEntries : public EntryReader {
public:
    using EntryReader::EntryReader;

    void fillFolder(Object entry, Bookmark& folder) const override {
        folder.setItemDateAdded({});
        folder.setItemName(text(entry, "Title"));
        if (folder.itemName() == Text("BookmarksBar"))
            makeFavourites(folder);
    }

    Entry fillLink(Object entry, Bookmark& link) const override {
        const Text name = text(list_.value(entry, "URIDictionary"), "title");
        const Text url = text(entry, "URLString");
        if (name.isNull() && url.isNull())
            return Entry::Empty;
        if (name.isNull()) {
            const Object names = list_.value(entry, "URIDictionary");
            list_.requireNoneMisspelt(entry, {"URIDictionary"});
            if (list_.value(names, "").kind() == Kind::Damaged) // Safari has the address under an empty key
                list_.requireNoneMisspelt(names, {"title"});
        }
        if (url.isNull())
            list_.requireNoneMisspelt(entry, {"URLString"});
        const Text preview = text(entry, "previewText");
        link.setItemDateAdded({});
        link.setItemName(untitledUnless(name));
        link.setItemURL(url);
        link.setItemNote(preview.isNull() ? text(entry, "Description") : preview);
        return Entry::Link;
    }

    void requireSoundKeys(Object entry) const override {
        static constexpr std::array<std::string_view, 4> kNoLists = {"Title", "URLString", "previewText",
                                                                     "Description"};
        list_.requireSoundKeys(entry, kNoLists);
    }

    void requireEmpty(Object entry) const override {
        const Object names = list_.value(entry, "URIDictionary");
        // Safari stores the address of some links under an empty key.
        if (names.kind() == Kind::Dictionary && names.count() > 0 &&
            list_.value(names, "").kind() == Kind::Damaged)
            list_.requireNone(names, {"title"});
        list_.requireNone(
            entry, names.kind() == Kind::Dictionary
                       ? std::initializer_list<std::string_view>{"Children", "URLString"}
                       : std::initializer_list<std::string_view>{"Children", "URLString", "URIDictionary"});
    }

    void requireNoneLost() const override { list_.requireNoneLost({"URLString", "URIDictionary"}, 1); }
};

class ICabEntries : public EntryReader {
public:
    using EntryReader::EntryReader;

    void fillFolder(Object entry, Bookmark& folder) const override {
        folder.setItemName(text(entry, "Title"));
        folder.setShowHier(!isTrue(list_.value(entry, "Closed")));
        const Text type = text(entry, "FolderType");
        if (type == Text("Favorites"))
            makeFavourites(folder);
        if (type == Text("TabGroup"))
            folder.setAutoTab(true);
    }

    Entry fillLink(Object entry, Bookmark& link) const override {
        const Text name = text(entry, "Title");
        const Text url = text(entry, "URL");
        if (text(entry, "BookmarkType") == Text("SmartFolder"))
            return Entry::Skipped;
        if (name.isNull() && url.isNull())
            return Entry::Empty;
        if (name.isNull())
            list_.requireNoneMisspelt(entry, {"Title"});
        if (url.isNull())
            list_.requireNoneMisspelt(entry, {"URL"});
        link.setItemName(untitledUnless(name));
        link.setItemURL(url);
        link.setItemNote(text(entry, "Description"));
        link.setItemTags(text(entry, "Tags"));
        link.setItemDateAdded(date(entry, "CreationDate"));
        link.setItemDateModified(date(entry, "LastModifiedDate"));
        link.setItemLastChecked(date(entry, "LastCheckedDate"));
        return Entry::Link;
    }

    void requireSoundKeys(Object entry) const override {
        static constexpr std::array<std::string_view, 5> kNoLists = {"Title", "URL", "Description",
                                                                     "FolderType", "BookmarkType"};
        list_.requireSoundKeys(entry, kNoLists);
    }

    void requireEmpty(Object entry) const override { list_.requireNone(entry, {"Children", "URL", "Title"}); }
    void requireNoneLost() const override { list_.requireNoneLost({"Title", "URL"}, 2); }

private:
    Date date(Object entry, std::string_view key) const {
        const Object value = list_.value(entry, key);
        return value.kind() == Kind::Date ? Date::fromReferenceSeconds(value.real()) : Date();
    }

    // Returns whether a number is not zero, or a text begins as a yes or as such a number.
    static bool isTrue(Object value) {
        switch (value.kind()) {
        case Kind::Boolean:
        case Kind::Integer:
            return value.value() != 0;
        case Kind::Real:
            return value.real() != 0;
        case Kind::Ascii:
        case Kind::Utf8:
        case Kind::Utf16:
            return booleanOfText(BinaryPlist::text(value));
        default:
            return false;
        }
    }

    static bool booleanOfText(const Text& value) {
        std::string_view text = value.view();
        const std::size_t first = text.find_first_not_of(" \t\r\n");
        text.remove_prefix(std::min(first, text.size()));
        if (text.starts_with('-') || text.starts_with('+'))
            text.remove_prefix(1);
        text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
        return !text.empty() && std::string_view("YyTt123456789").find(text[0]) != std::string_view::npos;
    }
};

class Walk {
public:
    Walk(PlistEntries& list, std::size_t size, const EntryReader& entries, Date now, Progress* progress)
        : list_(list), entries_(entries), now_(now), wholeBudget_(8 * std::uint64_t{size} + 4096),
          budget_(wholeBudget_), progress_(progress, size, kProgressStride) {}

    Result<Ref<Bookmark>> run() {
        Ref<Bookmark> root = newFolder();
        root->setItemName("Master");
        const Object children = list_.children(list_.top());
        entries_.requireSoundKeys(list_.top());
        if (children.kind() != Kind::Array)
            list_.requireNone(list_.top(), {"Children"});
        enter(children, *root);
        while (!levels_.empty() && !list_.isDamaged()) {
            Level& level = levels_.back();
            if (level.next == level.entries.count()) {
                levels_.pop_back();
                continue;
            }
            const Object entry = list_.element(level.entries, level.next++);
            if (!charge(entry))
                list_.damaged("folders of its property list contain each other.");
            if (!progress_.goOn(wholeBudget_ - budget_))
                return cancelledByUser();
            take(entry, *level.parent);
        }
        entries_.requireNoneLost();
        return list_.isDamaged() ? Result<Ref<Bookmark>>(list_.damage()) : root;
    }

private:
    struct Level {
        Object entries;
        std::uint64_t next;
        Bookmark* parent;
    };

    Ref<Bookmark> newFolder() const {
        Ref<Bookmark> folder = Bookmark::init(now_);
        folder->makeParent();
        return folder;
    }

    void enter(Object children, Bookmark& parent) {
        if (children.kind() == Kind::Array)
            levels_.push_back({children, 0, &parent});
    }

    // Counts the cost of reading an entry, including the dictionary in it. A valid list is within the budget,
    // since each entry is read once. Entries that are in many folders, or contain themselves, exceed it.
    bool charge(Object entry) {
        const std::uint64_t cost = 1 + entry.count() + list_.value(entry, "URIDictionary").count();
        if (cost > budget_)
            return false;
        budget_ -= cost;
        return true;
    }

    void take(Object entry, Bookmark& parent) {
        if (entry.kind() != Kind::Dictionary)
            return list_.noteForeignEntry();
        entries_.requireSoundKeys(entry);
        const Object children = list_.children(entry);
        Ref<Bookmark> node = Bookmark::init(now_);
        if (children.kind() == Kind::Array) {
            node->makeParent();
            entries_.fillFolder(entry, *node);
            enter(children, *node);
            return parent.addChild(std::move(node));
        }
        const Entry kind = entries_.fillLink(entry, *node);
        if (kind == Entry::Empty)
            entries_.requireEmpty(entry);
        if (kind != Entry::Link)
            return;
        node->determineType();
        parent.addChild(std::move(node));
    }

    PlistEntries& list_;
    const EntryReader& entries_;
    const Date now_;
    const std::uint64_t wholeBudget_;
    std::uint64_t budget_;
    ProgressSteps progress_;
    std::vector<Level> levels_;
};

template <class Entries>
Result<Ref<Bookmark>> readBookmarks(std::string_view bytes, const BaseServices& services,
                                    Progress* progress) {
    // Parsing XML takes longer than reading its entries.
    const double opened = looksLikeXml(bytes) ? 0.75 : 0;
    PartialProgress opening(progress, 0, opened);
    PartialProgress walking(progress, opened, 1);
    const Result<PropertyList> list = PropertyList::open(bytes, &opening);
    if (!list && isCancelledByUser(list.error()))
        return cancelledByUser();
    if (!list)
        return failure(list.error().message, ErrorDomain::Cocoa, kPropertyListReadCorruptError);
    PlistEntries entries(*list);
    if (const Kind top = entries.top().kind(); top != Kind::Dictionary && top != Kind::Array)
        return failure("The file is a property list, but not one of bookmarks.", ErrorDomain::Cocoa,
                       kPropertyListReadCorruptError);
    return Walk(entries, list->size(), Entries(entries, services), Date::now(services.clock), &walking).run();
}

} // namespace

Result<Ref<Bookmark>> readSafariBookmarks(std::string_view bytes, const ReadOptions& options) {
    return readBookmarks<SafariEntries>(bytes, options.services, options.progress);
}

Result<Ref<Bookmark>> readICabBookmarks(std::string_view bytes, const ReadOptions& options) {
    return readBookmarks<ICabEntries>(bytes, options.services, options.progress);
}

} // namespace tabulon
