#include "formats/import/NetscapeTokens.h"

namespace tabulon {

using Kind = NetscapeToken::Kind;

std::optional<NetscapeToken> NetscapeTokens::next(std::size_t from) {
    if (from < from_ || from > tag_)
        lookAhead(from);
    else if (from > separator_)
        separator_ = bytes_.find("<HR>", from, tag_);
    if (tag_ == ScannedBytes::npos)
        return std::nullopt;
    if (separator_ != ScannedBytes::npos)
        return NetscapeToken{Kind::Separator, separator_};
    return NetscapeToken{kindOf(tag_), tag_};
}

void NetscapeTokens::lookAhead(std::size_t from) {
    from_ = from;
    separator_ = ScannedBytes::npos;
    tag_ = bytes_.find('<', from);
    while (tag_ != ScannedBytes::npos && bytes_.at(tag_ + 1) != 'D' && !bytes_.startsAt(tag_, "</DL>")) {
        if (separator_ == ScannedBytes::npos && bytes_.startsAt(tag_, "<HR>"))
            separator_ = tag_;
        tag_ = bytes_.find('<', tag_ + 1);
    }
}

Kind NetscapeTokens::kindOf(std::size_t start) const {
    if (bytes_.at(start + 1) == '/')
        return Kind::ListEnd;
    switch (bytes_.at(start + 2)) {
    case 'L':
        return Kind::ListStart;
    case 'D':
        return Kind::Description;
    default:
        break;
    }
    switch (bytes_.at(start + 5)) {
    case 'H':
        return Kind::Heading;
    case 'A':
        return Kind::Link;
    default:
        return Kind::Unknown;
    }
}

} // namespace tabulon
