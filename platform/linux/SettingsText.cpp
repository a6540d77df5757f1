#include "platform/linux/SettingsText.h"

#include "base/Ascii.h"
#include "base/Utf8.h"
#include "text/ByteOrderMark.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <optional>

namespace tabulon {
namespace {

constexpr std::string_view kBlank = " \t";
constexpr std::string_view kOurSection = "[General]";
// Replaces the heading of a section that cannot be read, so that its keys do not become ours.
constexpr std::string_view kDamagedSection = "[Damaged]";

std::string_view trimmed(std::string_view text) {
    return ascii::trimmed(text, kBlank);
}

bool isControl(char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
}

bool isReadable(std::string_view line) {
    return isValidUtf8(line) && std::ranges::none_of(line, isControl);
}

std::string hexEscape(char c) {
    return fmt::format("\\x{:02X}", static_cast<unsigned>(static_cast<unsigned char>(c)));
}

// Returns `text` with escapes. `special` are further characters to escape.
std::string escape(std::string_view text, std::string_view special) {
    const bool escapeHighBytes = !isValidUtf8(text);
    std::string escaped;
    for (const char c : text) {
        if (c == '\\')
            escaped += "\\\\";
        else if (c == '\n')
            escaped += "\\n";
        else if (c == '\t')
            escaped += "\\t";
        else if (c == '\r')
            escaped += "\\r";
        else if (isControl(c) || special.find(c) != std::string_view::npos ||
                 (escapeHighBytes && static_cast<unsigned char>(c) >= 0x80))
            escaped += hexEscape(c);
        else
            escaped += c;
    }
    return escaped;
}

// Returns `text` with its first and last character escaped if they are in `special`.
std::string withSafeEnds(std::string text, std::string_view special) {
    if (!text.empty() && special.find(text.back()) != std::string_view::npos)
        text = text.substr(0, text.size() - 1) + hexEscape(text.back());
    if (!text.empty() && special.find(text.front()) != std::string_view::npos)
        text = hexEscape(text.front()) + text.substr(1);
    return text;
}

std::optional<char> byteOf(std::string_view digits) {
    unsigned byte = 0;
    if (digits.size() != 2 ||
        std::from_chars(digits.data(), digits.data() + 2, byte, 16).ptr != digits.data() + 2)
        return std::nullopt;
    return static_cast<char>(byte);
}

// Replaces escapes. A backslash before another character is kept.
std::string unescape(std::string_view text) {
    constexpr std::string_view kLetters = "ntr\\\"";
    constexpr std::string_view kMeanings = "\n\t\r\\\"";
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (const std::size_t letter = next ? kLetters.find(next) : kLetters.npos; letter != kLetters.npos) {
            result += kMeanings[letter];
            ++i;
        } else if (const auto byte = next == 'x' ? byteOf(text.substr(i + 2, 2)) : std::nullopt) {
            result += *byte;
            i += 3;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string valueOf(std::string_view text) {
    text = trimmed(text);
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return unescape(quoted ? text.substr(1, text.size() - 2) : text);
}

std::string lineFor(std::string_view key, std::string_view value) {
    return withSafeEnds(escape(key, "="), " #;[") + "=" + withSafeEnds(escape(value, ""), " \"");
}

} // namespace

SettingsText::SettingsText(std::string_view bytes) {
    // Some editors add a second mark. If it were kept, it would be the first bytes of the file that is
    // written.
    while (byteOrderMarkOf(bytes) == ByteOrderMark::Utf8)
        bytes = withoutUtf8Mark(bytes);
    bool ours = true;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        readLine(line, ours);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
}

void SettingsText::readLine(std::string_view text, bool& ours) {
    const std::string_view content = trimmed(text);
    const bool isComment = content.empty() || content.front() == '#' || content.front() == ';';
    const bool isSection = content.size() >= 2 && content.front() == '[' && content.back() == ']';
    const std::size_t equals = content.find('=');
    if (content.starts_with('[') && (!isSection || !isReadable(text))) {
        ++unreadableLines_;
        ours = trimmed(content.substr(1)) == "General"; // only its end is missing
        lines_.push_back({ours ? std::string(kOurSection) : std::string(kDamagedSection), {}, ours});
        return;
    }
    std::string key;
    if (isSection)
        ours = content == kOurSection;
    else if (!isComment && equals != std::string_view::npos)
        key = unescape(trimmed(content.substr(0, equals)));
    if (!isReadable(text) || (!isComment && !isSection && key.empty())) {
        ++unreadableLines_;
        return;
    }
    if (!ours)
        key.clear();
    if (!key.empty())
        values_.insert_or_assign(key, valueOf(content.substr(equals + 1)));
    lines_.push_back({std::string(text), std::move(key), ours});
}

std::size_t SettingsText::endOfOurSection() const {
    std::size_t end = lines_.size();
    while (end > 0 && !lines_[end - 1].ours)
        --end;
    while (end > 0 && trimmed(lines_[end - 1].text).empty())
        --end;
    return end;
}

void SettingsText::set(std::string_view key, std::string_view value) {
    values_.insert_or_assign(std::string(key), std::string(value));
    const Line line{lineFor(key, value), std::string(key)};
    const auto isOldLine = [&](const Line& other) { return other.key == key; };
    const auto last = std::find_if(lines_.rbegin(), lines_.rend(), isOldLine);
    if (last != lines_.rend()) {
        *last = line;
        return;
    }
    if (lines_.empty())
        lines_.push_back({std::string(kOurSection), {}});
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(endOfOurSection()), line);
}

void SettingsText::remove(std::string_view key) {
    if (const auto found = values_.find(key); found != values_.end())
        values_.erase(found);
    std::erase_if(lines_, [&](const Line& line) { return !line.key.empty() && line.key == key; });
}

std::string SettingsText::bytes() const {
    std::string bytes;
    for (const Line& line : lines_)
        bytes += line.text + "\n";
    return bytes;
}

} // namespace tabulon
