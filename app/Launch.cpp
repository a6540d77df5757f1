#include "app/Launch.h"

namespace tabulon {
namespace {

constexpr int kMostClaims = 20;

enum class HangAnswer { Wait, OpenAnother, Cancel };

HangAnswer askAboutHang(Alerts& alerts, const Localization& texts) {
    const int response = alerts.runModal(Alert{.style = AlertStyle::Warning,
                                               .message = texts.text("NoAnswer"),
                                               .informative = texts.text("NoAnswerText"),
                                               .buttons = {{texts.text("Wait")},
                                                           {texts.text("OpenAnother")},
                                                           {texts.text("Cancel"), AlertButtonRole::Cancel}}});
    switch (response - kAlertFirstButton) {
    case 0:
        return HangAnswer::Wait;
    case 1:
        return HangAnswer::OpenAnother;
    default:
        return HangAnswer::Cancel;
    }
}

} // namespace

LaunchDecision decideLaunch(SingleInstance& instance, const LaunchRequest& request, Alerts& alerts,
                            const Localization& texts) {
    for (int claim = 0; claim < kMostClaims; ++claim) {
        if (instance.claim() != SingleInstance::Role::Second)
            return LaunchDecision::Run;
        instance.handOver(request);
        SingleInstance::Answer answer = instance.waitForAnswer(kLaunchPatience);
        while (answer == SingleInstance::Answer::Silent) {
            const HangAnswer choice = askAboutHang(alerts, texts);
            if (choice != HangAnswer::Wait)
                return choice == HangAnswer::Cancel ? LaunchDecision::Cancelled : LaunchDecision::Run;
            answer = instance.waitForAnswer(kLaunchPatience);
        }
        if (answer == SingleInstance::Answer::Taken)
            return LaunchDecision::HandedOver;
        if (answer == SingleInstance::Answer::Refused)
            return LaunchDecision::Run;
    }
    // Other processes start and end faster than they can be asked.
    return LaunchDecision::Run;
}

} // namespace tabulon
