// A second writer of binary property lists, written for the tests alone: it can use any width of integers and
// references, put the objects in any order, and share no code with the program's own.
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

struct Plist {
    enum class Kind { Boolean, Integer, Real, Date, Data, Ascii, Utf16, Uid, Array, Dictionary, Raw };
    Kind kind;
    std::int64_t integer = 0;
    double real = 0;
    std::string bytes; // Utf16: big-endian units
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
/// Bytes as they are, marker included.
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

struct Layout {
    unsigned referenceSize = 2;
    unsigned offsetSize = 4;
    /// log2 of the bytes of every integer: 0 to 4.
    unsigned integerWidth = 3;
    /// The order of the objects in the file; 0 keeps that of the walk.
    unsigned shuffleSeed = 0;
};

class Encoder {
public:
    explicit Encoder(Layout layout) : layout_(layout) {}

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

/// The objects of a keyed archive, built one by one.
class TestArchive {
public:
    TestArchive() { add(ascii("$null")); }

    /// Gives the object's number in the archive.
    std::int64_t add(Value object) {
        objects.push_back(std::move(object));
        return static_cast<std::int64_t>(objects.size()) - 1;
    }
    std::int64_t addClass(const std::vector<std::string>& ancestry) {
        std::vector<Value> names;
        for (const std::string& name : ancestry)
            names.push_back(ascii(name));
        return add(dictionary({{"$classname", ascii(ancestry.front())}, {"$classes", array(names)}}));
    }
    std::int64_t addDate(double seconds) {
        return add(dictionary({{"NS.time", real(seconds)}, {"$class", uid(dateClass())}}));
    }
    std::int64_t addArray(const std::vector<std::int64_t>& uids) {
        std::vector<Value> items;
        for (const std::int64_t each : uids)
            items.push_back(uid(each));
        return add(dictionary({{"NS.objects", array(items)}, {"$class", uid(arrayClass())}}));
    }
    /// A Bookmark with just these keys.
    std::int64_t addNode(Pairs pairs) {
        pairs.emplace_back("$class", uid(bookmarkClass()));
        return add(dictionary(std::move(pairs)));
    }
    std::int64_t addFolder(const std::string& name, const std::vector<std::int64_t>& children) {
        const std::int64_t text = add(ascii(name));
        return addNode(
            {{"Name", uid(text)}, {"Folder", boolean(true)}, {"Children", uid(addArray(children))}});
    }
    std::int64_t addVersion(Value version, Value fileType) {
        return add(dictionary({{"Version", std::move(version)},
                               {"SortOrder", integer(0)},
                               {"FileType", std::move(fileType)},
                               {"$class", uid(addClass({"FileVersion", "NSObject"}))}}));
    }

    std::int64_t bookmarkClass() { return once(bookmark_, {"Bookmark", "NSObject"}); }
    std::int64_t arrayClass() { return once(array_, {"NSMutableArray", "NSArray", "NSObject"}); }
    std::int64_t dateClass() { return once(date_, {"NSDate", "NSObject"}); }

    Value plist(std::int64_t rootUid) const {
        return dictionary({{"$version", integer(100000)},
                           {"$archiver", ascii("NSKeyedArchiver")},
                           {"$top", dictionary({{"root", uid(rootUid)}})},
                           {"$objects", array(objects)}});
    }
    std::string bytes(std::int64_t rootUid, Layout layout = {}) const {
        return Encoder(layout).encode(plist(rootUid));
    }
    /// A document with the root folder `master`.
    std::string document(std::int64_t master, Layout layout = {}) {
        const std::int64_t version = addVersion(integer(1), integer(0x54626C6E));
        return bytes(addArray({version, master}), layout);
    }

    std::vector<Value> objects;

private:
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
