// The text of a settings file, and changes that keep everything else in it: comments, unknown keys, other
// sections, the order of lines. FileUserDefaults.h reads and writes the file.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// A text of lines `KEY = VALUE` in the section [General], whose heading may be missing. Lines that begin
/// with # or ; are comments. Lines of other sections are kept and not read. Where a key is set twice, its
/// last line counts. A value may be in quotation marks. In keys and values the escapes \n, \t, \r, \\, \" and
/// \xHH (a byte) stand for characters that a line cannot contain, so every value is read back unchanged,
/// whatever its bytes.
class SettingsText {
public:
    using Values = std::map<std::string, std::string, std::less<>>;

    SettingsText() = default;
    /// Parses `bytes`, which may be any; byte-order marks are removed. Lines that cannot be read (without a
    /// key, not in UTF-8, with control characters) are counted and dropped. The heading of a section that
    /// cannot be read is replaced. Linear.
    explicit SettingsText(std::string_view bytes);

    /// Returns the number of lines that could not be read.
    std::size_t unreadableLines() const { return unreadableLines_; }
    /// Returns the values of the section [General], without quotation marks and escapes.
    const Values& values() const { return values_; }

    /// Sets a value: replaces the last line of the key, or adds one at the end of the section. Any bytes.
    /// Requires: `key` is not empty.
    void set(std::string_view key, std::string_view value);
    /// Removes all lines of a key in the section. Does nothing for an unknown key.
    void remove(std::string_view key);

    /// Returns the whole file. Each line ends with a line feed.
    std::string bytes() const;

private:
    struct Line {
        std::string text;
        std::string key;  // empty for a line without a key of our section
        bool ours = true; // in our section
    };

    void readLine(std::string_view text, bool& ours);
    std::size_t endOfOurSection() const;

    std::vector<Line> lines_;
    Values values_;
    std::size_t unreadableLines_ = 0;
};

} // namespace tabulon
