// The user's permission to send events to a browser over the bridge: asked once, remembered, revocable.
#pragma once

#include "base/Localization.h"
#include "base/UserDefaults.h"
#include "platform/Alerts.h"
#include "platform/BrowserBridge.h"
#include "platform/EventSender.h"

#include <optional>
#include <string_view>

namespace tabulon {

/// Asks before the first event to each connected browser. A browser that is not connected needs no
/// permission: it gets addresses on its command line and nothing else. Both spellings of an identifier are
/// one browser.
class RememberedPermission : public AutomationPermission {
public:
    /// The services that the permission needs. Owns none of them.
    struct Services {
        BrowserBridge& bridge;
        /// Where the answers are stored.
        UserDefaults& answers;
        Alerts& alerts;
        const Localization& texts;
    };

    /// Requires: the services outlive this object.
    explicit RememberedPermission(const Services& services) : services_(services) {}

    bool mayAutomate(std::string_view application, PermissionQuestion question) override;

    /// Returns the answer of the user, or `nullopt` if there is none yet.
    std::optional<bool> answer(std::string_view application) const;
    /// Stores an answer; `nullopt` forgets it, so that the user is asked again.
    void setAnswer(std::string_view application, std::optional<bool> answer);

private:
    bool isConnected(std::string_view application) const;
    bool ask(std::string_view application);

    Services services_;
};

} // namespace tabulon
