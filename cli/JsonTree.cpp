#include "cli/JsonTree.h"

#include "model/TreeWalk.h"
#include "text/ByteOrderMark.h"

#include <fmt/format.h>
#include <simdjson.h>

#include <array>
#include <cmath>
#include <limits>

namespace tabulon::cli {
namespace {

using simdjson::dom::element;

void appendDate(std::string& out, Date date) {
    const double seconds = date.isNull() ? std::numeric_limits<double>::quiet_NaN() : date.unixSeconds();
    if (!std::isfinite(seconds)) {
        out += "null";
        return;
    }
    const std::size_t start = out.size();
    fmt::format_to(std::back_inserter(out), "{}", seconds);
    if (out.find_first_of(".e", start) == std::string::npos)
        out += ".0";
}

void appendJsonCharacter(std::string& out, char c) {
    constexpr std::string_view kShort = "\"\\\b\f\n\r\t";
    constexpr std::string_view kLetters = "\"\\bfnrt";
    if (const std::size_t at = kShort.find(c); at != std::string_view::npos)
        (out += '\\') += kLetters[at];
    else if (static_cast<unsigned char>(c) < 0x20)
        fmt::format_to(std::back_inserter(out), "\\u{:04x}", static_cast<unsigned>(c));
    else
        out += c;
}

void appendObjectStart(std::string& out, const Bookmark& node) {
    if (!out.empty() && out.back() != '[')
        out += ',';
    out += '{';
    appendJsonFields(out, node);
    out += node.getChildren() ? ",\"children\":[" : ",\"children\":null}";
}

// ---- reading

struct TextField {
    std::string_view key;
    void (Bookmark::*set)(Text);
};
struct DateField {
    std::string_view key;
    void (Bookmark::*set)(Date);
};
struct CodeField {
    std::string_view key;
    void (Bookmark::*set)(std::uint8_t);
};
struct FlagField {
    std::string_view key;
    void (Bookmark::*set)(bool);
};

constexpr auto kTexts = std::to_array<TextField>({{"name", &Bookmark::setItemName},
                                                  {"url", &Bookmark::setItemURL},
                                                  {"note", &Bookmark::setItemNote},
                                                  {"tags", &Bookmark::setItemTags}});
constexpr auto kDates = std::to_array<DateField>({{"dateAdded", &Bookmark::setItemDateAdded},
                                                  {"dateModified", &Bookmark::setItemDateModified},
                                                  {"lastChecked", &Bookmark::setItemLastChecked},
                                                  {"lastOpened", &Bookmark::setItemLastOpened}});
constexpr auto kCodes = std::to_array<CodeField>({{"type", &Bookmark::setType},
                                                  {"label", &Bookmark::setLabel},
                                                  {"flags", &Bookmark::setFlags},
                                                  {"status", &Bookmark::setStatus}});
constexpr auto kFlags = std::to_array<FlagField>({{"folder", &Bookmark::setItemFolder},
                                                  {"openFolder", &Bookmark::setShowHier},
                                                  {"autoTab", &Bookmark::setAutoTab}});

template <class Field, std::size_t count>
const Field* fieldNamed(const std::array<Field, count>& fields, std::string_view key) {
    for (const Field& field : fields)
        if (field.key == key)
            return &field;
    return nullptr;
}

tl::unexpected<Error> wrongKind(std::string_view key, std::string_view expected) {
    return failure(fmt::format("The value of “{}” must be {}.", key, expected));
}

Result<void> readNumber(Bookmark& node, std::string_view key, element value) {
    if (const DateField* field = fieldNamed(kDates, key)) {
        double seconds = 0;
        if (value.is_null()) {
            (node.*field->set)(Date());
            return {};
        }
        if (value.get_double().get(seconds) != simdjson::SUCCESS)
            return wrongKind(key, "a number or null");
        (node.*field->set)(Date::fromUnixSeconds(seconds));
        return {};
    }
    std::int64_t number = 0;
    const bool isInteger = value.get_int64().get(number) == simdjson::SUCCESS;
    if (key == "browser") {
        node.setItemBrowser(number);
        return isInteger ? Result<void>() : wrongKind(key, "a whole number of 64 bits");
    }
    if (!isInteger || number < 0 || number > 255)
        return wrongKind(key, "a whole number from 0 to 255");
    (node.*fieldNamed(kCodes, key)->set)(static_cast<std::uint8_t>(number));
    return {};
}

Result<void> readField(Bookmark& node, std::string_view key, element value) {
    if (const TextField* field = fieldNamed(kTexts, key)) {
        std::string_view text;
        if (value.is_null()) {
            (node.*field->set)(Text());
            return {};
        }
        if (value.get_string().get(text) != simdjson::SUCCESS)
            return wrongKind(key, "a string or null");
        (node.*field->set)(Text(text));
        return {};
    }
    if (const FlagField* field = fieldNamed(kFlags, key)) {
        bool flag = false;
        if (value.get_bool().get(flag) != simdjson::SUCCESS)
            return wrongKind(key, "true or false");
        (node.*field->set)(flag);
        return {};
    }
    if (fieldNamed(kDates, key) || fieldNamed(kCodes, key) || key == "browser")
        return readNumber(node, key, value);
    return {};
}

struct Pending {
    Bookmark* node;
    element object;
};

// Appends the children of one node, without their values, and adds them to `pending`.
Result<void> readChildren(Bookmark& node, element value, std::vector<Pending>& pending) {
    if (value.is_null())
        return {};
    simdjson::dom::array array;
    if (value.get_array().get(array) != simdjson::SUCCESS)
        return wrongKind("children", "an array or null");
    // `pending` refers to the children of the first list, so they cannot be replaced.
    if (node.getChildren())
        return failure("A node has “children” twice.");
    node.makeChildList(array.size());
    for (const element child : array) {
        Ref<Bookmark> empty = Bookmark::initEmpty();
        pending.push_back({empty.get(), child});
        node.addChild(std::move(empty));
    }
    return {};
}

Result<void> readNode(const Pending& from, std::vector<Pending>& pending) {
    simdjson::dom::object object;
    if (from.object.get_object().get(object) != simdjson::SUCCESS)
        return failure("A node must be an object.");
    for (const auto field : object) {
        Result<void> done = field.key == "children" ? readChildren(*from.node, field.value, pending)
                                                    : readField(*from.node, field.key, field.value);
        if (!done)
            return done;
    }
    from.node->linkIcon();
    return {};
}

} // namespace

void appendJsonText(std::string& out, const Text& text) {
    if (text.isNull()) {
        out += "null";
        return;
    }
    out += '"';
    for (const char c : text.view())
        appendJsonCharacter(out, c);
    out += '"';
}

void appendJsonFields(std::string& out, const Bookmark& node) {
    const auto text = [&](std::string_view key, const Text& value) {
        out += key;
        appendJsonText(out, value);
    };
    const auto date = [&](std::string_view key, Date value) {
        out += key;
        appendDate(out, value);
    };
    text("\"name\":", node.itemName());
    text(",\"url\":", node.itemURL());
    text(",\"note\":", node.itemNote());
    text(",\"tags\":", node.itemTags());
    date(",\"dateAdded\":", node.itemDateAdded());
    date(",\"dateModified\":", node.itemDateModified());
    date(",\"lastChecked\":", node.itemLastChecked());
    date(",\"lastOpened\":", node.itemLastOpened());
    fmt::format_to(std::back_inserter(out),
                   ",\"type\":{},\"label\":{},\"flags\":{},\"status\":{},\"browser\":{},\"folder\":{},"
                   "\"openFolder\":{},\"autoTab\":{}",
                   node.getType(), node.getLabel(), node.getFlags(), node.getStatus(), node.itemBrowser(),
                   node.isFolder(), node.showHier(), node.getAutoTab());
}

std::string jsonFromTree(const Bookmark& root, OutputLimit* limit) {
    std::string out;
    bool isTooMuch = false;
    appendObjectStart(out, root);
    walkBelow(
        root,
        [&](Bookmark& node) {
            isTooMuch = isTooMuch || (limit && limit->isPassedBy(out.size()));
            if (!isTooMuch)
                appendObjectStart(out, node);
            return !isTooMuch;
        },
        [&](Bookmark&) { out += "]}"; });
    if (root.getChildren())
        out += "]}";
    return out;
}

Result<Ref<Bookmark>> treeFromJson(std::string_view json) {
    json = withoutUtf8Mark(json);
    simdjson::dom::parser parser;
    const simdjson::padded_string padded(json);
    // Any depth that the file can contain. The parser's default is 1,024.
    if (parser.allocate(padded.size(), padded.size() / 2 + 1024) != simdjson::SUCCESS)
        return failure("There is not enough memory to read the JSON.");
    element top;
    if (const auto error = parser.parse(padded).get(top); error != simdjson::SUCCESS)
        return failure(fmt::format("The file is not valid JSON: {}", simdjson::error_message(error)));
    Ref<Bookmark> root = Bookmark::initEmpty();
    std::vector<Pending> pending{{root.get(), top}};
    while (!pending.empty()) {
        const Pending next = pending.back();
        pending.pop_back();
        if (const Result<void> done = readNode(next, pending); !done)
            return tl::unexpected(done.error());
    }
    return root;
}

} // namespace tabulon::cli
