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

    /// Returns true for a browser that is not connected, else the stored answer. Without one, shows the alert
    /// if `question` allows that, and stores the answer; otherwise returns false.
    bool mayAutomate(std::string_view application, PermissionQuestion question) override;

    /// Returns the answer of the user, or `nullopt` if there is none yet. Does not ask, also for a browser
    /// that is not connected.
    std::optional<bool> answer(std::string_view application) const;
    /// Stores an answer; `nullopt` forgets it, so that the user is asked again. The setting is "MayAutomate "
    /// and the browser's identifier.
    void setAnswer(std::string_view application, std::optional<bool> answer);

private:
    /// Returns true if a process of the browser is connected over the bridge.
    bool isConnected(std::string_view application) const;
    /// Shows the alert and stores the answer. Every other button than Allow is stored as a denied permission.
    bool ask(std::string_view application);

    Services services_;
};

} // namespace tabulon
