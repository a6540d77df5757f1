#include "plist/PropertyList.h"

#include "plist/XmlPlist.h"
#include "text/ByteOrderMark.h"

namespace tabulon {

bool looksLikeXml(std::string_view data) {
    if (byteOrderMarkOf(data) != ByteOrderMark::None)
        return true;
    const std::size_t first = data.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && data[first] == '<';
}

Result<PropertyList> PropertyList::open(std::string_view data, Progress* progress) {
    if (data.empty())
        return failure("The file is empty.");
    const bool isBinary = data.starts_with("bplist");
    if (!isBinary && !looksLikeXml(data))
        return failure("The file is not a property list.");
    std::unique_ptr<const std::string> converted;
    if (!isBinary) {
        Result<std::string> written = binaryPlistFromXml(data, progress);
        if (!written)
            return tl::unexpected(written.error());
        converted = std::make_unique<const std::string>(*std::move(written));
    }
    const std::string_view binary = converted ? *converted : data;
    const Result<BinaryPlist> plist = BinaryPlist::open(binary);
    if (!plist)
        return tl::unexpected(plist.error());
    PropertyList list(*plist);
    list.size_ = binary.size();
    list.converted_ = std::move(converted);
    return list;
}

PropertyList::Object PropertyList::value(Object dictionary, std::string_view key) const {
    if (dictionary.kind() != Kind::Dictionary)
        return {};
    for (std::uint64_t i = dictionary.count(); i > 0; --i)
        if (BinaryPlist::textEquals(element(dictionary, i - 1), key))
            return element(dictionary, dictionary.count() + i - 1);
    return {};
}

Text PropertyList::text(Object dictionary, std::string_view key) const {
    const Object found = value(dictionary, key);
    return BinaryPlist::isText(found) ? BinaryPlist::text(found) : Text();
}

} // namespace tabulon
