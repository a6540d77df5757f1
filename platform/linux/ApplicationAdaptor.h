// The interface org.freedesktop.Application on the message bus. Its calls become requests. Arguments are
// untrusted input; other code decides what a request does.
#pragma once

#include "platform/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace tabulon {

/// The D-Bus adaptor of an object. Each call invokes `requested` with a request, on the main thread. The
/// caller on the bus gets its reply when `requested` returns. Of `platform_data` the texts "activation-token"
/// and "desktop-startup-id" are used.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// `object` is exported on the bus and owns the adaptor. Requires: `requested` is not empty, and what it
    /// uses exists as long as `object`.
    ApplicationAdaptor(QObject* object, std::function<void(LaunchRequest)> requested)
        : QDBusAbstractAdaptor(object), requested_(std::move(requested)) {}

public slots:
    /// Requests that a window of the program is raised. `platform_data` may contain an activation token and a
    /// startup identifier.
    void Activate(const QVariantMap& platform_data);
    /// Requests that files are opened. `uris` are passed on unchecked, in UTF-8.
    void Open(const QStringList& uris, const QVariantMap& platform_data);
    /// Requests an action of the desktop entry ("new-document"). Does nothing for other names.
    void ActivateAction(const QString& action_name, const QVariantList& parameter,
                        const QVariantMap& platform_data);

private:
    std::function<void(LaunchRequest)> requested_;
};

} // namespace tabulon
