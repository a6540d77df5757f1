// The user's settings by key over the registered values. Where they are kept is the implementation's affair.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tabulon {

/// Settings are stored as text, the way people write them on a command line: YES and NO, decimal numbers,
/// strings. The typed readers convert; they never fail. Texts are UTF-8, paths are in the file system's
/// encoding.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// What was set for `key`, else its registered value, else nothing.
    virtual std::optional<std::string> stringForKey(std::string_view key) const = 0;

    /// Sets `key` for now and for the runs to come.
    virtual void setStringForKey(std::string_view key, std::string value) = 0;

    /// Forgets what was set for `key`; its registered value holds again.
    virtual void removeKey(std::string_view key) = 0;

    /// Takes in what other running programs have stored since. For a value that they change as well, to be
    /// called before it is read and changed.
    virtual void refresh() = 0;

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

struct RegisteredDefault {
    std::string_view key;
    std::string_view value;
};

/// The settings that have a value from the start, sorted by key.
std::span<const RegisteredDefault> registeredDefaults();

/// The value that `key` has from the start, or nothing.
std::optional<std::string_view> registeredDefault(std::string_view key);

/// What the user has to know about the place where settings are kept.
struct SettingsProblem {
    enum class Kind {
        Damaged,    ///< lines made no sense; the file as it was is now at `keptAs`
        Unreadable, ///< `reason` tells why; the file stays as it is, changes hold until the program ends
        Unwritable, ///< `reason` tells why; changes hold until the program ends
    };
    Kind kind = Kind::Damaged;
    std::string path = {};
    std::string keptAs = {};
    /// A sentence.
    std::string reason = {};
};

} // namespace tabulon
