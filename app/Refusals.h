// Files that could not be opened, and the one alert that lists them.
#pragma once

#include "model/Error.h"
#include "platform/Platform.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tabulon {

class Refusals {
public:
    /// `location` is a path or a URI. What the user has cancelled is not told.
    void add(const std::string& location, const Error& error);
    /// What the alert about a single file offers besides "OK".
    struct Offer {
        /// Follows the error's sentence.
        std::string sentence;
        std::string buttonTitle;
        std::function<void()> accept;
    };
    using MakeOffer = std::function<std::optional<Offer>()>;
    /// The same; `makeOffer` is called when the alert is about this file only.
    void add(const std::string& location, const Error& error, MakeOffer makeOffer);
    /// A file without a link in it.
    void addEmpty(const std::string& location, const Localization& texts);

    /// Shows one alert about the files added since the last call, as a list where there are several.
    /// `document`, if there is one, gets the alert as its sheet.
    void tell(const Platform& platform, const Document* document = nullptr);

private:
    static constexpr std::size_t kMostLines = 8;

    struct Refusal {
        std::string location;
        Error error;
        bool isEmpty = false;
        MakeOffer makeOffer = {};
    };
    void add(Refusal refusal);
    static void tellOne(const Platform& platform, const Refusal& refusal, const Document* document);

    std::vector<Refusal> first_; // those that the alert has room for
    std::size_t count_ = 0;
};

} // namespace tabulon
