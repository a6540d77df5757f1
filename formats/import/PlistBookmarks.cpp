#include "formats/import/PlistBookmarks.h"

#include "model/PropertyList.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace tabulon {
namespace {

using Object = PropertyList::Object;
using Kind = PropertyList::Kind;

constexpr std::size_t kProgressStride = 4096; // entries and their keys

// The texts of a list. Entries may share one, or texts that overlap, a million times: long ones are made
// once, and all that are made together take no more than a small multiple of the list.
class SharedTexts {
public:
    explicit SharedTexts(std::size_t listSize) : budget_(8 * std::uint64_t{listSize} + 4096) {}

    /// Null for what is no text, and for all once there were too many.
    Text text(Object value) {
        if (!BinaryPlist::isText(value))
            return {};
        if (value.count() <= kShort)
            return BinaryPlist::text(value);
        Text& shared = texts_[value.bytes()];
        if (shared.isNull() && charge(value.count()))
            shared = BinaryPlist::text(value);
        return shared;
    }
    bool isExhausted() const { return exhausted_; }

private:
    static constexpr std::uint64_t kShort = 8; // no longer than what a shared one takes itself

    bool charge(std::uint64_t units) {
        exhausted_ = exhausted_ || units > budget_;
        budget_ -= exhausted_ ? 0 : units;
        return !exhausted_;
    }

    std::unordered_map<const std::uint8_t*, Text> texts_; // by where they lie
    std::uint64_t budget_;
    bool exhausted_ = false;
};

// What one browser's entries mean.
class EntryReader {
public:
    EntryReader(const PropertyList& list, SharedTexts& texts, const BaseServices& services)
        : list_(list), texts_(texts), services_(services) {}
    virtual ~EntryReader() = default;

    /// Fills a folder, which is one already.
    virtual void fillFolder(Object entry, Bookmark& folder) const = 0;
    /// Fills a link; false for an entry that is to be dropped.
    virtual bool fillLink(Object entry, Bookmark& link) const = 0;

protected:
    Text text(Object entry, std::string_view key) const { return texts_.text(list_.value(entry, key)); }
    Text untitledUnless(const Text& name) const {
        return name.isEmpty() ? Text(services_.texts.text("Untitled")) : name;
    }
    /// The folder that people have at hand.
    void makeFavourites(Bookmark& folder) const {
        folder.setItemName(services_.texts.text("Favourites"));
        folder.setLabel(1);
    }

    const PropertyList& list_;
    SharedTexts& texts_;
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

    bool fillLink(Object entry, Bookmark& link) const override {
        const Text name = text(list_.value(entry, "URIDictionary"), "title");
        const Text url = text(entry, "URLString");
        if (name.isNull() && url.isNull())
            return false;
        const Text preview = text(entry, "previewText");
        link.setItemDateAdded({});
        link.setItemName(untitledUnless(name));
        link.setItemURL(url);
        link.setItemNote(preview.isNull() ? text(entry, "Description") : preview);
        return true;
    }
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

    bool fillLink(Object entry, Bookmark& link) const override {
        const Text name = text(entry, "Title");
        const Text url = text(entry, "URL");
        if (text(entry, "BookmarkType") == Text("SmartFolder") || (name.isNull() && url.isNull()))
            return false;
        link.setItemName(untitledUnless(name));
        link.setItemURL(url);
        link.setItemNote(text(entry, "Description"));
        link.setItemTags(text(entry, "Tags"));
        link.setItemDateAdded(date(entry, "CreationDate"));
        link.setItemDateModified(date(entry, "LastModifiedDate"));
        link.setItemLastChecked(date(entry, "LastCheckedDate"));
        return true;
    }

private:
    Date date(Object entry, std::string_view key) const {
        const Object value = list_.value(entry, key);
        return value.kind() == Kind::Date ? Date::fromReferenceSeconds(value.real()) : Date();
    }

    // Of numbers all but zero, of texts those that begin as a yes or a number does.
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
    Walk(const PropertyList& list, const EntryReader& entries, const SharedTexts& texts, Date now,
         Progress* progress)
        : list_(list), entries_(entries), texts_(texts), now_(now),
          wholeBudget_(8 * std::uint64_t{list.size()} + 4096), budget_(wholeBudget_),
          progress_(progress, list.size(), kProgressStride) {}

    Result<Ref<Bookmark>> run() {
        Ref<Bookmark> root = newFolder();
        root->setItemName("Master");
        enter(list_.value(list_.top(), "Children"), *root);
        while (!levels_.empty()) {
            Level& level = levels_.back();
            if (level.next == level.entries.count()) {
                levels_.pop_back();
                continue;
            }
            const Object entry = list_.element(level.entries, level.next++);
            if (!charge(entry))
                return failure("The file is damaged: folders of its property list contain each other.");
            if (texts_.isExhausted())
                return failure("The file is damaged: texts of its property list lie inside each other.");
            if (!progress_.goOn(wholeBudget_ - budget_))
                return cancelledByUser();
            take(entry, *level.parent);
        }
        return root;
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

    // Counts what looking at an entry costs, the dictionary included that entries may hold. Each entry of a
    // sound list is looked at once; entries that lie in many folders, or in themselves, are too many at some
    // point.
    bool charge(Object entry) {
        const std::uint64_t cost = 1 + entry.count() + list_.value(entry, "URIDictionary").count();
        if (cost > budget_)
            return false;
        budget_ -= cost;
        return true;
    }

    void take(Object entry, Bookmark& parent) {
        if (entry.kind() != Kind::Dictionary)
            return;
        const Object children = list_.value(entry, "Children");
        Ref<Bookmark> node = Bookmark::init(now_);
        if (children.kind() == Kind::Array) {
            node->makeParent();
            entries_.fillFolder(entry, *node);
            enter(children, *node);
        } else if (entries_.fillLink(entry, *node)) {
            node->determineType();
        } else {
            return;
        }
        parent.addChild(std::move(node));
    }

    const PropertyList& list_;
    const EntryReader& entries_;
    const SharedTexts& texts_;
    const Date now_;
    const std::uint64_t wholeBudget_;
    std::uint64_t budget_;
    ProgressSteps progress_;
    std::vector<Level> levels_;
};

template <class Entries>
Result<Ref<Bookmark>> readBookmarks(std::string_view bytes, const BaseServices& services,
                                    Progress* progress) {
    // The XML form takes longer to be read than what it holds.
    const double opened = looksLikeXml(bytes) ? 0.75 : 0;
    PartialProgress opening(progress, 0, opened);
    PartialProgress walking(progress, opened, 1);
    const Result<PropertyList> list = PropertyList::open(bytes, &opening);
    if (!list && isCancelledByUser(list.error()))
        return cancelledByUser();
    if (!list)
        return failure(list.error().message, ErrorDomain::Cocoa, kPropertyListReadCorruptError);
    SharedTexts texts(list->size());
    return Walk(*list, Entries(*list, texts, services), texts, Date::now(services.clock), &walking).run();
}

} // namespace

Result<Ref<Bookmark>> readSafariBookmarks(std::string_view bytes, const BaseServices& services,
                                          Progress* progress) {
    return readBookmarks<SafariEntries>(bytes, services, progress);
}

Result<Ref<Bookmark>> readICabBookmarks(std::string_view bytes, const BaseServices& services,
                                        Progress* progress) {
    return readBookmarks<ICabEntries>(bytes, services, progress);
}

} // namespace tabulon
