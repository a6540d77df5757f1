#include "model/ArchiveGraph.h"

#include <array>

namespace tabulon::archive {
namespace {

Class classNamed(const Graph::Object& name) {
    static constexpr std::array<std::pair<std::string_view, Class>, 8> kClasses = {{
        {"Bookmark", Class::Bookmark},
        {"Bookmark2", Class::Bookmark},
        {"FileVersion", Class::FileVersion},
        {"NSArray", Class::Array},
        {"NSMutableArray", Class::Array},
        {"NSDate", Class::Date},
        {"NSString", Class::String},
        {"NSMutableString", Class::String},
    }};
    for (const auto& [text, kind] : kClasses)
        if (BinaryPlist::textEquals(name, text))
            return kind;
    return Class::Unknown;
}

} // namespace

Graph::Graph(const BinaryPlist& plist, std::size_t size)
    // A small dictionary is searched once for each of its keys. No whole file needs eight times its size.
    : plist_(plist), size_(size), budget_(8 * std::uint64_t{size} + 4096), keys_(plist.objectCount(), 0) {}

bool Graph::damaged(std::string_view what) {
    if (problem_.empty())
        problem_ = what;
    return false;
}

bool Graph::charge(std::uint64_t bytes) {
    if (bytes > budget_)
        return damaged("objects of its property list overlap.");
    budget_ -= bytes;
    return true;
}

Key Graph::keyOf(std::uint64_t id) {
    if (id >= keys_.size()) {
        damaged("a reference points outside its property list.");
        return Key::Unknown;
    }
    if (keys_[id] == 0) {
        const Object name = plist_.object(id);
        if (!BinaryPlist::isText(name)) {
            damaged("a key of a record is no text.");
            return Key::Unknown;
        }
        std::size_t key = 0;
        while (key < kKeyCount && !BinaryPlist::textEquals(name, kKeyNames[key]))
            ++key;
        keys_[id] = static_cast<std::uint8_t>(key + 1);
    }
    return static_cast<Key>(keys_[id] - 1);
}

// Returns the index of the last value of `key` among a dictionary's references, or kNowhere.
std::uint64_t Graph::placeOf(Object dictionary, Key key) {
    if (dictionary.kind() != Kind::Dictionary || !chargeReferences(dictionary))
        return kNowhere;
    for (std::uint64_t i = dictionary.count(); i > 0; --i)
        if (keyAt(dictionary, i - 1) == key)
            return dictionary.count() + i - 1;
    return kNowhere;
}

Graph::Object Graph::find(Object dictionary, Key key) {
    const std::uint64_t place = placeOf(dictionary, key);
    return place == kNowhere ? Object() : element(dictionary, place);
}

Graph::Object Graph::archived(std::uint64_t uid) {
    if (uid >= objects_.count()) {
        damaged("an object of its archive refers to one that is not there.");
        return {};
    }
    const Object object = element(objects_, uid);
    // In an archive null is an object number, not an object of the kind Null.
    if (object.kind() == Kind::Damaged || object.kind() == Kind::Null)
        damaged("an object of its archive is cut off or has an unknown kind.");
    return object;
}

bool Graph::isNode(std::uint64_t uid) {
    const Object object = archived(uid);
    return object.kind() == Kind::Dictionary && !isLikeTheLastDate(object) &&
           classOf(object) == Class::Bookmark;
}

Class Graph::classOf(Object dictionary) {
    const Object reference = find(dictionary, Key::Class);
    return reference.kind() == Kind::Uid ? resolveClass(reference.value()) : Class::Unknown;
}

Class Graph::resolveClass(std::uint64_t uid) {
    for (const auto& [known, kind] : classes_)
        if (known == uid)
            return kind;
    const Object description = archived(uid);
    Class kind = classNamed(find(description, Key::ClassName));
    const Object ancestry = find(description, Key::Classes);
    if (ancestry.kind() == Kind::Array && chargeReferences(ancestry))
        for (std::uint64_t i = 0; kind == Class::Unknown && i < ancestry.count(); ++i)
            kind = classNamed(element(ancestry, i));
    if (classes_.size() < 64)
        classes_.emplace_back(uid, kind);
    return kind;
}

// Returns the object with the text of an archived object: that object, or the text or data in a string
// object.
Graph::Object Graph::textBehind(Object object) {
    if (BinaryPlist::isText(object))
        return object;
    if (object.kind() == Kind::Dictionary && classOf(object) == Class::String) {
        if (const Object text = find(object, Key::String); BinaryPlist::isText(text))
            return text;
        if (const Object bytes = find(object, Key::Bytes); bytes.kind() == Kind::Data)
            return bytes;
    }
    damaged("a text is something else, or of an unknown class.");
    return {};
}

Text Graph::text(std::uint64_t uid) {
    if (uid == 0)
        return {};
    if (uid < objects_.count())
        if (const Object text = plist_.shortText(idAt(objects_, uid)); text.kind() != Kind::Damaged)
            return text.count() <= kSmall ? BinaryPlist::text(text) : longText(uid, text);
    const Object object = textBehind(archived(uid));
    if (object.kind() == Kind::Damaged)
        return {};
    if (object.count() <= kSmall)
        return BinaryPlist::text(object);
    return longText(uid, object);
}

// Most long texts belong to one node. Only a very long text, and one that is requested again, is kept for
// sharing.
Text Graph::longText(std::uint64_t uid, Object object) {
    longTextsSeen_.resize(plist_.objectCount());
    if (const auto id = plist_.reference(objects_, uid); !longTextsSeen_[id] && object.count() < kVeryLong) {
        longTextsSeen_[id] = true;
        return charge(object.count()) ? BinaryPlist::text(object) : Text();
    }
    Text& shared = sharedTexts_[object.bytes()];
    if (shared.isNull() && charge(object.count()))
        shared = BinaryPlist::text(object);
    return shared;
}

// Returns the number in an archived date. The dates of one writer have the same keys in the same order, so
// the indices are those of the date before if keys and class are.
Graph::Object Graph::timeOf(Object object) {
    if (object.kind() != Kind::Dictionary)
        return {};
    if (object.count() > 0 && isLikeTheLastDate(object))
        return element(object, date_.timePlace);
    const std::uint64_t timePlace = placeOf(object, Key::Time);
    if (timePlace == kNowhere || classOf(object) != Class::Date)
        return {};
    if (object.count() <= kSmall)
        date_ = {object, placeOf(object, Key::Class), timePlace};
    return element(object, timePlace);
}

Date Graph::decodeDate(Object object) {
    const Object time = object.kind() == Kind::Date ? object : timeOf(object);
    if (time.kind() == Kind::Real || time.kind() == Kind::Date)
        return Date::fromReferenceSeconds(time.real());
    if (time.kind() == Kind::Integer)
        return Date::fromReferenceSeconds(static_cast<double>(static_cast<std::int64_t>(time.value())));
    damaged("a date is something else, of an unknown class or without its time.");
    return {};
}

Date Graph::date(std::uint64_t uid) {
    if (uid == 0)
        return {};
    if (uid < objects_.count() && date_.like.count() > 0) {
        const Object object = plist_.shortDictionary(idAt(objects_, uid));
        if (object.kind() == Kind::Dictionary && isLikeTheLastDate(object))
            if (const auto time = plist_.longReal(idAt(object, date_.timePlace)))
                return Date::fromReferenceSeconds(*time);
    }
    return decodeDate(archived(uid));
}

Graph::Object Graph::arrayBehind(std::uint64_t uid) {
    const Object object = uid == 0 ? Object() : archived(uid);
    if (object.kind() != Kind::Dictionary || classOf(object) != Class::Array)
        return {};
    const Object array = find(object, Key::Objects);
    return array.kind() == Kind::Array && chargeReferences(array) ? array : Object();
}

Result<std::uint64_t> Graph::open() {
    const Object top = plist_.object(plist_.topObject());
    const auto notAnArchive = failure("The file is a property list, but not a bookmark document.");
    const Object archiver = find(top, Key::ArchiveArchiver);
    const Object version = find(top, Key::ArchiveVersion);
    if (top.kind() != Kind::Dictionary || !BinaryPlist::textEquals(archiver, kArchiverName) ||
        version.kind() != Kind::Integer || version.value() != kArchiverVersion)
        return isDamaged() ? damage() : notAnArchive;
    objects_ = find(top, Key::ArchiveObjects);
    const Object root = find(find(top, Key::ArchiveTop), Key::Root);
    if (objects_.kind() != Kind::Array || root.kind() != Kind::Uid)
        return isDamaged() ? damage() : notAnArchive;
    return root.value();
}

std::uint64_t Graph::openWhatIsLeft() {
    const Result<std::uint64_t> root = open();
    forgetDamage();
    if (root)
        return *root;
    objects_ = {};
    for (std::uint64_t id = 0; id < plist_.objectCount(); ++id) {
        const Object array = plist_.object(id);
        if (array.kind() == Kind::Array && array.count() > objects_.count() &&
            BinaryPlist::textEquals(plist_.object(plist_.reference(array, 0)), "$null"))
            objects_ = array;
    }
    return objects_.count() > 1 ? 1 : 0;
}

} // namespace tabulon::archive
