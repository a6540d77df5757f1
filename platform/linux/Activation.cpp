// On Wayland Qt takes the token from the environment. On X11 a window manager refuses a program that raises
// itself while the user works in another one. It grants a request with the time of the user's action and the
// mark that the user is its source. The message that a start is complete is that of the startup-notification
// protocol.
#include "platform/linux/Activation.h"

#include "platform/linux/X11.h"

#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>

namespace tabulon {
namespace {

using x11::atom;
using x11::rootWindow;

constexpr auto kTokenVariable = "XDG_ACTIVATION_TOKEN";
constexpr auto kStartupVariable = "DESKTOP_STARTUP_ID";
constexpr std::uint32_t kFromTheUser = 2;

xcb_client_message_event_t message(xcb_window_t window, xcb_atom_t type, std::uint8_t format) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = format;
    event.window = window;
    event.type = type;
    return event;
}

void sendToRoot(xcb_connection_t* connection, const xcb_client_message_event_t& event, std::uint32_t mask) {
    xcb_send_event(connection, 0, rootWindow(connection), mask, reinterpret_cast<const char*>(&event));
}

// Returns the time in milliseconds after "_TIME" in a startup identifier, or 0, the current time, without it.
xcb_timestamp_t timeOf(std::string_view startupId) {
    constexpr std::string_view kMark = "_TIME";
    xcb_timestamp_t time = XCB_CURRENT_TIME;
    if (const std::size_t mark = startupId.rfind(kMark); mark != std::string_view::npos)
        std::from_chars(startupId.data() + mark + kMark.size(), startupId.data() + startupId.size(), time);
    return time;
}

void activateX11Window(xcb_connection_t* connection, const QWidget& window, xcb_timestamp_t time) {
    auto event =
        message(static_cast<xcb_window_t>(window.winId()), atom(connection, "_NET_ACTIVE_WINDOW"), 32);
    event.data.data32[0] = kFromTheUser;
    event.data.data32[1] = time;
    sendToRoot(connection, event, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

// Sends the text with a zero byte at its end in pieces of twenty bytes, the first one in a message of its own
// type.
void announceStartDone(xcb_connection_t* connection, const std::string& startupId) {
    std::string text = "remove: ID=\"";
    for (const char c : startupId) {
        if (c == '"' || c == '\\')
            text += '\\';
        text += c;
    }
    text += '"';
    text += '\0';
    constexpr std::size_t kPiece = 20;
    const xcb_window_t sender = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, sender, rootWindow(connection), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t first = atom(connection, "_NET_STARTUP_INFO_BEGIN");
    const xcb_atom_t next = atom(connection, "_NET_STARTUP_INFO");
    for (std::size_t begin = 0; begin < text.size(); begin += kPiece) {
        auto event = message(sender, begin == 0 ? first : next, 8);
        std::memcpy(event.data.data8, text.data() + begin, std::min(kPiece, text.size() - begin));
        sendToRoot(connection, event, XCB_EVENT_MASK_PROPERTY_CHANGE);
    }
    xcb_destroy_window(connection, sender);
}

} // namespace

void readActivation(LaunchRequest& request) {
    request.activationToken = qgetenv(kTokenVariable).toStdString();
    request.startupId = qgetenv(kStartupVariable).toStdString();
}

void beginActivation(const LaunchRequest& request) {
    // Set for each request: Qt removes it with the first window that uses it, which may be one that is not
    // shown.
    const std::string& token = request.activationToken.empty() ? request.startupId : request.activationToken;
    if (token.empty())
        qunsetenv(kTokenVariable);
    else
        qputenv(kTokenVariable, QByteArray::fromStdString(token));
}

void endActivation(const LaunchRequest& request, QWidget* window) {
    xcb_connection_t* connection = x11::connection();
    if (!connection)
        return;
    if (window)
        activateX11Window(connection, *window, timeOf(request.startupId));
    if (!request.startupId.empty())
        announceStartDone(connection, request.startupId);
    xcb_flush(connection);
}

} // namespace tabulon
