// The messages of the bridge to browsers as values, and their JSON. docs/browser-bridge.md describes them.
// Pure functions; the frames around messages are in BridgeFrames.h.
#pragma once

#include "base/Error.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// The version of the protocol. The extension refuses requests of other versions.
inline constexpr std::int64_t kBridgeProtocol = 1;

/// What a browser is asked to do. The extension has a function for each.
enum class BridgeOperation {
    Hello,     ///< replies with its version and the browser's name
    Windows,   ///< replies with the number of windows
    FrontTab,  ///< replies with the title and the address of the tab in front
    RunScript, ///< runs a named script in the tab in front, and replies with its text
    SetURL,    ///< shows an address in the tab in front
    NewTab,    ///< shows an address in a new tab of the window in front
    NewWindow, ///< makes a window, with an address or without
    Focus,     ///< replies when the browser got or lost the keyboard
};

/// The scripts that the extension has. A request names one; no text of a request is run.
enum class BridgeScript { None, Selection, Title, Source, LinkTargets, LinkTexts, DatesAdded, DatesModified };

/// One request.
struct BridgeRequest {
    /// Chosen by the sender. The reply has the same number.
    std::int64_t id;
    BridgeOperation operation;
    /// For RunScript.
    BridgeScript script = BridgeScript::None;
    /// For SetURL, NewTab and NewWindow; UTF-8.
    std::optional<std::string> url = {};
};

/// The members of a result; each operation has some of them.
struct BridgeResult {
    std::int64_t protocol = 0;
    std::string extension;
    std::string browser;
    std::int64_t windows = 0;
    std::string title;
    std::string url;
    std::string text;
    bool isFocused = false;
    /// In milliseconds since 1970; 0 if the focus has not changed since the extension was started.
    double focusTime = 0;
};

/// One message of a reply. A long text comes in parts, each a message of its own, before the result.
struct BridgeReply {
    std::int64_t id = 0;
    /// A part of the text; `nullopt` for the last message.
    std::optional<std::string> part;
    /// The code of a refusal, such as "noWindow"; empty for a result.
    std::string error;
    /// The reason of a refusal, for the log.
    std::string message;
    BridgeResult result;
};

/// Returns a request as JSON, UTF-8. Linear. Requires: `url` is well-formed UTF-8. The script is a member
/// only if it is not None.
std::string jsonOf(const BridgeRequest& request);

/// Returns the message of a reply. Fails with a sentence for bytes that are no such message. Unknown members
/// are ignored. Members of a result that are missing or of another kind are empty, 0 or false. A message
/// needs an "id" and one of "result", "part" and "error"; the first of these counts. Linear.
Result<BridgeReply> replyFromJson(std::string_view json);

// The host passes messages on, with the number of the program's connection around them.

/// Returns `{"client": N, "request": …}`. Fails if `request` is no JSON. The request must be an object; its
/// content is not checked. The JSON has no white space between its parts.
Result<std::string> requestOfClient(std::int64_t client, std::string_view request);

/// A reply with the number of the connection that it is for.
struct RepliedClient {
    std::int64_t client;
    std::string reply; ///< JSON
};

/// Returns the parts of `{"client": N, "reply": …}`. Fails for bytes that are no such message. "reply" must
/// be an object; its content is not checked.
Result<RepliedClient> replyOfClient(std::string_view json);

} // namespace tabulon
