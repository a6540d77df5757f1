// The single instance of a session, found by name on the session's message bus: com.tabulon.Tabulon, which
// provides the desktop's interface for applications (org.freedesktop.Application) at /com/tabulon/Tabulon.
#pragma once

#include "platform/SingleInstance.h"

#include <QDBusPendingCall>
#include <QObject>

#include <optional>

namespace tabulon {

/// The single instance on the message bus. Without a session bus `claim` returns Alone. Requires: an
/// application object.
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
