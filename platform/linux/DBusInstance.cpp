#include "platform/linux/DBusInstance.h"

#include "platform/linux/ApplicationAdaptor.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <limits>

namespace tabulon {
namespace {

constexpr auto kName = "com.tabulon.Tabulon";
constexpr auto kPath = "/com/tabulon/Tabulon";
constexpr auto kInterface = "org.freedesktop.Application";

// A request for a session bus that does not run would start one that is never ended.
bool hasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

QDBusMessage messageFor(const LaunchRequest& request) {
    const auto method = [](const char* name) {
        QDBusMessage message = QDBusMessage::createMethodCall(kName, kPath, kInterface, name);
        message.setAutoStartService(false);
        return message;
    };
    QVariantMap platformData;
    if (!request.activationToken.empty())
        platformData["activation-token"] = QString::fromStdString(request.activationToken);
    if (!request.startupId.empty())
        platformData["desktop-startup-id"] = QString::fromStdString(request.startupId);
    switch (request.kind) {
    case LaunchRequest::Kind::Open: {
        QStringList uris;
        for (const std::string& uri : request.uris)
            uris << QString::fromStdString(uri);
        return method("Open") << uris << platformData;
    }
    case LaunchRequest::Kind::NewDocument:
        return method("ActivateAction") << "new-document" << QVariantList() << platformData;
    case LaunchRequest::Kind::Activate:
        break;
    }
    return method("Activate") << platformData;
}

// Returns whether an error means that the program has ended. A program that ends releases its name before its
// object.
bool isServiceGone(QDBusError::ErrorType error) {
    switch (error) {
    case QDBusError::NoReply:
    case QDBusError::Disconnected:
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownObject:
        return true;
    default:
        return false;
    }
}

} // namespace

DBusInstance::DBusInstance() {
    new ApplicationAdaptor(this, [this](LaunchRequest request) { deliver(std::move(request)); });
}

DBusInstance::~DBusInstance() {
    DBusInstance::release();
}

// The object is registered before the name, so that a process that finds the name also finds the object.
SingleInstance::Role DBusInstance::claim() {
    if (!hasSessionBus())
        return Role::Alone;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.registerObject(kPath, this))
        return Role::Alone;
    const auto reply = bus.interface()->registerService(kName, QDBusConnectionInterface::DontQueueService,
                                                        QDBusConnectionInterface::DontAllowReplacement);
    if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered)
        return Role::First;
    bus.unregisterObject(kPath);
    return reply.isValid() ? Role::Second : Role::Alone;
}

void DBusInstance::handOver(const LaunchRequest& request) {
    call_ = QDBusConnection::sessionBus().asyncCall(messageFor(request), std::numeric_limits<int>::max());
}

SingleInstance::Answer DBusInstance::waitForAnswer(std::chrono::milliseconds patience) {
    QDBusPendingCallWatcher watcher(*call_);
    QEventLoop loop;
    connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec();
    if (!watcher.isFinished())
        return Answer::Silent;
    if (!watcher.isError())
        return Answer::Taken;
    return isServiceGone(watcher.error().type()) ? Answer::Gone : Answer::Refused;
}

void DBusInstance::release() {
    if (!hasSessionBus())
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.interface()->unregisterService(kName);
    bus.unregisterObject(kPath);
}

} // namespace tabulon
