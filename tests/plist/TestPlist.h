// A second writer of binary property lists, for tests only. It can write integers and references of any width
// and the objects in any order. It shares no code with the program's writer.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tabulon::test {

struct Plist;
using Value = std::shared_ptr<Plist>;

/// One object of a property list. Only the members of its kind have a meaning.
struct Plist {
    enum class Kind { Boolean, Integer, Real, Date, Data, Ascii, Utf16, Uid, Array, Dictionary, Raw };
    Kind kind;
    std::int64_t integer = 0;
    double real = 0;
    std::string bytes; // Utf16: big-endian code units
    std::vector<Value> items;
    std::vector<std::pair<std::string, Value>> pairs;
};

inline Value make(Plist plist) {
    return std::make_shared<Plist>(std::move(plist));
}
inline Value boolean(bool value) {
    return make({.kind = Plist::Kind::Boolean, .integer = value, .bytes = {}, .items = {}, .pairs = {}});
}
inline Value integer(std::int64_t value) {
    return make({.kind = Plist::Kind::Integer, .integer = value, .bytes = {}, .items = {}, .pairs = {}});
}
inline Value real(double value) {
    return make({.kind = Plist::Kind::Real, .real = value, .bytes = {}, .items = {}, .pairs = {}});
}
inline Value date(double value) {
    return make({.kind = Plist::Kind::Date, .real = value, .bytes = {}, .items = {}, .pairs = {}});
}
inline Value data(std::string bytes) {
    return make({.kind = Plist::Kind::Data, .bytes = std::move(bytes), .items = {}, .pairs = {}});
}
inline Value ascii(std::string text) {
    return make({.kind = Plist::Kind::Ascii, .bytes = std::move(text), .items = {}, .pairs = {}});
}
inline Value utf16(const std::u16string& text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit >> 8);
        bytes += static_cast<char>(unit & 0xFF);
    }
    return make({.kind = Plist::Kind::Utf16, .bytes = std::move(bytes), .items = {}, .pairs = {}});
}
inline Value uid(std::int64_t value) {
    return make({.kind = Plist::Kind::Uid, .integer = value, .bytes = {}, .items = {}, .pairs = {}});
}
/// Returns a value that is encoded as `bytes`, which include the marker.
inline Value raw(std::string bytes) {
    return make({.kind = Plist::Kind::Raw, .bytes = std::move(bytes), .items = {}, .pairs = {}});
}
inline Value array(std::vector<Value> items) {
    return make({.kind = Plist::Kind::Array, .bytes = {}, .items = std::move(items), .pairs = {}});
}
using Pairs = std::vector<std::pair<std::string, Value>>;
inline Value dictionary(Pairs pairs) {
    return make({.kind = Plist::Kind::Dictionary, .bytes = {}, .items = {}, .pairs = std::move(pairs)});
}

/// The sizes and the order that the encoder uses.
struct Layout {
    /// The size of an object reference in bytes.
    unsigned referenceSize = 2;
    /// The size of an entry of the offset table in bytes.
    unsigned offsetSize = 4;
    /// log2 of the size of every integer in bytes: 0 to 4.
    unsigned integerWidth = 3;
    /// The seed for the random order of the objects in the file. With 0 they are in the order of the walk.
    unsigned shuffleSeed = 0;
};

class Encoder {
public:
    explicit Encoder(Layout layout) : layout_(layout) {}

    /// Returns the file with the top object `top`. Values that are shared in memory are written once.
    std::string encode(const Value& top) {
        collect(top);
        std::vector<std::size_t> order(objects_.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        std::mt19937 random(layout_.shuffleSeed);
        if (layout_.shuffleSeed != 0)
            std::shuffle(order.begin(), order.end(), random);
        std::string out = "bplist00";
        std::vector<std::size_t> offsets(objects_.size());
        for (const std::size_t i : order) {
            offsets[i] = out.size();
            append(out, *objects_[i]);
        }
        const std::size_t table = out.size();
        for (const std::size_t offset : offsets)
            number(out, offset, layout_.offsetSize);
        out.append(6, '\0');
        out += static_cast<char>(layout_.offsetSize);
        out += static_cast<char>(layout_.referenceSize);
        number(out, objects_.size(), 8);
        number(out, 0, 8);
        number(out, table, 8);
        return out;
    }

    /// Appends `value` as a big-endian integer of `width` bytes. Higher bytes that do not fit are cut off.
    static void number(std::string& out, std::uint64_t value, unsigned width) {
        for (unsigned i = width; i > 0; --i)
            out += static_cast<char>(i > 8 ? 0 : value >> (8 * (i - 1)) & 0xFF);
    }

private:
    void collect(const Value& value) {
        if (ids_.contains(value.get()))
            return;
        ids_[value.get()] = objects_.size();
        objects_.push_back(value);
        for (const auto& [name, item] : value->pairs) {
            if (!keys_.contains(name))
                collect(keys_[name] = ascii(name));
            collect(item);
        }
        for (const Value& item : value->items)
            collect(item);
    }
    void reference(std::string& out, const Value& value) {
        number(out, ids_.at(value.get()), layout_.referenceSize);
    }
    void marker(std::string& out, unsigned kind, std::size_t count) {
        out += static_cast<char>(kind << 4 | (count < 15 ? count : 15));
        if (count >= 15) {
            out += '\x12';
            number(out, count, 4);
        }
    }
    void append(std::string& out, const Plist& plist) {
        switch (plist.kind) {
        case Plist::Kind::Boolean:
            out += static_cast<char>(plist.integer != 0 ? 9 : 8);
            break;
        case Plist::Kind::Integer:
            out += static_cast<char>(0x10 | layout_.integerWidth);
            number(out, static_cast<std::uint64_t>(plist.integer), 1u << layout_.integerWidth);
            break;
        case Plist::Kind::Real:
            out += '\x23';
            number(out, std::bit_cast<std::uint64_t>(plist.real), 8);
            break;
        case Plist::Kind::Date:
            out += '\x33';
            number(out, std::bit_cast<std::uint64_t>(plist.real), 8);
            break;
        case Plist::Kind::Data:
            marker(out, 4, plist.bytes.size());
            out += plist.bytes;
            break;
        case Plist::Kind::Ascii:
            marker(out, 5, plist.bytes.size());
            out += plist.bytes;
            break;
        case Plist::Kind::Utf16:
            marker(out, 6, plist.bytes.size() / 2);
            out += plist.bytes;
            break;
        case Plist::Kind::Uid:
            out += '\x83';
            number(out, static_cast<std::uint64_t>(plist.integer), 4);
            break;
        case Plist::Kind::Array:
            marker(out, 0xA, plist.items.size());
            for (const Value& item : plist.items)
                reference(out, item);
            break;
        case Plist::Kind::Dictionary:
            marker(out, 0xD, plist.pairs.size());
            for (const auto& [name, item] : plist.pairs)
                reference(out, keys_.at(name));
            for (const auto& [name, item] : plist.pairs)
                reference(out, item);
            break;
        case Plist::Kind::Raw:
            out += plist.bytes;
            break;
        }
    }

    Layout layout_;
    std::vector<Value> objects_;
    std::map<const Plist*, std::size_t> ids_;
    std::map<std::string, Value> keys_;
};

/// Builds a keyed archive object by object.
class TestArchive {
public:
    TestArchive() { add(ascii("$null")); }

    /// Appends `object` and returns its index in the archive.
    std::int64_t add(Value object) {
        objects.push_back(std::move(object));
        return static_cast<std::int64_t>(objects.size()) - 1;
    }
    /// Adds a class record whose names are `ancestry`, the class itself first, and returns its index.
    std::int64_t addClass(const std::vector<std::string>& ancestry) {
        std::vector<Value> names;
        for (const std::string& name : ancestry)
            names.push_back(ascii(name));
        return add(dictionary({{"$classname", ascii(ancestry.front())}, {"$classes", array(names)}}));
    }
    /// Adds a date in seconds since 2001 and returns its index.
    std::int64_t addDate(double seconds) {
        return add(dictionary({{"NS.time", real(seconds)}, {"$class", uid(dateClass())}}));
    }
    /// Adds an array of the objects with these indices and returns its index.
    std::int64_t addArray(const std::vector<std::int64_t>& uids) {
        std::vector<Value> items;
        for (const std::int64_t each : uids)
            items.push_back(uid(each));
        return add(dictionary({{"NS.objects", array(items)}, {"$class", uid(arrayClass())}}));
    }
    /// Adds a Bookmark with only these keys and returns its index.
    std::int64_t addNode(Pairs pairs) {
        pairs.emplace_back("$class", uid(bookmarkClass()));
        return add(dictionary(std::move(pairs)));
    }
    /// Adds a Bookmark that is a folder with these children and returns its index.
    std::int64_t addFolder(const std::string& name, const std::vector<std::int64_t>& children) {
        const std::int64_t text = add(ascii(name));
        return addNode(
            {{"Name", uid(text)}, {"Folder", boolean(true)}, {"Children", uid(addArray(children))}});
    }
    /// Adds the version record of a document and returns its index.
    std::int64_t addVersion(Value version, Value fileType) {
        return add(dictionary({{"Version", std::move(version)},
                               {"SortOrder", integer(0)},
                               {"FileType", std::move(fileType)},
                               {"$class", uid(addClass({"FileVersion", "NSObject"}))}}));
    }

    std::int64_t bookmarkClass() { return once(bookmark_, {"Bookmark", "NSObject"}); }
    std::int64_t arrayClass() { return once(array_, {"NSMutableArray", "NSArray", "NSObject"}); }
    std::int64_t dateClass() { return once(date_, {"NSDate", "NSObject"}); }

    /// Returns the whole archive with the root object `rootUid`.
    Value plist(std::int64_t rootUid) const {
        return dictionary({{"$version", integer(100000)},
                           {"$archiver", ascii("NSKeyedArchiver")},
                           {"$top", dictionary({{"root", uid(rootUid)}})},
                           {"$objects", array(objects)}});
    }
    /// Returns the archive with the root object `rootUid` as a file.
    std::string bytes(std::int64_t rootUid, Layout layout = {}) const {
        return Encoder(layout).encode(plist(rootUid));
    }
    /// Returns the bytes of a document with the root folder `master`.
    std::string document(std::int64_t master, Layout layout = {}) {
        const std::int64_t version = addVersion(integer(1), integer(0x54626C6E));
        return bytes(addArray({version, master}), layout);
    }

    std::vector<Value> objects;

private:
    /// Returns `number`. If it is 0, adds a class record first and stores its index in `number`.
    std::int64_t once(std::int64_t& number, const std::vector<std::string>& ancestry) {
        if (number == 0)
            number = addClass(ancestry);
        return number;
    }
    std::int64_t bookmark_ = 0;
    std::int64_t array_ = 0;
    std::int64_t date_ = 0;
};

} // namespace tabulon::test
