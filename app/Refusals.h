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

/// Collects refused files. A location is a path or a URI.
class Refusals {
public:
    /// Adds a file and the error that is reported for it. Does nothing if the user has cancelled the
    /// operation.
    void add(const std::string& location, const Error& error);
    /// The offer to open what can be read of a file.
    struct Offer {
        /// A sentence that follows the error's in an alert about a single file.
        std::string sentence;
        /// The title of the button that accepts the offer, in the user's language.
        std::string buttonTitle;
        /// Called if the user accepts.
        std::function<void()> accept;
    };
    /// Returns the offer, or `nullopt` if nothing of the file can be read.
    using MakeOffer = std::function<std::optional<Offer>()>;
    /// Does the same, with an offer. `makeOffer` is called by `report`, before the alert is shown. One button
    /// accepts the offers of all files. Only the first `kMostOffers` files may have one, because each offer
    /// keeps the content of its file in memory.
    void add(const std::string& location, const Error& error, MakeOffer makeOffer);
    /// Adds a file that contains no link.
    void addEmpty(const std::string& location, const Localization& texts);

    /// Shows one alert about the files added since the last call, as a list if there are several, and returns
    /// after it was closed. Does nothing if no file was added. With a `document`, the alert is a sheet of its
    /// window.
    void report(const Platform& platform, const DocumentIdentity* document = nullptr);

private:
    static constexpr std::size_t kMostLines = 8;
    static constexpr std::size_t kMostOffers = 64;

    /// A refused file.
    struct Refusal {
        std::string location;
        Error error;
        /// Whether the file was read and contains no link.
        bool isEmpty = false;
    };
    void add(Refusal refusal);
    /// Returns the alert about a single file.
    static Alert alertAboutOne(const Refusal& refusal, const Localization& texts);
    /// Returns the alert about `count` files, of which the first are listed.
    static Alert alertAboutSeveral(const std::vector<Refusal>& first, std::size_t count,
                                   const Localization& texts);

    std::vector<Refusal> first_; // at most kMostLines
    /// The number of all files since the last alert.
    std::size_t count_ = 0;
    std::vector<MakeOffer> makeOffers_; // at most kMostOffers
};

} // namespace tabulon
