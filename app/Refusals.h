// Files that could not be opened, and the one alert that tells of them.
#pragma once

#include "model/Error.h"
#include "platform/Platform.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tabulon {

class Refusals {
public:
    /// `location` is a path or a URI. What the user has cancelled is not told.
    void add(const std::string& location, const Error& error);
    /// A file without a link in it.
    void addEmpty(const std::string& location, const Localization& texts);

    /// Tells of all that were added since the last time, as a list where there are several.
    void tell(const Platform& platform);

private:
    static constexpr std::size_t kMostLines = 8;

    struct Refusal {
        std::string location;
        Error error;
        bool isEmpty = false;
    };
    void add(Refusal refusal);
    static void tellOne(const Platform& platform, const Refusal& refusal);

    std::vector<Refusal> first_; // those that the alert has room for
    std::size_t count_ = 0;
};

} // namespace tabulon
