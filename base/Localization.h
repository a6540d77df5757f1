// The program's own texts by key, in the user's language.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tabulon {

class Localization {
public:
    virtual ~Localization() = default;

    /// The text for `key`, UTF-8. A key without a text gives the key itself, so that a gap is seen and
    /// nothing is lost.
    virtual std::string text(std::string_view key) const = 0;

    /// The locale that texts, collation and numbers follow: an identifier such as "de_DE". Never empty;
    /// the locales C and POSIX come as "en_US".
    virtual std::string locale() const = 0;

    /// The text for `key` used as a format: its first "%@" replaced by `argument`.
    std::string format(std::string_view key, std::string_view argument) const {
        return filled(key, {argument});
    }

    /// The same with two arguments, in their order.
    std::string format(std::string_view key, std::string_view first, std::string_view second) const {
        return filled(key, {first, second});
    }

    /// The same with the first "%d" replaced by `number`.
    std::string format(std::string_view key, std::size_t number) const {
        return counted(key, number, std::to_string(number));
    }

    /// The same with the number written as `digits`. One has a text of its own where there is one, under the
    /// key with ":one" behind it.
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

/// A locale's name as people and the environment write it ("de_DE.UTF-8@euro", "C", "") as an identifier
/// ("de_DE", "en_US"): without charset and modifier; keywords ("de@collation=phonebook") stay.
std::string localeIdentifier(std::string_view name);

} // namespace tabulon
