#include "app/BridgeSelfTest.h"

#include "bridge/BridgeMessages.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr std::int64_t kRequestId = 1;
// Replies to other requests do not belong on this connection. A browser that sends only those is not waited
// for.
constexpr int kMostMessages = 8;

ConnectionTest testOf(const BridgeReply& reply) {
    if (reply.error == "protocol")
        return {ConnectionHop::Protocol};
    if (!reply.error.empty() || reply.part)
        return {ConnectionHop::Reply};
    if (reply.result.protocol != kBridgeProtocol)
        return {ConnectionHop::Protocol, reply.result.extension};
    return {ConnectionHop::Complete, reply.result.extension};
}

ConnectionTest sayHello(BridgeConnection& connection) {
    if (!connection.send(jsonOf({.id = kRequestId, .operation = BridgeOperation::Hello})))
        return {ConnectionHop::Connection};
    for (int count = 0; count < kMostMessages; ++count) {
        const auto message = connection.receive(kSelfTestSeconds);
        if (!message)
            return {ConnectionHop::Connection};
        if (!*message)
            return {ConnectionHop::Answer};
        const auto reply = replyFromJson(**message);
        if (!reply)
            return {ConnectionHop::Reply};
        if (reply->id == kRequestId)
            return testOf(*reply);
    }
    return {ConnectionHop::Reply};
}

ConnectionTest testConnected(BrowserBridge& bridge, const Browser& browser) {
    const auto all = bridge.connectedBrowsers();
    const auto connected = std::ranges::find_if(all, [&](const ConnectedBrowser& each) {
        return browserWithIdentifier(each.identifier) == &browser;
    });
    const auto connection = connected == all.end() ? nullptr : bridge.connect(*connected);
    return connection ? sayHello(*connection) : ConnectionTest{ConnectionHop::Connection};
}

ConnectionTest testHost(const BrowserConnections& connections) {
    const std::string& host = connections.places().host;
    if (connections.services().files.kindOf(host) != PathKind::File)
        return {ConnectionHop::HostMissing};
    return {connections.services().isExecutable(host) ? ConnectionHop::Complete
                                                      : ConnectionHop::HostExecutable};
}

} // namespace

// A connected browser has passed every hop before the permission, whatever the disk contains now.
ConnectionTest testConnection(const BrowserConnections& connections, const FoundBrowser& found) {
    switch (found.stage) {
    case ConnectionStage::Allowed:
        return testConnected(connections.services().bridge, *found.browser);
    case ConnectionStage::NotAsked:
    case ConnectionStage::Denied:
        return {ConnectionHop::Permission};
    case ConnectionStage::NotInstalled:
        return {ConnectionHop::Installed};
    case ConnectionStage::Sandboxed:
        return {ConnectionHop::Sandbox};
    default:
        break;
    }
    if (ConnectionTest host = testHost(connections); host.hop != ConnectionHop::Complete)
        return host;
    if (found.stage == ConnectionStage::ManifestMissing || found.stage == ConnectionStage::ManifestOther)
        return {ConnectionHop::Manifest};
    return {connections.services().workspace.isRunning(found.browser->identifier) ? ConnectionHop::Extension
                                                                                  : ConnectionHop::Running};
}

} // namespace tabulon
