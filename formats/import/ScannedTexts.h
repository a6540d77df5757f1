// The texts that stand in the bytes of a file that is being scanned: decoding and unescaping.
#pragma once

#include "base/Text.h"
#include "base/Utf8.h"
#include "formats/import/ScannedBytes.h"

namespace tabulon {

/// Makes texts of ranges of one file.
class ScannedTexts {
public:
    /// Goes over the whole file once.
    explicit ScannedTexts(const ScannedBytes& bytes);

    /// Whether the whole file is UTF-8.
    bool isUtf8() const { return isUtf8_; }

    /// What the bytes of the range stand for: decoded as UTF-8, each malformed part one U+FFFD, and
    /// unescaped. Requires from <= to <= size.
    Text text(std::size_t from, std::size_t to) const;

    /// The same with every line feed and carriage return among the bytes taken for a blank.
    Text line(std::size_t from, std::size_t to) const;

private:
    // No character reaches over `position`; true only in a file that is UTF-8 from end to end.
    bool isBorder(std::size_t position) const {
        return isUtf8_ && !utf8::isContinuation(bytes_.at(position));
    }

    const ScannedBytes& bytes_;
    bool isUtf8_;
};

} // namespace tabulon
