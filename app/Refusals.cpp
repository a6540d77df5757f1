#include "app/Refusals.h"

#include "model/Text.h"
#include "window/SharedAlerts.h"

#include <utility>

namespace tabulon {
namespace {

// What an alert calls it.
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
    if (!isCancelledByUser(error))
        add(Refusal{location, error, false, std::move(makeOffer)});
}

void Refusals::addEmpty(const std::string& location, const Localization& texts) {
    add(Refusal{location, Error{.message = texts.text("NoURLs")}, true});
}

void Refusals::add(Refusal refusal) {
    ++count_;
    if (first_.size() < kMostLines)
        first_.push_back(std::move(refusal));
}

void Refusals::tell(const Platform& platform, const Document* document) {
    const std::size_t count = std::exchange(count_, 0);
    const std::vector<Refusal> told = std::exchange(first_, {});
    if (count == 0)
        return;
    if (count == 1)
        return tellOne(platform, told[0], document);
    const Localization& texts = platform.base.texts;
    std::string lines;
    for (const Refusal& refusal : told)
        lines += (lines.empty() ? "“" : "\n“") + nameOf(refusal.location) + "”: " + refusal.error.message;
    if (count > told.size())
        lines += "\n" + texts.format("AndMore", std::to_string(count - told.size()));
    criticalAlert(platform, texts.format("CouldNotOpenFiles", std::to_string(count)), lines, document);
}

void Refusals::tellOne(const Platform& platform, const Refusal& refusal, const Document* document) {
    const Error& error = refusal.error;
    if (refusal.isEmpty)
        return noURLs(platform);
    const Localization& texts = platform.base.texts;
    Alert alert{.style = AlertStyle::Critical,
                .message = error.title.empty() ? texts.format("CouldNotOpen", nameOf(refusal.location))
                                               : error.title,
                .informative = error.message,
                .buttons = {{texts.text("OK")}},
                .document = document};
    const std::optional<Offer> offer = refusal.makeOffer ? refusal.makeOffer() : std::nullopt;
    if (offer) {
        alert.informative += " " + offer->sentence;
        alert.buttons = {{offer->buttonTitle}, {texts.text("Cancel"), AlertButtonRole::Cancel}};
    }
    if (platform.alerts.runModal(alert) == kAlertFirstButton && offer)
        offer->accept();
}

} // namespace tabulon
