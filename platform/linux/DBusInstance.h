// The one running program of a session, found over the session's message bus: the name com.tabulon.Tabulon
// and the desktop's interface for applications (org.freedesktop.Application) at /com/tabulon/Tabulon.
#pragma once

#include "platform/SingleInstance.h"

#include <QDBusPendingCall>
#include <QObject>

#include <optional>

namespace tabulon {

/// Requires an application object. Without a session bus it is always alone.
class DBusInstance : public QObject, public SingleInstance {
    Q_OBJECT

public:
    DBusInstance();
    ~DBusInstance() override;

    Role claim() override;
    void handOver(const LaunchRequest& request) override;
    Answer waitForAnswer(std::chrono::milliseconds patience) override;
    void release() override;

private:
    std::optional<QDBusPendingCall> call_;
};

} // namespace tabulon
