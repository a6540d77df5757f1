#include "platform/linux/X11Windows.h"

#include "base/Ascii.h"

#include <cstdlib>
#include <string_view>

namespace tabulon {
namespace {

struct FreeReply {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using Received = std::unique_ptr<Reply, FreeReply>;

constexpr std::uint32_t kMostWords = 1 << 16; // of one property
constexpr std::uint32_t kFromPager = 2; // the source of a request that a user has made in another window

xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Received<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

Received<xcb_get_property_reply_t> propertyOf(xcb_connection_t* connection, xcb_window_t window,
                                              xcb_atom_t property, xcb_atom_t type) {
    const auto cookie = xcb_get_property(connection, 0, window, property, type, 0, kMostWords);
    return Received<xcb_get_property_reply_t>(xcb_get_property_reply(connection, cookie, nullptr));
}

} // namespace

X11Windows::X11Windows() : connection_(xcb_connect(nullptr, nullptr)) {
    if (isConnected())
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
}

bool X11Windows::isConnected() const {
    return xcb_connection_has_error(connection_.get()) == 0;
}

std::vector<ManagedWindow> X11Windows::stackedWindows() const {
    std::vector<ManagedWindow> windows;
    if (isConnected())
        for (const xcb_window_t window :
             numbers(root_, atomNamed(connection_.get(), "_NET_CLIENT_LIST_STACKING"), XCB_ATOM_WINDOW))
            windows.push_back(managed(window));
    return windows;
}

ManagedWindow X11Windows::activeWindow() const {
    if (!isConnected())
        return {};
    const auto active = numbers(root_, atomNamed(connection_.get(), "_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
    return active.empty() || active.front() == 0 ? ManagedWindow{} : managed(active.front());
}

void X11Windows::bringToFront(const std::vector<ManagedWindow>& windows) const {
    const xcb_atom_t restack = atomNamed(connection_.get(), "_NET_RESTACK_WINDOW");
    for (const ManagedWindow& window : windows)
        sendToManager(window.window, restack, XCB_NONE, XCB_STACK_MODE_ABOVE);
    sendToManager(windows.back().window, atomNamed(connection_.get(), "_NET_ACTIVE_WINDOW"), XCB_CURRENT_TIME,
                  XCB_NONE);
    xcb_flush(connection_.get());
}

ManagedWindow X11Windows::managed(xcb_window_t window) const {
    ManagedWindow result{.window = window, .pid = 0, .instance = {}, .className = {}};
    const auto pids = numbers(window, atomNamed(connection_.get(), "_NET_WM_PID"), XCB_ATOM_CARDINAL);
    if (!pids.empty())
        result.pid = pids.front();
    if (const auto reply = propertyOf(connection_.get(), window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING)) {
        const std::string_view names(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                     static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
        const std::size_t end = names.find('\0');
        result.instance = ascii::lowered(names.substr(0, end));
        if (end != names.npos)
            result.className = ascii::lowered(names.substr(end + 1, names.find('\0', end + 1) - end - 1));
    }
    return result;
}

std::vector<std::uint32_t> X11Windows::numbers(xcb_window_t window, xcb_atom_t property,
                                               xcb_atom_t type) const {
    const auto reply = propertyOf(connection_.get(), window, property, type);
    if (!reply || reply->format != 32)
        return {};
    const auto* const first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

void X11Windows::sendToManager(xcb_window_t window, xcb_atom_t message, std::uint32_t second,
                               std::uint32_t third) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = message;
    event.data.data32[0] = kFromPager;
    event.data.data32[1] = second;
    event.data.data32[2] = third;
    xcb_send_event(connection_.get(), 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

} // namespace tabulon
