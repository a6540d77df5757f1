#include "html/HtmlTag.h"

#include <algorithm>
#include <array>

namespace tabulon::html {
namespace {

struct Row {
    std::string_view name;
    std::uint8_t traits;
};

// In the order of the tags after Other.
constexpr auto kRows = std::to_array<Row>({
    {"a", kFormatting},
    {"address", kSpecial | kBlockEnd},
    {"annotation-xml", 0},
    {"applet", kSpecial | kBoundsScope},
    {"area", kSpecial},
    {"article", kSpecial | kBlockEnd},
    {"aside", kSpecial | kBlockEnd},
    {"b", kFormatting | kLeavesForeign},
    {"base", kSpecial | kHeadContent},
    {"basefont", kSpecial | kHeadContent},
    {"bgsound", kSpecial | kHeadContent},
    {"big", kFormatting | kLeavesForeign},
    {"blockquote", kSpecial | kBlockEnd | kLeavesForeign},
    {"body", kSpecial | kLeavesForeign},
    {"br", kSpecial | kLeavesForeign},
    {"button", kSpecial | kBlockEnd},
    {"caption", kSpecial | kBoundsScope},
    {"center", kSpecial | kBlockEnd | kLeavesForeign},
    {"code", kFormatting | kLeavesForeign},
    {"col", kSpecial},
    {"colgroup", kSpecial},
    {"dd", kSpecial | kImpliedEnd | kLeavesForeign},
    {"desc", 0},
    {"details", kSpecial | kBlockEnd},
    {"dialog", kBlockEnd},
    {"dir", kSpecial | kBlockEnd},
    {"div", kSpecial | kBlockEnd | kLeavesForeign},
    {"dl", kSpecial | kBlockEnd | kLeavesForeign},
    {"dt", kSpecial | kImpliedEnd | kLeavesForeign},
    {"em", kFormatting | kLeavesForeign},
    {"embed", kSpecial | kLeavesForeign},
    {"fieldset", kSpecial | kBlockEnd},
    {"figcaption", kSpecial | kBlockEnd},
    {"figure", kSpecial | kBlockEnd},
    {"font", kFormatting},
    {"footer", kSpecial | kBlockEnd},
    {"foreignobject", 0},
    {"form", kSpecial},
    {"frame", kSpecial},
    {"frameset", kSpecial},
    {"h1", kSpecial | kLeavesForeign | kHeading},
    {"h2", kSpecial | kLeavesForeign | kHeading},
    {"h3", kSpecial | kLeavesForeign | kHeading},
    {"h4", kSpecial | kLeavesForeign | kHeading},
    {"h5", kSpecial | kLeavesForeign | kHeading},
    {"h6", kSpecial | kLeavesForeign | kHeading},
    {"head", kSpecial | kLeavesForeign},
    {"header", kSpecial | kBlockEnd},
    {"hgroup", kSpecial | kBlockEnd},
    {"hr", kSpecial | kLeavesForeign},
    {"html", kSpecial | kBoundsScope},
    {"i", kFormatting | kLeavesForeign},
    {"iframe", kSpecial},
    {"image", 0},
    {"img", kSpecial | kLeavesForeign},
    {"input", kSpecial},
    {"keygen", kSpecial},
    {"li", kSpecial | kImpliedEnd | kLeavesForeign},
    {"link", kSpecial | kHeadContent},
    {"listing", kSpecial | kBlockEnd | kLeavesForeign},
    {"main", kSpecial | kBlockEnd},
    {"malignmark", 0},
    {"marquee", kSpecial | kBoundsScope},
    {"math", 0},
    {"menu", kSpecial | kBlockEnd | kLeavesForeign},
    {"meta", kSpecial | kLeavesForeign | kHeadContent},
    {"mglyph", 0},
    {"mi", 0},
    {"mn", 0},
    {"mo", 0},
    {"ms", 0},
    {"mtext", 0},
    {"nav", kSpecial | kBlockEnd},
    {"nobr", kFormatting | kLeavesForeign},
    {"noembed", kSpecial},
    {"noframes", kSpecial | kHeadContent},
    {"noscript", kSpecial},
    {"object", kSpecial | kBoundsScope},
    {"ol", kSpecial | kBlockEnd | kLeavesForeign},
    {"optgroup", kImpliedEnd},
    {"option", kImpliedEnd},
    {"p", kSpecial | kImpliedEnd | kLeavesForeign},
    {"param", kSpecial},
    {"plaintext", kSpecial},
    {"pre", kSpecial | kBlockEnd | kLeavesForeign},
    {"rb", kImpliedEnd},
    {"rp", kImpliedEnd},
    {"rt", kImpliedEnd},
    {"rtc", kImpliedEnd},
    {"ruby", kLeavesForeign},
    {"s", kFormatting | kLeavesForeign},
    {"script", kSpecial | kHeadContent},
    {"search", kBlockEnd},
    {"section", kSpecial | kBlockEnd},
    {"select", kSpecial | kBoundsScope | kBlockEnd},
    {"small", kFormatting | kLeavesForeign},
    {"source", kSpecial},
    {"span", kLeavesForeign},
    {"strike", kFormatting | kLeavesForeign},
    {"strong", kFormatting | kLeavesForeign},
    {"style", kSpecial | kHeadContent},
    {"sub", kLeavesForeign},
    {"summary", kSpecial | kBlockEnd},
    {"sup", kLeavesForeign},
    {"svg", 0},
    {"table", kSpecial | kBoundsScope | kLeavesForeign},
    {"tbody", kSpecial},
    {"td", kSpecial | kBoundsScope},
    {"template", kSpecial | kBoundsScope | kHeadContent},
    {"textarea", kSpecial},
    {"tfoot", kSpecial},
    {"th", kSpecial | kBoundsScope},
    {"thead", kSpecial},
    {"title", kSpecial | kHeadContent},
    {"tr", kSpecial},
    {"track", kSpecial},
    {"tt", kFormatting | kLeavesForeign},
    {"u", kFormatting | kLeavesForeign},
    {"ul", kSpecial | kBlockEnd | kLeavesForeign},
    {"var", kLeavesForeign},
    {"wbr", kSpecial},
    {"xmp", kSpecial},
});

static_assert(kRows.size() + 1 == kTagCount);
static_assert(std::ranges::is_sorted(kRows, {}, &Row::name));

} // namespace

Tag tagNamed(std::string_view name) {
    const auto found = std::ranges::lower_bound(kRows, name, {}, &Row::name);
    const bool known = found != kRows.end() && found->name == name;
    return known ? static_cast<Tag>(found - kRows.begin() + 1) : Tag::Other;
}

std::string_view nameOf(Tag tag) {
    return tag == Tag::Other ? std::string_view() : kRows[static_cast<std::size_t>(tag) - 1].name;
}

bool has(Tag tag, TagTrait trait) {
    return tag != Tag::Other && (kRows[static_cast<std::size_t>(tag) - 1].traits & trait) != 0;
}

} // namespace tabulon::html
