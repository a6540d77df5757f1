// Files that could not be opened, and the one alert that lists them.
#pragma once

#include "base/Error.h"
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
    /// To open what is left of a file.
    struct Offer {
        /// Follows the error's sentence where the alert is about this file only.
        std::string sentence;
        std::string buttonTitle;
        std::function<void()> accept;
    };
    using MakeOffer = std::function<std::optional<Offer>()>;
    /// The same; `makeOffer` is called before the alert is shown. One button accepts the offers of all files,
    /// the first `kMostOffers` that have one: each keeps what is left of its file in memory.
    void add(const std::string& location, const Error& error, MakeOffer makeOffer);
    /// A file without a link in it.
    void addEmpty(const std::string& location, const Localization& texts);

    /// Shows one alert about the files added since the last call, as a list where there are several.
    /// `document`, if there is one, gets the alert as its sheet.
    void tell(const Platform& platform, const Document* document = nullptr);

private:
    static constexpr std::size_t kMostLines = 8;
    static constexpr std::size_t kMostOffers = 64;

    struct Refusal {
        std::string location;
        Error error;
        bool isEmpty = false;
    };
    void add(Refusal refusal);
    static Alert alertAboutOne(const Refusal& refusal, const Localization& texts);
    static Alert alertAboutSeveral(const std::vector<Refusal>& first, std::size_t count,
                                   const Localization& texts);

    std::vector<Refusal> first_; // those that the alert has room for
    std::size_t count_ = 0;
    std::vector<MakeOffer> makeOffers_; // at most kMostOffers
};

} // namespace tabulon
