// Reading of a property list in either form, binary or XML. The forms themselves are in BinaryPlist.h and
// XmlPlist.h.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"
#include "plist/BinaryPlist.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tabulon {

/// Refers to the bytes of a binary file, or owns the binary form of an XML file. Movable, not copyable. The
/// objects that were read before a move stay valid.
class PropertyList {
public:
    using Object = BinaryPlist::Object;
    using Kind = BinaryPlist::Kind;

    /// Opens the property list in `data`, which must outlive it. Fails with a sentence, without a code, if
    /// `data` is empty, is neither form or is damaged. Objects of a binary file are checked when they are
    /// read. `progress` may be nullptr; it is used for the XML form only. Fails with `cancelledByUser` if the
    /// user cancels.
    static Result<PropertyList> open(std::string_view data, Progress* progress = nullptr);

    /// Returns the binary form, valid as long as this object.
    const BinaryPlist& binary() const { return plist_; }
    /// Returns true if the file has the XML form. A file of this form that could be opened has whole
    /// containers and texts, because the parser detects other damage.
    bool isXml() const { return converted_ != nullptr; }
    /// Returns the size of the binary form in bytes.
    std::size_t size() const { return size_; }
    /// Returns the top object; it may be Damaged.
    Object top() const { return plist_.object(plist_.topObject()); }

    /// Returns the value of `key`, the last one if the key is repeated. Returns Damaged if there is none or
    /// if `dictionary` is no dictionary. Linear in the size of the dictionary. Requires: `key` is ASCII.
    Object value(Object dictionary, std::string_view key) const;
    /// Returns element `index` of an Array; it may be Damaged. Requires: `index` is below the count.
    Object element(Object array, std::uint64_t index) const {
        return plist_.object(plist_.reference(array, index));
    }
    /// Returns the text of `key`, or null if there is no value or it is no text. Linear like `value`.
    Text text(Object dictionary, std::string_view key) const;

private:
    explicit PropertyList(BinaryPlist plist) : plist_(plist) {}

    BinaryPlist plist_;
    /// In bytes, of the binary form.
    std::size_t size_ = 0;
    std::unique_ptr<const std::string> converted_; // the binary form of an XML file, else nullptr
};

/// Returns true if `data` begins with a byte-order mark that `byteOrderMarkOf` knows, or with "<" after
/// optional white space. So it recognises XML in UTF-8 and little-endian UTF-16 and UTF-32, in big-endian
/// UTF-16 with a byte-order mark, and in encodings that contain ASCII.
bool looksLikeXml(std::string_view data);

} // namespace tabulon
