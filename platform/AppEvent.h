// Events between applications, as values: a class and an identifier of four characters, a direct object and
// parameters. EventSender.h sends them. Functions that make the events of browsers are in opening/.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tabulon {

/// A code of four ASCII characters, trailing spaces included: `FourCharCode("URL ")`. Other lengths do not
/// compile.
class FourCharCode {
public:
    consteval FourCharCode(const char (&text)[5]) : characters_{text[0], text[1], text[2], text[3]} {}

    /// Returns the four characters, without a terminating NUL among them.
    std::string string() const { return {characters_.data(), characters_.size()}; }

    /// Compares the characters from the first one on.
    friend auto operator<=>(const FourCharCode&, const FourCharCode&) = default;

private:
    std::array<char, 4> characters_;
};

/// A step from an object to one in it: to a property, or to an element of a class by its index, counted from
/// 1, or by its absolute position ("firs" for the first).
struct SpecifierStep {
    /// The property, or the class of the element.
    FourCharCode code;
    /// `nullopt` for a property.
    std::optional<std::variant<std::int32_t, FourCharCode>> position = {};

    friend bool operator==(const SpecifierStep&, const SpecifierStep&) = default;
};

/// Describes an object of an application by the steps that lead to it. The first step begins at the
/// application.
struct ObjectSpecifier {
    std::vector<SpecifierStep> steps;

    friend bool operator==(const ObjectSpecifier&, const ObjectSpecifier&) = default;
};

/// Returns the specifier of an element of the application. `index` counts from 1 and is not checked.
ObjectSpecifier element(FourCharCode elementClass, std::int32_t index);
/// Returns the specifier of a property of `container`. The other steps are those of `container`. Never fails,
/// also for a property that no application has.
ObjectSpecifier property(FourCharCode code, ObjectSpecifier container);
/// Returns the specifier as text, from the object outwards, such as
/// `property 'URL ' of property 'acTa' of element 'cwin' 1`. Empty for a specifier without steps. The
/// characters of codes are not escaped. Linear.
std::string descriptionOf(const ObjectSpecifier& specifier);

/// A value in an event: a text, UTF-8, a number, a type or another code, or an object.
using EventValue = std::variant<std::string, std::int32_t, FourCharCode, ObjectSpecifier>;

/// One event.
struct AppEvent {
    /// The identifier of the application that receives it.
    std::string application;
    /// The two codes that identify the event to the application, such as "core" and "setd".
    FourCharCode eventClass;
    FourCharCode eventIdentifier;
    std::optional<EventValue> directObject = {};
    /// In the order in which they were added.
    std::vector<std::pair<FourCharCode, EventValue>> parameters = {};
    /// Whether the sender waits for the reply.
    bool waitsForReply = true;

    friend bool operator==(const AppEvent&, const AppEvent&) = default;
};

/// The reply to an event.
struct AppEventReply {
    std::optional<EventValue> directObject = {};
    /// The error that the application reports; `nullopt` for none.
    std::optional<std::int32_t> errorNumber = {};
};

} // namespace tabulon
