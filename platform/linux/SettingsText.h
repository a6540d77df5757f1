// The text of a settings file, and changes that keep everything else in it: comments, unknown keys, other
// sections, the order of lines. FileUserDefaults.h reads and writes the file.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// A text of lines `KEY = VALUE` in the section [General], whose heading may be missing. Lines that begin
/// with # or ; are comments. Lines of this form in other sections are kept, but are no values here. Where a
/// key is set twice, its last line counts. A value may be in quotation marks. In keys and values the escapes
/// \n, \t, \r, \\, \" and \xHH (a byte) represent characters that a line cannot contain, so every value is
/// read back unchanged, whatever its bytes.
class SettingsText {
public:
    using Values = std::map<std::string, std::string, std::less<>>;

    SettingsText() = default;
    /// Parses `bytes`, which may be any; byte-order marks are removed. Lines that cannot be read (without a
    /// key, not in UTF-8, with control characters) are counted and dropped, in every section. The heading of
    /// a section that cannot be read is counted and replaced, by [General] if only its end is missing and
    /// else by [Damaged]. Linear.
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

    /// Returns the whole file, UTF-8. Each line ends with a line feed, also one that had CR LF before.
    std::string bytes() const;

private:
    struct Line {
        std::string text;
        std::string key;  // empty for a line without a key of our section
        bool ours = true; // in our section
    };

    /// Adds a line. `ours` is true in the section [General], and is set by a heading.
    void readLine(std::string_view text, bool& ours);
    /// Returns the index for a new line of the section: after its last line, before blank lines at its end.
    std::size_t endOfOurSection() const;

    std::vector<Line> lines_;
    Values values_;
    std::size_t unreadableLines_ = 0;
};

} // namespace tabulon
