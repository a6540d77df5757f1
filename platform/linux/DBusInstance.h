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
    /// Creates the adaptor whose calls are passed to the receiver. Registers nothing yet.
    DBusInstance();
    /// Calls `release`.
    ~DBusInstance() override;

    /// Registers the object and then the name. Returns Alone without a session bus, or where the bus refuses
    /// one of them. Waits for the bus. Both stay registered only if it returns
    /// First.
    Role claim() override;
    /// Sends `request` and returns immediately. The call has no time limit. Requires: `claim` returned
    /// Second.
    void handOver(const LaunchRequest& request) override;
    /// Runs an event loop until the answer arrives, but no longer than `patience`. Requires: `handOver` was
    /// called.
    Answer waitForAnswer(std::chrono::milliseconds patience) override;
    /// Releases the name and then the object. Does nothing without a session bus. Waits for the bus.
    void release() override;

private:
    /// The request that was sent last; `nullopt` before the first one.
    std::optional<QDBusPendingCall> call_;
};

} // namespace tabulon
