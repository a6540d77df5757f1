#include "app/DocumentAlerts.h"

#include <utility>

namespace tabulon {

bool DocumentAlerts::isAlertUp(const OpenDocument& opened) const {
    return opened.alertsUp > 0 || alerts_.isAskingAbout(&opened.document);
}

// The end of an alert that a command of the outline shows is not reported here, so automatic saving tries
// again after its pause.
void DocumentAlerts::askLater(OpenDocument& opened) const {
    if (opened.alertsUp > 0)
        opened.deferred = true;
    else
        opened.pause->noteChange();
}

void DocumentAlerts::whileAlertIsUp(const Document& document, const std::function<void()>& show) {
    if (OpenDocument* opened = documents_.find(document))
        ++opened->alertsUp;
    show();
    OpenDocument* opened = documents_.find(document);
    if (opened && --opened->alertsUp == 0 && std::exchange(opened->deferred, false))
        opened->pause->noteChange();
}

int DocumentAlerts::ask(const Document& document, Alert alert) {
    alert.document = &document;
    int response = 0;
    whileAlertIsUp(document, [&] { response = alerts_.runModal(alert); });
    return response;
}

} // namespace tabulon
