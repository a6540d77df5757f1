// Access to the user's settings by key, with registered values as defaults. Implementations decide where the
// values are stored.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tabulon {

/// Settings are stored as text in the form of a command line: YES and NO, decimal numbers, strings. Keys and
/// texts are UTF-8; paths are in the file system's encoding. The typed readers convert and never fail.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// Returns the value that was set for `key`, else its registered value, else `nullopt`.
    virtual std::optional<std::string> stringForKey(std::string_view key) const = 0;

    /// Sets the value of `key` for this run of the program and later ones.
    virtual void setStringForKey(std::string_view key, std::string value) = 0;

    /// Removes the value that was set for `key`, so that its registered value applies. Does nothing if none
    /// was set.
    virtual void removeKey(std::string_view key) = 0;

    /// Loads the values that other processes have stored. The caller needs this before it reads and changes a
    /// value that other processes change too.
    virtual void refresh() = 0;

    /// Returns true for "yes" and "true" in any case, and for a text that begins with a number other than 0.
    /// Returns false for all other texts and without a value.
    bool boolForKey(std::string_view key) const;

    /// Returns the integer that the text begins with, 1 for "yes" and "true" in any case, else 0. Returns 0
    /// for an integer that does not fit into 64 bits.
    std::int64_t integerForKey(std::string_view key) const;

    /// Returns the finite decimal number that the text begins with, else 0. The decimal separator is a point.
    double doubleForKey(std::string_view key) const;

    /// Stores "YES" or "NO".
    void setBoolForKey(std::string_view key, bool value);
    /// Stores the decimal digits.
    void setIntegerForKey(std::string_view key, std::int64_t value);
    /// Stores the shortest decimal number from which the same double is read.
    void setDoubleForKey(std::string_view key, double value);
};

/// A setting's key and the text of its registered value.
struct RegisteredDefault {
    std::string_view key;
    std::string_view value;
};

/// Returns the settings that have a registered value, sorted by key. Valid as long as the program runs.
std::span<const RegisteredDefault> registeredDefaults();

/// Returns the registered value of `key`, or `nullopt` if it has none. Valid as long as the program runs.
std::optional<std::string_view> registeredDefault(std::string_view key);

/// A failure to read or write the file of the settings, for an alert to the user.
struct SettingsProblem {
    enum class Kind {
        Damaged,    ///< lines could not be parsed; the file was kept at `keptAs`
        Unreadable, ///< for `reason`; the file is unchanged, and settings last until the program ends
        Unwritable, ///< for `reason`; settings last until the program ends
    };
    Kind kind = Kind::Damaged;
    /// The file of the settings. Both paths are in the file system's encoding.
    std::string path = {};
    /// The file with the damaged content; empty for the other kinds.
    std::string keptAs = {};
    /// One sentence, UTF-8; empty for Damaged.
    std::string reason = {};
};

} // namespace tabulon
