// A property list of either form, binary or XML, behind one reading access.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"
#include "plist/BinaryPlist.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tabulon {

/// Holds the binary form itself where the file has the other one.
class PropertyList {
public:
    using Object = BinaryPlist::Object;
    using Kind = BinaryPlist::Kind;

    /// `data` must outlive the list. Fails with a sentence for what is neither form or damaged. `progress`,
    /// which may be null, is told how far the XML form is read.
    static Result<PropertyList> open(std::string_view data, Progress* progress = nullptr);

    const BinaryPlist& binary() const { return plist_; }
    /// Whether the file is of the XML form, which shows damage by itself: its lists and texts are whole.
    bool isXml() const { return converted_ != nullptr; }
    /// The bytes of the binary form.
    std::size_t size() const { return size_; }
    Object top() const { return plist_.object(plist_.topObject()); }

    /// The (last) value under a key of ASCII characters; Damaged where there is none or `dictionary` is no
    /// dictionary. Linear in the size of the dictionary.
    Object value(Object dictionary, std::string_view key) const;
    /// Element `index` of an Array, below its count.
    Object element(Object array, std::uint64_t index) const {
        return plist_.object(plist_.reference(array, index));
    }
    /// The text under a key, null for anything else.
    Text text(Object dictionary, std::string_view key) const;

private:
    explicit PropertyList(BinaryPlist plist) : plist_(plist) {}

    BinaryPlist plist_;
    std::size_t size_ = 0;
    std::unique_ptr<const std::string> converted_; // what `plist_` looks into, unless that is the file
};

/// True when data begins as XML does, in any of its encodings.
bool looksLikeXml(std::string_view data);

} // namespace tabulon
