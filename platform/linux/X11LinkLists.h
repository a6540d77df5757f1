// Answers other X11 programs that ask this one for "text/x-moz-url". The toolkit would answer by itself, with
// the first address and no title; here they get the whole list as it was set. Where it is dragged over a
// browser that would take a list of URIs in its place, that is refused.
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QByteArray>

#include <map>
#include <utility>

namespace tabulon {

/// Answers while it lives. Does nothing on displays other than X11.
class X11LinkLists : public QAbstractNativeEventFilter {
public:
    X11LinkLists();
    ~X11LinkLists() override;

    /// The list that a drag from this program carries, empty for none. It is handed out until the next one:
    /// it is often fetched after the drag has ended. The list on the clipboard is that of the clipboard's own
    /// content.
    void setDragged(QByteArray list) { dragged_ = std::move(list); }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    using Transfer = std::pair<xcb_window_t, xcb_atom_t>; // the window that asked, and its property

    QByteArray listOf(xcb_atom_t selection) const;
    bool answer(const xcb_selection_request_event_t& request);
    void send(const xcb_selection_request_event_t& request, const QByteArray& list);
    bool sendNextPiece(const xcb_property_notify_event_t& change);
    void forget(xcb_window_t window);
    int largestPiece() const;

    xcb_connection_t* const connection_;
    xcb_atom_t clipboard_ = XCB_ATOM_NONE;
    xcb_atom_t drag_ = XCB_ATOM_NONE;
    xcb_atom_t links_ = XCB_ATOM_NONE;
    xcb_atom_t uris_ = XCB_ATOM_NONE;
    xcb_atom_t incremental_ = XCB_ATOM_NONE;
    QByteArray dragged_;
    std::map<Transfer, QByteArray> transfers_; // what is still to be sent
};

} // namespace tabulon
