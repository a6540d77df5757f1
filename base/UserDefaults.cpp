// Conversions between the stored texts and the types of settings.
#include "base/UserDefaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tabulon {
namespace {

bool equalIgnoringCase(std::string_view text, std::string_view lowerCase) {
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(), [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
}

bool isYes(std::string_view text) {
    return equalIgnoringCase(text, "yes") || equalIgnoringCase(text, "true");
}

// Returns the number at the beginning of the text, or 0 if the text does not begin with a number. The decimal
// separator is a point in every locale.
double leadingNumber(std::string_view text) {
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::isfinite(number) ? number : 0; // from_chars accepts "nan" and "inf", settings do not
}

} // namespace

bool UserDefaults::boolForKey(std::string_view key) const {
    const auto value = stringForKey(key);
    return value && (isYes(*value) || leadingNumber(*value) != 0);
}

std::int64_t UserDefaults::integerForKey(std::string_view key) const {
    const auto value = stringForKey(key);
    if (!value)
        return 0;
    if (isYes(*value))
        return 1;
    std::int64_t number = 0;
    std::from_chars(value->data(), value->data() + value->size(), number);
    return number;
}

double UserDefaults::doubleForKey(std::string_view key) const {
    const auto value = stringForKey(key);
    return value ? leadingNumber(*value) : 0;
}

void UserDefaults::setBoolForKey(std::string_view key, bool value) {
    setStringForKey(key, value ? "YES" : "NO");
}

void UserDefaults::setIntegerForKey(std::string_view key, std::int64_t value) {
    setStringForKey(key, std::to_string(value));
}

void UserDefaults::setDoubleForKey(std::string_view key, double value) {
    setStringForKey(key, fmt::format("{}", value));
}

} // namespace tabulon
