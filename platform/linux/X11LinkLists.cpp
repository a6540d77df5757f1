#include "platform/linux/X11LinkLists.h"

#include "platform/linux/X11.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

constexpr int kRequestHeader = 100; // bytes, generously
constexpr auto kType = "text/x-moz-url";

// Browsers prefer a list of URIs, which has no titles, wherever one is offered.
bool prefersUriLists(xcb_connection_t* connection, xcb_window_t window) {
    constexpr std::uint32_t kSize = 64; // in units of four bytes
    const auto cookie = xcb_get_property(connection, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, kSize);
    const x11::Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply)
        return false;
    const QByteArray name = QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                       xcb_get_property_value_length(reply.get()))
                                .toLower();
    constexpr std::array kNames = {"firefox",     "navigator", "librewolf", "waterfox",
                                   "thunderbird", "seamonkey", "chromium",  "chrome",
                                   "vivaldi",     "brave",     "opera",     "microsoft-edge"};
    return std::ranges::any_of(kNames, [&name](const char* each) { return name.contains(each); });
}

void notify(xcb_connection_t* connection, const xcb_selection_request_event_t& request, xcb_atom_t property) {
    xcb_selection_notify_event_t notify = {};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = property;
    xcb_send_event(connection, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notify));
    xcb_flush(connection);
}

// Selects the events for property changes, which request the next piece, and for the window's destruction.
void watch(xcb_connection_t* connection, xcb_window_t window, bool watches) {
    const std::uint32_t events =
        watches ? XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
}

} // namespace

X11LinkLists::X11LinkLists() : connection_(x11::connection()) {
    if (!connection_)
        return;
    clipboard_ = x11::atom(connection_, "CLIPBOARD");
    drag_ = x11::atom(connection_, "XdndSelection");
    links_ = x11::atom(connection_, kType);
    uris_ = x11::atom(connection_, "text/uri-list");
    incremental_ = x11::atom(connection_, "INCR");
    qGuiApp->installNativeEventFilter(this);
}

X11LinkLists::~X11LinkLists() {
    if (connection_ && qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
}

bool X11LinkLists::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & 0x7F) {
    case XCB_SELECTION_REQUEST:
        return answer(*reinterpret_cast<const xcb_selection_request_event_t*>(event));
    case XCB_PROPERTY_NOTIFY:
        return sendNextPiece(*reinterpret_cast<const xcb_property_notify_event_t*>(event));
    case XCB_DESTROY_NOTIFY:
        forget(reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window);
        return false;
    default:
        return false;
    }
}

QByteArray X11LinkLists::listOf(xcb_atom_t selection) const {
    if (selection == drag_)
        return dragged_;
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (selection != clipboard_ || !clipboard->ownsClipboard())
        return {};
    const QMimeData* content = clipboard->mimeData();
    return content ? content->data(kType) : QByteArray();
}

bool X11LinkLists::answer(const xcb_selection_request_event_t& request) {
    if (request.selection == drag_ && request.target == uris_ && !dragged_.isEmpty() &&
        prefersUriLists(connection_, request.requestor)) {
        notify(connection_, request, XCB_ATOM_NONE); // it requests the list with titles next
        return true;
    }
    if (request.target != links_)
        return false;
    const QByteArray list = listOf(request.selection);
    if (list.isEmpty())
        return false;
    send(request, list);
    return true;
}

int X11LinkLists::largestPiece() const {
    constexpr std::uint32_t kMost = 1 << 24;
    const std::uint32_t size = std::min(xcb_get_maximum_request_length(connection_), kMost / 4) * 4;
    return static_cast<int>(size) - kRequestHeader;
}

// A list that does not fit into one request is sent in pieces, each after the one before was read.
void X11LinkLists::send(const xcb_selection_request_event_t& request, const QByteArray& list) {
    const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
    if (list.size() <= largestPiece()) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, request.requestor, property, links_, 8,
                            static_cast<std::uint32_t>(list.size()), list.constData());
    } else {
        watch(connection_, request.requestor, true);
        const auto size = static_cast<std::uint32_t>(list.size());
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, request.requestor, property, incremental_, 32,
                            1, &size);
        transfers_[{request.requestor, property}] = list;
    }
    notify(connection_, request, property);
}

void X11LinkLists::forget(xcb_window_t window) {
    std::erase_if(transfers_, [window](const auto& each) { return each.first.first == window; });
}

// An empty piece is the end of the list.
bool X11LinkLists::sendNextPiece(const xcb_property_notify_event_t& change) {
    const auto found = transfers_.find({change.window, change.atom});
    if (found == transfers_.end())
        return false;
    if (change.state != XCB_PROPERTY_DELETE)
        return true;
    const QByteArray piece = found->second.left(largestPiece());
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, change.window, change.atom, links_, 8,
                        static_cast<std::uint32_t>(piece.size()), piece.constData());
    if (piece.isEmpty()) {
        watch(connection_, change.window, false);
        transfers_.erase(found);
    } else {
        found->second.remove(0, piece.size());
    }
    xcb_flush(connection_);
    return true;
}

} // namespace tabulon
