// The text of a settings file, and changes to it that leave everything else as it stands: comments, unknown
// keys, other sections, the order of lines. Reading and writing the file is FileUserDefaults' affair.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Lines `KEY = VALUE` in a section [General], which need not be named. Lines that begin with # or ; are
/// comments; lines of other sections are none of ours. Where a key stands twice, its last line counts. A
/// value may stand in quotation marks. In keys and values \n, \t, \r, \\, \" and \xHH (a byte) stand for what
/// cannot be there as it is, so that every value survives, whatever bytes it has.
class SettingsText {
public:
    using Values = std::map<std::string, std::string, std::less<>>;

    SettingsText() = default;
    /// Any bytes. Lines that make no sense (no key, no UTF-8, control characters) are counted and left out.
    explicit SettingsText(std::string_view bytes);

    std::size_t unreadableLines() const { return unreadableLines_; }
    const Values& values() const { return values_; }

    /// `key` is not empty.
    void set(std::string_view key, std::string_view value);
    void remove(std::string_view key);

    /// The whole file.
    std::string bytes() const;

private:
    struct Line {
        std::string text;
        std::string key;  // empty for a line that sets nothing of ours
        bool ours = true; // in our section
    };

    void readLine(std::string_view text, bool& ours);
    std::size_t endOfOurSection() const;

    std::vector<Line> lines_;
    Values values_;
    std::size_t unreadableLines_ = 0;
};

} // namespace tabulon
