// Answers requests of other X11 programs for "text/x-moz-url" with the whole list of links. Qt would send the
// first address without its title. A request of a browser for a dragged list of URIs is refused, since the
// browser would prefer it to the list with titles.
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QByteArray>

#include <map>
#include <utility>

namespace tabulon {

/// An event filter that answers requests while it exists. Does nothing on displays other than X11. Requires:
/// the application object.
class X11LinkLists : public QAbstractNativeEventFilter {
public:
    X11LinkLists();
    ~X11LinkLists() override;

    /// Sets the list of a drag from this program; empty for none. It is valid until the next call, since it
    /// is often requested after the drag has ended. The list on the clipboard is read from the clipboard's
    /// content.
    void setDragged(QByteArray list) { dragged_ = std::move(list); }

    /// Returns true for an event that was handled here. Called by Qt.
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    using Transfer = std::pair<xcb_window_t, xcb_atom_t>; // the requesting window, and its property

    /// Returns the list of a selection; empty where it is not ours or has none.
    QByteArray listOf(xcb_atom_t selection) const;
    /// Answers a request. Returns false for a request that is left to Qt.
    bool answer(const xcb_selection_request_event_t& request);
    /// Sends a list, in pieces where it does not fit into one request.
    void send(const xcb_selection_request_event_t& request, const QByteArray& list);
    /// Sends the next piece after the one before was read. Returns false for a window without a transfer.
    bool sendNextPiece(const xcb_property_notify_event_t& change);
    /// Ends the transfers to a window that was destroyed.
    void forget(xcb_window_t window);
    /// Returns the number of bytes that fit into one request.
    int largestPiece() const;

    xcb_connection_t* const connection_; // not owned; nullptr on other displays, where there are no atoms
    xcb_atom_t clipboard_ = XCB_ATOM_NONE;
    xcb_atom_t drag_ = XCB_ATOM_NONE;
    xcb_atom_t links_ = XCB_ATOM_NONE;
    xcb_atom_t uris_ = XCB_ATOM_NONE;
    xcb_atom_t incremental_ = XCB_ATOM_NONE;
    QByteArray dragged_;                       // the list of the last drag; empty if it had none
    std::map<Transfer, QByteArray> transfers_; // the bytes that are not sent yet
};

} // namespace tabulon
