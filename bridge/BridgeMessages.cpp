#include "bridge/BridgeMessages.h"

#include <simdjson.h>

namespace tabulon {
namespace {

namespace json = simdjson::dom;

std::string_view nameOf(BridgeOperation operation) {
    switch (operation) {
    case BridgeOperation::Hello:
        return "hello";
    case BridgeOperation::Windows:
        return "windows";
    case BridgeOperation::FrontTab:
        return "frontTab";
    case BridgeOperation::RunScript:
        return "run";
    case BridgeOperation::SetURL:
        return "setURL";
    case BridgeOperation::NewTab:
        return "newTab";
    case BridgeOperation::NewWindow:
        return "newWindow";
    case BridgeOperation::Focus:
        return "focus";
    }
    return {};
}

std::string_view nameOf(BridgeScript script) {
    switch (script) {
    case BridgeScript::None:
        return {};
    case BridgeScript::Selection:
        return "selection";
    case BridgeScript::Title:
        return "title";
    case BridgeScript::Source:
        return "source";
    case BridgeScript::LinkTargets:
        return "linkTargets";
    case BridgeScript::LinkTexts:
        return "linkTexts";
    case BridgeScript::DatesAdded:
        return "datesAdded";
    case BridgeScript::DatesModified:
        return "datesModified";
    }
    return {};
}

// Appends the text as a JSON string. Requires: UTF-8; other bytes would make the message invalid.
void appendText(std::string& out, std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    out += '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            (out += '\\') += c;
        else if (byte < 0x20)
            ((out += "\\u00") += kDigits[byte >> 4]) += kDigits[byte & 15];
        else
            out += c;
    }
    out += '"';
}

void appendMember(std::string& out, std::string_view name, std::string_view text) {
    ((out += ",\"") += name) += "\":";
    appendText(out, text);
}

// Each returns the member, or an empty value if there is none of that kind.

std::string textIn(const json::object& object, std::string_view name) {
    std::string_view text;
    return object[name].get(text) == simdjson::SUCCESS ? std::string(text) : std::string();
}

template <class Value>
Value valueIn(const json::object& object, std::string_view name) {
    Value value{};
    return object[name].get(value) == simdjson::SUCCESS ? value : Value{};
}

BridgeResult resultIn(const json::object& object) {
    return {.protocol = valueIn<std::int64_t>(object, "protocol"),
            .extension = textIn(object, "extension"),
            .browser = textIn(object, "browser"),
            .windows = valueIn<std::int64_t>(object, "count"),
            .title = textIn(object, "title"),
            .url = textIn(object, "url"),
            .text = textIn(object, "text"),
            .isFocused = valueIn<bool>(object, "focused"),
            .focusTime = valueIn<double>(object, "time")};
}

tl::unexpected<Error> noMessage() {
    return failure("The browser has sent no message of the bridge.");
}

} // namespace

std::string jsonOf(const BridgeRequest& request) {
    std::string out =
        "{\"protocol\":" + std::to_string(kBridgeProtocol) + ",\"id\":" + std::to_string(request.id);
    appendMember(out, "operation", nameOf(request.operation));
    if (request.script != BridgeScript::None)
        appendMember(out, "script", nameOf(request.script));
    if (request.url)
        appendMember(out, "url", *request.url);
    return out + "}";
}

Result<BridgeReply> replyFromJson(std::string_view bytes) {
    json::parser parser;
    json::object object;
    BridgeReply reply;
    if (parser.parse(simdjson::padded_string(bytes)).get(object) || object["id"].get(reply.id))
        return noMessage();
    if (json::object result; !object["result"].get(result)) {
        reply.result = resultIn(result);
        return reply;
    }
    if (std::string_view part; !object["part"].get(part)) {
        reply.part = std::string(part);
        return reply;
    }
    reply.error = textIn(object, "error");
    reply.message = textIn(object, "message");
    if (reply.error.empty())
        return noMessage();
    return reply;
}

Result<std::string> requestOfClient(std::int64_t client, std::string_view request) {
    json::parser parser;
    json::object object;
    if (parser.parse(simdjson::padded_string(request)).get(object))
        return failure("The program has sent no message of the bridge.");
    return "{\"client\":" + std::to_string(client) + ",\"request\":" + simdjson::minify(object) + "}";
}

Result<RepliedClient> replyOfClient(std::string_view bytes) {
    json::parser parser;
    json::object object;
    json::object reply;
    RepliedClient replied{};
    if (parser.parse(simdjson::padded_string(bytes)).get(object) || object["client"].get(replied.client) ||
        object["reply"].get(reply))
        return noMessage();
    replied.reply = simdjson::minify(reply);
    return replied;
}

} // namespace tabulon
