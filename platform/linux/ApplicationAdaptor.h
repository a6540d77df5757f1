// org.freedesktop.Application as the message bus sees it: its calls become requests. Whatever comes in is as
// doubtful as any input; what it leads to is decided elsewhere.
#pragma once

#include "platform/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace tabulon {

class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Lives as long as `object`, which is what the bus sees.
    ApplicationAdaptor(QObject* object, std::function<void(LaunchRequest)> requested)
        : QDBusAbstractAdaptor(object), requested_(std::move(requested)) {}

public slots:
    void Activate(const QVariantMap& platform_data);
    void Open(const QStringList& uris, const QVariantMap& platform_data);
    /// Knows the actions of the desktop entry; others are passed over.
    void ActivateAction(const QString& action_name, const QVariantList& parameter,
                        const QVariantMap& platform_data);

private:
    std::function<void(LaunchRequest)> requested_;
};

} // namespace tabulon
