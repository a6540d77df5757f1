// The user's settings by key over the registered values. Where they are kept is the implementation's affair.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Settings are stored as text, the way people write them on a command line: YES and NO, decimal numbers,
/// strings. The typed readers convert; they never fail.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// What was set for `key`, else its registered value, else nothing. UTF-8.
    virtual std::optional<std::string> stringForKey(std::string_view key) const = 0;

    /// Sets `key` for now and for the runs to come.
    virtual void setStringForKey(std::string_view key, std::string value) = 0;

    /// Forgets what was set for `key`; its registered value holds again.
    virtual void removeKey(std::string_view key) = 0;

    /// True for YES, true (any case) and for numbers other than 0; false otherwise and when there is no
    /// value.
    bool boolForKey(std::string_view key) const;

    /// The value as a whole number: leading digits count, true and YES are 1; 0 without one.
    std::int64_t integerForKey(std::string_view key) const;

    /// The value as a real number; 0 without one.
    double doubleForKey(std::string_view key) const;

    void setBoolForKey(std::string_view key, bool value);
    void setIntegerForKey(std::string_view key, std::int64_t value);
    void setDoubleForKey(std::string_view key, double value);
};

/// The value that `key` has from the start, or nothing. The whole table is in RegisteredDefaults.cpp.
std::optional<std::string_view> registeredDefault(std::string_view key);

} // namespace tabulon
