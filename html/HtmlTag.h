// The names of the elements for which the tree builder has rules, and the properties of each.
#pragma once

#include <cstdint>
#include <string_view>

namespace tabulon::html {

/// The names for which there are rules, sorted by name. Other is every name that has no rule. The order is
/// that of the table in HtmlTag.cpp.
enum class Tag : std::uint8_t {
    Other, ///< the name itself is in the node
    A,
    Address,
    AnnotationXml,
    Applet,
    Area,
    Article,
    Aside,
    B,
    Base,
    Basefont,
    Bgsound,
    Big,
    Blockquote,
    Body,
    Br,
    Button,
    Caption,
    Center,
    Code,
    Col,
    Colgroup,
    Dd,
    Desc,
    Details,
    Dialog,
    Dir,
    Div,
    Dl,
    Dt,
    Em,
    Embed,
    Fieldset,
    Figcaption,
    Figure,
    Font,
    Footer,
    ForeignObject,
    Form,
    Frame,
    Frameset,
    H1,
    H2,
    H3,
    H4,
    H5,
    H6,
    Head,
    Header,
    Hgroup,
    Hr,
    Html,
    I,
    Iframe,
    Image,
    Img,
    Input,
    Keygen,
    Li,
    Link,
    Listing,
    Main,
    Malignmark,
    Marquee,
    Math,
    Menu,
    Meta,
    Mglyph,
    Mi,
    Mn,
    Mo,
    Ms,
    Mtext,
    Nav,
    Nobr,
    Noembed,
    Noframes,
    Noscript,
    Object,
    Ol,
    Optgroup,
    Option,
    P,
    Param,
    Plaintext,
    Pre,
    Rb,
    Rp,
    Rt,
    Rtc,
    Ruby,
    S,
    Script,
    Search,
    Section,
    Select,
    Small,
    Source,
    Span,
    Strike,
    Strong,
    Style,
    Sub,
    Summary,
    Sup,
    Svg,
    Table,
    Tbody,
    Td,
    Template,
    Textarea,
    Tfoot,
    Th,
    Thead,
    Title,
    Tr,
    Track,
    Tt,
    U,
    Ul,
    Var,
    Wbr,
    Xmp,
};

/// The number of tags, with Other.
inline constexpr std::size_t kTagCount = std::size_t{1} + static_cast<std::size_t>(Tag::Xmp);

/// Properties of the HTML elements of a tag, as bits. They do not apply to elements of SVG and MathML, also
/// where these have the same name. `has` reads one of them.
enum TagTrait : std::uint8_t {
    kSpecial = 1,        ///< ends the search for an open element of another name
    kFormatting = 2,     ///< is opened again after another end tag has closed it
    kBoundsScope = 4,    ///< ends the normal scope
    kImpliedEnd = 8,     ///< its end tag is optional
    kBlockEnd = 16,      ///< its end tag closes everything in it
    kLeavesForeign = 32, ///< its start tag ends SVG and MathML
    kHeadContent = 64,   ///< is processed by the rules of the head everywhere
    kHeading = 128,      ///< "h1" to "h6"
};

/// Returns the tag of `name`, or Other, also for an empty name. Logarithmic in the number of tags. Requires:
/// `name` is in lower case.
Tag tagNamed(std::string_view name);

/// Returns the name of a tag in lower case, so that `tagNamed` returns `tag` for it; empty for Other. Valid
/// as long as the program runs. Constant time.
std::string_view nameOf(Tag tag);

/// Returns true if the HTML elements of `tag` have the property `trait`; false for Other. Constant time.
bool has(Tag tag, TagTrait trait);

} // namespace tabulon::html
