// The names of the elements that the building of a page knows by name, and what is special about each.
#pragma once

#include <cstdint>
#include <string_view>

namespace tabulon::html {

/// Sorted by name; Other is every name without a rule of its own.
enum class Tag : std::uint8_t {
    Other,
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

inline constexpr std::size_t kTagCount = std::size_t{1} + static_cast<std::size_t>(Tag::Xmp);

/// What HTML elements of a name have in common; several at once.
enum TagTrait : std::uint8_t {
    kSpecial = 1,        ///< ends the search for an open element of another name
    kFormatting = 2,     ///< is opened again where it was closed too early
    kBoundsScope = 4,    ///< hides what is open outside of it
    kImpliedEnd = 8,     ///< may leave out its end tag
    kBlockEnd = 16,      ///< its end tag closes everything in it
    kLeavesForeign = 32, ///< never stands in SVG or MathML
    kHeadContent = 64,   ///< is read as in the head wherever it stands
    kHeading = 128,      ///< "h1" to "h6"
};

/// The tag of a name in lower case.
Tag tagNamed(std::string_view name);

/// The name of a tag; empty for Other.
std::string_view nameOf(Tag tag);

bool has(Tag tag, TagTrait trait);

} // namespace tabulon::html
