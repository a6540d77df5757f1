#include "formats/import/XBELDates.h"

#include "base/Ascii.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <chrono>
#include <memory>
#include <optional>

namespace tabulon {
namespace {

// Reads the numbers of a date in its usual form, in order.
class Fields {
public:
    explicit Fields(std::string_view text) : text_(text) {}

    // Reads `count` digits, then `separator` unless it is 0.
    int number(std::size_t count, char separator) {
        int value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const char c = take();
            fits_ = fits_ && ascii::isDigit(c);
            value = value * 10 + (c - '0');
        }
        if (separator != 0)
            fits_ = take() == separator && fits_;
        return value;
    }
    // Reads "Z", or a sign, hours and minutes. Returns seconds.
    int offset() {
        const char sign = take();
        if (sign == 'Z')
            return 0;
        fits_ = fits_ && (sign == '+' || sign == '-');
        const int hours = number(2, ':');
        const int minutes = number(2, 0);
        fits_ = fits_ && hours < 24 && minutes < 60;
        return (sign == '-' ? -1 : 1) * (hours * 3600 + minutes * 60);
    }
    bool fitted() const { return fits_ && place_ == text_.size(); }

private:
    char take() { return place_ < text_.size() ? text_[place_++] : '\0'; }

    std::string_view text_;
    std::size_t place_ = 0;
    bool fits_ = true;
};

// The fast path for the form in nearly every file: it creates no calendar of ICU.
std::optional<Date> usualDate(std::string_view text) {
    Fields fields(text);
    const int year = fields.number(4, '-');
    const int month = fields.number(2, '-');
    const int day = fields.number(2, 'T');
    const int hour = fields.number(2, ':');
    const int minute = fields.number(2, ':');
    const int second = fields.number(2, 0);
    const int offset = fields.offset();
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    // ICU uses the Julian calendar for earlier dates.
    if (!fields.fitted() || year < 1583 || !date.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    const auto days = std::chrono::sys_days(date).time_since_epoch().count();
    return Date::fromUnixSeconds(static_cast<double>(days) * 86400 + hour * 3600 + minute * 60 + second -
                                 offset);
}

// Any other form that the pattern accepts.
Date unusualDate(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(icu::UnicodeString(u"yyyy-MM-dd'T'HH:mm:ssZZZZZ"),
                                 icu::Locale("en_US_POSIX"), status);
    if (U_FAILURE(status))
        return {};
    format.setLenient(false);
    format.adoptTimeZone(icu::TimeZone::getGMT()->clone());
    const icu::UnicodeString whole =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
    icu::ParsePosition end;
    const UDate milliseconds = format.parse(whole, end);
    if (end.getErrorIndex() >= 0 || end.getIndex() != whole.length())
        return {};
    return Date::fromUnixSeconds(milliseconds / 1000);
}

} // namespace

Date dateOfXBEL(std::string_view text) {
    constexpr std::size_t kLongest = 64;
    if (const std::optional<Date> date = usualDate(text))
        return *date;
    return text.empty() || text.size() > kLongest ? Date() : unusualDate(text);
}

} // namespace tabulon
