// The texts in the bytes of a file that is scanned: decoding and unescaping.
#pragma once

#include "base/Text.h"
#include "base/Utf8.h"
#include "formats/import/ScannedBytes.h"

namespace tabulon {

/// Makes texts of ranges of one file.
class ScannedTexts {
public:
    /// Validates the whole file once. `bytes` must outlive this object.
    explicit ScannedTexts(const ScannedBytes& bytes);

    /// Returns whether the whole file is UTF-8.
    bool isUtf8() const { return isUtf8_; }

    /// Returns the text in a range of bytes: UTF-8 in which each malformed part is decoded to one U+FFFD,
    /// with XML's references replaced. Requires: from <= to <= size.
    Text text(std::size_t from, std::size_t to) const;

    /// Returns the same text with a space for every line feed and carriage return in the bytes. Those that
    /// are written as references are kept.
    Text line(std::size_t from, std::size_t to) const;

private:
    // Returns whether no character extends over `position`. False for a file that is not UTF-8.
    bool isBorder(std::size_t position) const {
        return isUtf8_ && !utf8::isContinuation(bytes_.at(position));
    }

    const ScannedBytes& bytes_;
    bool isUtf8_;
};

} // namespace tabulon
