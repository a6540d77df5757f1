#include "formats/import/LinkLine.h"

#include "formats/import/ByteRun.h"
#include "formats/import/NetscapeDates.h"

#include <cstring>

namespace tabulon {
namespace {

// Reads the parts of the line in order. Each step returns false where the line has another form.
class LinkLineReader {
public:
    explicit LinkLineReader(std::string_view bytes)
        : begin_(bytes.data()), at_(begin_), limit_(begin_ + bytes.size()) {}

    std::optional<LinkLine> read() {
        while (hasRoom() && isBlank(*at_))
            ++at_;
        if (hasRoom() && pass("<DT><A HREF=\"") && readAddress() && readDates() && readTagEnd() && readName())
            return line_;
        return std::nullopt;
    }

    // Returns the number of bytes that were read.
    std::size_t reached() const { return static_cast<std::size_t>(at_ - begin_); }

private:
    // Returns whether all bytes exist that may be read before the next run: no more than two dates take.
    bool hasRoom() const { return limit_ - at_ >= 64; }

    template <std::size_t Size>
    bool pass(const char (&literal)[Size]) {
        const bool stands = std::memcmp(at_, literal, Size - 1) == 0;
        at_ += stands ? Size - 1 : 0;
        return stands;
    }

    template <char Stop, char... Marks>
    ByteRun passTo() {
        const ByteRun run = runTo<Stop, Marks...>(at_, limit_);
        at_ = run.end ? run.end : limit_;
        return run;
    }

    // The name of a date attribute contains an underscore, and the scanner accepts it anywhere in the line.
    bool readAddress() {
        if (*at_ == '#')
            return false;
        const ByteRun run = passTo<'"', '_'>();
        if (!run.end || run.isMarked)
            return false;
        line_.address = run.bytes();
        line_.addressHasReferences = run.hasReferences;
        return hasRoom();
    }

    bool readDates() {
        return pass("\" ADD_DATE=\"") && readDate(line_.added) &&
               (!pass("\" LAST_MODIFIED=\"") || readDate(line_.modified)) && pass("\"");
    }

    bool readDate(Date& date) {
        const auto seconds = tenDigits(at_);
        if (!seconds)
            return false;
        date = Date::fromUnixSeconds(static_cast<double>(*seconds));
        at_ += 10;
        return true;
    }

    bool readTagEnd() {
        if (pass(">"))
            return true;
        const ByteRun run = passTo<'>', '_'>();
        if (!run.end || (run.isMarked && mayHaveDate()))
            return false;
        ++at_;
        return true;
    }

    bool readName() {
        const ByteRun run = passTo<'<', '\n', '\r', '_'>();
        if (!run.end || run.isMarked || !isName(run.bytes()) || !hasRoom() || !pass("</A>"))
            return false;
        line_.name = run.bytes();
        line_.nameHasReferences = run.hasReferences;
        line_.size = reached();
        return !(mayHaveDate() && *at_ == 'L');
    }

    static bool isName(std::string_view bytes) {
        return !bytes.empty() && bytes.size() <= kLongestLinkName && !isBlank(bytes.front());
    }

    // Returns whether the scanner would accept a date after this place as the second one of the link.
    bool mayHaveDate() const { return line_.modified.isNull(); }

    const char* const begin_;
    const char* at_;
    const char* const limit_;
    LinkLine line_;
};

} // namespace

std::optional<LinkLine> linkLineAt(const ScannedBytes& bytes, std::size_t from) {
    LinkLineReader reader(bytes.range(from, bytes.size()));
    const auto line = reader.read();
    bytes.countExamined(from, from + reader.reached());
    return line;
}

} // namespace tabulon
