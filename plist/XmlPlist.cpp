#include "plist/XmlPlist.h"

#include "base/Date.h"
#include "plist/PlistWriter.h"
#include "plist/XmlEncoding.h"

#include <pugixml.hpp>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <optional>
#include <vector>

namespace tabulon {
namespace {

// Returns the text of an element: its character data and CDATA sections, joined.
std::string textOf(const pugi::xml_node& element) {
    std::string text;
    for (const pugi::xml_node& part : element.children())
        if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata)
            text += part.value();
    return text;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::optional<std::int64_t> integerFrom(std::string_view text) {
    text = trimmed(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal)
        text.remove_prefix(2);
    std::uint64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, hexadecimal ? 16 : 10);
    constexpr std::uint64_t kLowest = std::uint64_t{1} << 63;
    if (error != std::errc() || stop != end || value > (negative ? kLowest : kLowest - 1))
        return std::nullopt;
    return static_cast<std::int64_t>(negative ? 0 - value : value);
}

std::optional<double> realFrom(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

// Parses "2026-11-21T10:30:00Z", the only form of dates in the format, in whole seconds. A time beyond
// its day goes on into the next one, as browsers write and read it.
std::optional<double> dateFrom(std::string_view text) {
    text = trimmed(text);
    int fields[6] = {};
    constexpr std::string_view kSeparators = "--T::Z";
    for (std::size_t i = 0; i < 6; ++i) {
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), fields[i]);
        const auto length = static_cast<std::size_t>(stop - text.data());
        if (error != std::errc() || length >= text.size() || text[length] != kSeparators[i])
            return std::nullopt;
        text.remove_prefix(length + 1);
    }
    using namespace std::chrono;
    const year_month_day day{year(fields[0]), month(static_cast<unsigned>(fields[1])),
                             std::chrono::day(static_cast<unsigned>(fields[2]))};
    if (!text.empty() || !day.ok() || std::ranges::any_of(fields, [](int field) { return field < 0; }))
        return std::nullopt;
    const double days = static_cast<double>(sys_days(day).time_since_epoch().count());
    return days * 86400 + fields[3] * 3600.0 + fields[4] * 60.0 + fields[5] - Date::kReferenceUnixSeconds;
}

int base64Value(char c) {
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

std::string dataFrom(std::string_view base64) {
    std::string bytes;
    std::uint32_t bits = 0;
    int held = 0;
    for (const char c : base64) {
        const int value = base64Value(c);
        if (value < 0)
            continue;
        bits = bits << 6 | static_cast<std::uint32_t>(value);
        held += 6;
        if (held >= 8) {
            held -= 8;
            bytes += static_cast<char>(bits >> held & 0xFF);
        }
    }
    return bytes;
}

class Converter {
public:
    Converter(std::size_t bytes, Progress* progress)
        : plist_(bytes / kLeastBytesOfElement + 1, bytes), progress_(progress, bytes) {}

    Result<std::string> convert(const pugi::xml_node& root);

private:
    static constexpr std::size_t kLeastBytesOfElement = 4; // "<a/>"

    using Ids = std::vector<std::uint64_t>;

    struct Container {
        pugi::xml_node element;
        pugi::xml_node next;
        bool isDictionary = false;
        Ids keys;
        Ids values;
    };

    bool begin(const pugi::xml_node& element);
    bool addKey(const pugi::xml_node& element);
    std::optional<std::uint64_t> scalar(const pugi::xml_node& element);
    std::uint64_t number(std::string_view name, const std::string& text);
    std::optional<std::uint64_t> uid(const pugi::xml_node& dictionary);
    std::uint64_t close(const Container& container);

    PlistWriter plist_;
    ProgressSteps progress_;
    std::vector<Container> open_;
};

// Opens a container, or writes any other element as one object and adds it to the open container. Returns
// false for an element that is not part of the format. Without an open container the object is the top one.
bool Converter::begin(const pugi::xml_node& element) {
    const std::string_view name = element.name();
    const bool isDictionary = name == "dict";
    std::optional<std::uint64_t> id;
    if (isDictionary)
        id = uid(element);
    if (!id && (isDictionary || name == "array")) {
        open_.push_back({element, element.first_child(), isDictionary, {}, {}});
        return true;
    }
    if (!id)
        id = scalar(element);
    if (id && !open_.empty())
        open_.back().values.push_back(*id);
    return id.has_value();
}

std::optional<std::uint64_t> Converter::uid(const pugi::xml_node& dictionary) {
    const pugi::xml_node key = dictionary.first_child();
    const pugi::xml_node value = key.next_sibling();
    if (std::string_view(key.name()) != "key" || std::string_view(key.child_value()) != "CF$UID" ||
        std::string_view(value.name()) != "integer" || value.next_sibling())
        return std::nullopt;
    const auto number = integerFrom(textOf(value));
    if (!number || *number < 0)
        return std::nullopt;
    return plist_.writeUid(static_cast<std::uint64_t>(*number));
}

// Writes a number or a date. One that cannot be parsed becomes Null: the reader of the list decides whether a
// value of the wrong kind is an error.
std::uint64_t Converter::number(std::string_view name, const std::string& text) {
    if (name == "integer") {
        const auto value = integerFrom(text);
        return value ? plist_.writeInteger(*value) : plist_.writeNull();
    }
    const auto value = name == "real" ? realFrom(text) : dateFrom(text);
    if (!value)
        return plist_.writeNull();
    return name == "real" ? plist_.writeReal(*value) : plist_.writeDate(*value);
}

std::optional<std::uint64_t> Converter::scalar(const pugi::xml_node& element) {
    const std::string_view name = element.name();
    if (name == "true" || name == "false")
        return plist_.writeBoolean(name == "true");
    const std::string text = textOf(element);
    if (name == "string")
        return plist_.writeText(text);
    if (name == "data")
        return plist_.writeData(dataFrom(text));
    if (name == "integer" || name == "real" || name == "date")
        return number(name, text);
    return std::nullopt;
}

bool Converter::addKey(const pugi::xml_node& element) {
    Container& container = open_.back();
    if (container.keys.size() != container.values.size() || std::string_view(element.name()) != "key")
        return false;
    container.keys.push_back(plist_.writeText(textOf(element)));
    return true;
}

std::uint64_t Converter::close(const Container& container) {
    if (container.isDictionary)
        return plist_.writeDictionary(plist_.layOutKeys(container.keys.data(), container.keys.size()),
                                      container.values.data());
    return plist_.writeArray(container.values);
}

Result<std::string> Converter::convert(const pugi::xml_node& root) {
    const auto malformed = failure("The file is XML, but not a property list.");
    if (!begin(root))
        return malformed;
    if (open_.empty())
        return plist_.finish(plist_.objectCount() - 1);
    while (true) {
        Container& container = open_.back();
        while (container.next && container.next.type() != pugi::node_element)
            container.next = container.next.next_sibling();
        if (const pugi::xml_node element = container.next) {
            container.next = element.next_sibling();
            if (!progress_.goOn(static_cast<std::size_t>(element.offset_debug())))
                return cancelledByUser();
            const bool keyExpected =
                container.isDictionary && container.keys.size() == container.values.size();
            if (keyExpected ? !addKey(element) : !begin(element))
                return malformed;
            continue;
        }
        if (container.isDictionary && container.keys.size() != container.values.size())
            return malformed;
        const std::uint64_t id = close(container);
        open_.pop_back();
        if (open_.empty())
            return plist_.finish(id);
        open_.back().values.push_back(id);
    }
}

} // namespace

Result<std::string> binaryPlistFromXml(std::string_view xml, Progress* progress) {
    Result<std::string> bytes = xmlForParser(xml);
    if (!bytes)
        return bytes;
    if (progress && !progress->goOn(0))
        return cancelledByUser();
    pugi::xml_document document;
    constexpr unsigned kFlags = pugi::parse_default | pugi::parse_ws_pcdata_single;
    if (!document.load_buffer_inplace(bytes->data(), bytes->size(), kFlags) || refersToZero(xml))
        return failure(xml.find("<plist") == std::string_view::npos ? "The file is not a property list."
                                                                    : "The file is not well-formed XML.");
    const pugi::xml_node plist = document.child("plist");
    const pugi::xml_node root =
        plist.find_child([](const pugi::xml_node& node) { return node.type() == pugi::node_element; });
    if (!root)
        return failure("The file is XML, but not a property list.");
    return Converter(xml.size(), progress).convert(root);
}

} // namespace tabulon
