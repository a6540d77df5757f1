// The current time as a service, so that tests can set it. Formatting of dates is in text/DateFormat.h.
#pragma once

#include <string>

namespace tabulon {

class Clock {
public:
    virtual ~Clock() = default;

    /// Returns the seconds since 2001-01-01 00:00 UTC, with their fraction. The value may decrease when the
    /// clock of the computer is set.
    virtual double secondsSinceReferenceDate() const = 0;

    /// Returns the IANA name of the user's time zone, such as "Europe/Berlin"; empty for the time zone of the
    /// computer.
    virtual std::string timeZone() const = 0;
};

} // namespace tabulon
