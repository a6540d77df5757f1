#include "platform/linux/ApplicationAdaptor.h"

namespace tabulon {
namespace {

LaunchRequest makeRequest(LaunchRequest::Kind kind, const QVariantMap& platformData) {
    return {.kind = kind,
            .activationToken = platformData.value("activation-token").toString().toStdString(),
            .startupId = platformData.value("desktop-startup-id").toString().toStdString()};
}

} // namespace

void ApplicationAdaptor::Activate(const QVariantMap& platform_data) {
    requested_(makeRequest(LaunchRequest::Kind::Activate, platform_data));
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& platform_data) {
    LaunchRequest request = makeRequest(LaunchRequest::Kind::Open, platform_data);
    for (const QString& uri : uris)
        request.uris.push_back(uri.toStdString());
    requested_(std::move(request));
}

void ApplicationAdaptor::ActivateAction(const QString& action_name, const QVariantList&,
                                        const QVariantMap& platform_data) {
    if (action_name == "new-document")
        requested_(makeRequest(LaunchRequest::Kind::NewDocument, platform_data));
}

} // namespace tabulon
