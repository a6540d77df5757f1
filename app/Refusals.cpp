#include "app/Refusals.h"

#include "base/Utf8.h"
#include "window/SharedAlerts.h"

#include <utility>

namespace tabulon {
namespace {

// Returns the name of the file in an alert.
std::string nameOf(const std::string& location) {
    return location.starts_with('/') && location != "/" ? lastPathComponent(location)
                                                        : decodeUtf8Leniently(location);
}

} // namespace

void Refusals::add(const std::string& location, const Error& error) {
    if (!isCancelledByUser(error))
        add(Refusal{location, error});
}

void Refusals::add(const std::string& location, const Error& error, MakeOffer makeOffer) {
    if (isCancelledByUser(error))
        return;
    add(Refusal{location, error});
    if (makeOffers_.size() < kMostOffers)
        makeOffers_.push_back(std::move(makeOffer));
}

void Refusals::addEmpty(const std::string& location, const Localization& texts) {
    add(Refusal{location, Error{.message = texts.text("NoURLs")}, true});
}

void Refusals::add(Refusal refusal) {
    ++count_;
    if (first_.size() < kMostLines)
        first_.push_back(std::move(refusal));
}

void Refusals::report(const Platform& platform, const DocumentIdentity* document) {
    const std::size_t count = std::exchange(count_, 0);
    const std::vector<Refusal> first = std::exchange(first_, {});
    std::vector<Offer> offers;
    for (const MakeOffer& makeOffer : std::exchange(makeOffers_, {}))
        if (std::optional<Offer> offer = makeOffer())
            offers.push_back(std::move(*offer));
    if (count == 0)
        return;
    if (count == 1 && first[0].isEmpty)
        return noURLs(platform);
    const Localization& texts = platform.base.texts;
    Alert alert = count == 1 ? alertAboutOne(first[0], texts) : alertAboutSeveral(first, count, texts);
    alert.style = AlertStyle::Critical;
    alert.document = document;
    alert.buttons = {{texts.text("OK")}};
    if (!offers.empty()) {
        alert.informative +=
            count == 1 ? " " + offers[0].sentence : "\n\n" + texts.format("FilesReadable", offers.size());
        alert.buttons = {{offers[0].buttonTitle}, {texts.text("Cancel"), AlertButtonRole::Cancel}};
    }
    if (platform.alerts.runModal(alert) == kAlertFirstButton)
        for (const Offer& offer : offers)
            offer.accept();
}

Alert Refusals::alertAboutOne(const Refusal& refusal, const Localization& texts) {
    const Error& error = refusal.error;
    return {.message =
                error.title.empty() ? texts.format("CouldNotOpen", nameOf(refusal.location)) : error.title,
            .informative = error.message};
}

Alert Refusals::alertAboutSeveral(const std::vector<Refusal>& first, std::size_t count,
                                  const Localization& texts) {
    std::string lines;
    for (const Refusal& refusal : first)
        lines += (lines.empty() ? "“" : "\n“") + nameOf(refusal.location) + "”: " + refusal.error.message;
    if (count > first.size())
        lines += "\n" + texts.format("AndMore", std::to_string(count - first.size()));
    return {.message = texts.format("CouldNotOpenFiles", std::to_string(count)), .informative = lines};
}

} // namespace tabulon
