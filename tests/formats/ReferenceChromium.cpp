#include "tests/formats/ReferenceChromium.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace tabulon::test {

const Json* Json::find(const std::string& key) const {
    const Json* found = nullptr;
    for (const auto& [name, value] : fields)
        if (name == key)
            found = &value;
    return found;
}

namespace {

using Kind = Json::Kind;

// Generation of random values

Json stringOf(std::string text) {
    return {Kind::String, std::move(text)};
}

class Maker {
public:
    explicit Maker(std::mt19937& random) : random_(random) {}

    Json file() {
        Json roots = object();
        for (const char* name : {"bookmark_bar", "other", "synced", "mobile"})
            maybe(roots, name, [&] { return node(2); });
        maybe(roots, "custom_root", [&] {
            Json custom = object();
            for (const char* name : {"userRoot", "trash", "speedDial"})
                maybe(custom, name, [&] { return node(2); });
            shuffle(custom);
            return custom;
        });
        shuffle(roots);
        Json top = object();
        maybe(top, "checksum", [&] { return text(); });
        maybe(top, "roots", [&] { return roots; });
        maybe(top, "version", [&] { return Json{Kind::Other, "1"}; });
        shuffle(top);
        return top;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    static Json object() { return {Kind::Object, {}}; }
    void shuffle(Json& value) { std::shuffle(value.fields.begin(), value.fields.end(), random_); }

    template <class Make>
    void maybe(Json& owner, const std::string& key, Make make) {
        if (below(8) == 0)
            owner.fields.emplace_back(key, unexpected());
        if (below(8) != 0)
            owner.fields.emplace_back(key, make());
        if (below(16) == 0)
            owner.fields.emplace_back(key, make());
    }

    Json unexpected() {
        constexpr auto kOthers =
            std::to_array<const char*>({"null", "true", "false", "0", "-1.5e3", "13000000000000000",
                                        "99999999999999999999999", "1e999"});
        switch (below(4)) {
        case 0:
            return object();
        case 1:
            return {Kind::Array, {}};
        case 2:
            return text();
        default:
            return {Kind::Other, kOthers[below(kOthers.size())]};
        }
    }

    Json text() {
        constexpr auto kTexts = std::to_array<const char*>(
            {"", "Name", "Ünï \"quoted\" \\ back", "tab\tline\n", "\xF0\x9F\x94\x96 \xE2\x80\xA8", "url",
             "folder", "https://example.org/?a=1&b=</x>", "mailto:a@example.org", "\x01\x7F"});
        return stringOf(kTexts[below(kTexts.size())]);
    }

    Json timestamp() {
        constexpr auto kTimestamps = std::to_array<const char*>(
            {"", "0", "13000000000000000", "13000000000999999", "-5", "11644473599999999", "00", "12x", "x",
             " 13000000000000001", "99999999999999999999", "-99999999999999999999", "+7000000"});
        return stringOf(kTimestamps[below(kTimestamps.size())]);
    }

    Json node(int level) {
        Json node = object();
        maybe(node, "name", [&] { return text(); });
        maybe(node, "url", [&] { return text(); });
        maybe(node, "date_added", [&] { return timestamp(); });
        maybe(node, "date_modified", [&] { return timestamp(); });
        maybe(node, "type", [&] {
            return stringOf(below(12) == 0 ? "separator" : below(2) ? "url" : "folder");
        });
        maybe(node, "guid", [&] { return text(); });
        maybe(node, "meta_info", [&] {
            Json meta = object();
            maybe(meta, "Description", [&] { return text(); });
            maybe(meta, "last_visited", [&] { return text(); });
            return meta;
        });
        if (level < 6)
            maybe(node, "children", [&] {
                Json children{Kind::Array, {}};
                for (unsigned count = below(4); count > 0; --count)
                    children.elements.push_back(below(16) == 0 ? unexpected() : this->node(level + 1));
                return children;
            });
        shuffle(node);
        return node;
    }

    std::mt19937& random_;
};

class Writer {
public:
    explicit Writer(std::mt19937& random) : random_(random) {}

    std::string write(const Json& json) {
        put(json);
        space();
        return std::move(file_);
    }

private:
    void space() {
        for (auto count = random_() % 4; count > 0; --count)
            file_ += " \t\r\n"[random_() % 4];
    }

    void put(const Json& json) {
        space();
        if (json.kind == Kind::Other)
            file_ += json.text;
        else if (json.kind == Kind::String)
            putString(json.text);
        else if (json.kind == Kind::Array)
            list('[', ']', json.elements, [&](const Json& element) { put(element); });
        else
            list('{', '}', json.fields, [&](const auto& field) {
                space();
                putString(field.first);
                space();
                file_ += ':';
                put(field.second);
            });
    }

    template <class Items, class Put>
    void list(char open, char close, const Items& items, Put putItem) {
        file_ += open;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (i > 0)
                file_ += ',';
            putItem(items[i]);
            space();
        }
        file_ += close;
    }

    void putString(const std::string& text) {
        file_ += '"';
        for (const char c : text) {
            const auto byte = static_cast<unsigned char>(c);
            if (byte < 0x20 || (byte < 0x80 && random_() % 12 == 0)) {
                constexpr const char* kDigits = "0123456789abcdef";
                file_.append("\\u00").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
            } else if (c == '"' || c == '\\') {
                file_.append("\\").append(1, c);
            } else {
                file_ += c;
            }
        }
        file_ += '"';
    }

    std::mt19937& random_;
    std::string file_;
};

// Reference implementation of the readers

const Json* objectAt(const Json* owner, const std::string& key) {
    const Json* value = owner ? owner->find(key) : nullptr;
    return value && value->kind == Kind::Object ? value : nullptr;
}

const Json* childrenOf(const Json* owner) {
    const Json* value = owner ? owner->find("children") : nullptr;
    return value && value->kind == Kind::Array ? value : nullptr;
}

Text textAt(const Json* owner, const std::string& key) {
    const Json* value = owner ? owner->find(key) : nullptr;
    return value && value->kind == Kind::String ? Text(value->text) : Text();
}

Date dateAt(const Json* owner, const std::string& key) {
    const Text text = textAt(owner, key);
    if (text.isEmpty() || text == Text("0"))
        return {};
    const std::int64_t number = std::strtoll(text.string().c_str(), nullptr, 10);
    const std::uint64_t seconds = static_cast<std::uint64_t>(number) / 1'000'000 - 11'644'473'600u;
    return Date::fromUnixSeconds(static_cast<double>(seconds));
}

Text untitledUnless(const Text& name, const BaseServices& services) {
    return name.isEmpty() ? Text(services.texts.text("Untitled")) : name;
}

Ref<Bookmark> newFolder(Bookmark& parent, const Text& name, Date added) {
    Ref<Bookmark> folder = Bookmark::init(added);
    folder->makeParent();
    folder->setItemName(name);
    parent.addChild(folder);
    return folder;
}

void convert(Bookmark& parent, const Json* children, const BaseServices& services) {
    if (!children)
        return;
    for (const Json& node : children->elements) {
        const Text type = textAt(&node, "type");
        const Text name = untitledUnless(textAt(&node, "name"), services);
        if (type == Text("url")) {
            const Text note = textAt(objectAt(&node, "meta_info"), "Description");
            Ref<Bookmark> link = Bookmark::initWithDictionary({name, textAt(&node, "url"), note, {}},
                                                              dateAt(&node, "date_added"));
            link->setItemDateModified(dateAt(&node, "date_modified"));
            parent.addChild(link);
        } else if (type == Text("folder")) {
            convert(*newFolder(parent, name, dateAt(&node, "date_added")), childrenOf(&node), services);
        }
    }
}

Ref<Bookmark> newMaster(const BaseServices& services) {
    Ref<Bookmark> master = Bookmark::init(Date::now(services.clock));
    master->makeParent();
    master->setItemName("Master");
    return master;
}

} // namespace

Json randomBookmarks(std::mt19937& random) {
    return Maker(random).file();
}

std::string written(const Json& json, std::mt19937& random) {
    return Writer(random).write(json);
}

Ref<Bookmark> referenceChromium(const Json& file, const BaseServices& services) {
    const Json* roots = objectAt(&file, "roots");
    if (!roots)
        return {};
    Ref<Bookmark> master = newMaster(services);
    const Json* bar = objectAt(roots, "bookmark_bar");
    const Json* other = objectAt(roots, "other");
    Ref<Bookmark> folder = newFolder(*master, services.texts.text("Favourites"), dateAt(bar, "date_added"));
    folder->setLabel(1);
    folder->setItemDateModified(dateAt(bar, "date_modified"));
    convert(*folder, childrenOf(bar), services);
    convert(*newFolder(*master, "Other Bookmarks", dateAt(other, "date_added")), childrenOf(other), services);
    return master;
}

Ref<Bookmark> referenceOpera(const Json& file, const BaseServices& services) {
    const Json* roots = objectAt(&file, "roots");
    if (!roots)
        return {};
    Ref<Bookmark> master = newMaster(services);
    const Json* custom = objectAt(roots, "custom_root");
    const Json* other = objectAt(roots, "other");
    const auto add = [&](const Json* root, const Text& name, bool withChildren) {
        Ref<Bookmark> folder = newFolder(*master, name, dateAt(root, "date_added"));
        if (withChildren)
            convert(*folder, childrenOf(root), services);
        return folder;
    };
    const Json* bar = objectAt(roots, "bookmark_bar");
    const Json* user = objectAt(custom, "userRoot");
    const Json* trash = objectAt(custom, "trash");
    const Json* synced = objectAt(roots, "synced");
    add(bar, services.texts.text("Favourites"), true)->setLabel(1);
    add(user, textAt(user, "name"), custom);
    add(trash, textAt(trash, "name"), custom);
    add(other, textAt(other, "name"), true);
    add(synced, textAt(synced, "name"), other);
    return master;
}

} // namespace tabulon::test
