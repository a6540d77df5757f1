// Where the hosts of the bridge listen: one socket for each running browser, in a folder of the user's
// runtime files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// The name of the host in the manifests of native messaging.
inline constexpr std::string_view kBridgeHostName = "com.tabulon.tabulon";

/// Returns the folder of the sockets below `runtimeFolder`, the user's folder for runtime files. Both are
/// paths without a slash at the end, in the file system's encoding. Does not create the folder.
std::string bridgeFolder(const std::string& runtimeFolder);

/// The processes that belong to a socket.
struct BridgeSocketName {
    unsigned browser; ///< the process that has started the host: the browser's main process
    unsigned host;
};

/// Returns the file name of a socket: "<browser>-<host>.sock". Both numbers are decimal.
std::string fileNameOf(const BridgeSocketName& name);

/// Returns the processes in a socket's file name, or `nullopt` for another name. A number that does not fit
/// into `unsigned` is part of another name. Whether the processes exist is not checked.
std::optional<BridgeSocketName> socketNameIn(std::string_view fileName);

} // namespace tabulon
