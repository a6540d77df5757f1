// Access to the program's texts by key, in the user's language. The English table is in base/EnglishTexts.h.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tabulon {

/// All keys, arguments and texts are UTF-8. No function fails. Texts are copies, which the caller owns.
class Localization {
public:
    virtual ~Localization() = default;

    /// Returns the text for `key`, or `key` itself if it has no text, so that a missing text is visible. The
    /// text may contain "%@" and "%d", which the other functions replace.
    virtual std::string text(std::string_view key) const = 0;

    /// Returns the identifier of the locale for collation, numbers and dates, such as "de_DE". Never empty;
    /// for the locales C and POSIX it is "en_US".
    virtual std::string locale() const = 0;

    /// Returns the text for `key` with its first "%@" replaced by `argument`. A text without "%@" is returned
    /// unchanged. A "%@" in `argument` is not replaced.
    std::string format(std::string_view key, std::string_view argument) const {
        return filled(key, {argument});
    }

    /// Returns the text for `key` with its first two "%@" replaced by `first` and `second`, in this order. A
    /// "%@" in an argument is not replaced. If there is only one, `second` is not used.
    std::string format(std::string_view key, std::string_view first, std::string_view second) const {
        return filled(key, {first, second});
    }

    /// Returns `counted` with `number` in plain decimal digits, without the separators of the locale. The
    /// text for the number 1 is chosen in the same way.
    std::string format(std::string_view key, std::size_t number) const {
        return counted(key, number, std::to_string(number));
    }

    /// Returns the text for `key` with its first "%d" replaced by `digits`, the number as it is shown. For
    /// the number 1 the text for `key` followed by ":one" is used where it exists. A text without "%d" is
    /// returned unchanged. Further "%d" stay as they are.
    std::string counted(std::string_view key, std::size_t number, std::string_view digits) const {
        const std::string one = std::string(key) + ":one";
        std::string result = number == 1 ? text(one) : one;
        if (result == one)
            result = text(key);
        if (const auto mark = result.find("%d"); mark != std::string::npos)
            result.replace(mark, 2, digits);
        return result;
    }

private:
    /// Replaces each "%@" by the next argument. The search continues after what was inserted. An argument for
    /// which there is no "%@" is not used.
    std::string filled(std::string_view key, std::initializer_list<std::string_view> arguments) const {
        std::string result = text(key);
        std::size_t from = 0;
        for (const std::string_view argument : arguments)
            if (const auto mark = result.find("%@", from); mark != std::string::npos) {
                result.replace(mark, 2, argument);
                from = mark + argument.size();
            }
        return result;
    }
};

/// Returns the identifier ("de_DE") for the name of a locale as environment variables contain it
/// ("de_DE.UTF-8@euro"). Charset and modifier are removed; keywords ("de@collation=phonebook") stay. Returns
/// "en_US" for an empty name, "C", "POSIX" and "en_US_POSIX". Whether the locale exists is not checked.
std::string localeIdentifier(std::string_view name);

} // namespace tabulon
