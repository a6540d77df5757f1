// The present moment, as a service, so that tests can hold it still. A formatted
// local date is the business of text/DateFormat.h.
#pragma once

#include <string>

namespace tabulon {

class Clock {
public:
    virtual ~Clock() = default;

    /// Seconds since 2001-01-01 00:00 UTC, fraction included.
    virtual double secondsSinceReferenceDate() const = 0;

    /// The name of the user's time zone, such as "Europe/Berlin"; empty for the machine's own.
    virtual std::string timeZone() const = 0;
};

} // namespace tabulon
