// Functions that the X11 parts of the desktop services share: the toolkit's connection, atoms, the root
// window.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace tabulon::x11 {

/// Frees what xcb has allocated with malloc: replies, events and errors.
struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
/// A reply or an event that its owner frees; may be nullptr, as a reply is if the server does not answer.
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// Returns the toolkit's connection, or `nullptr` on displays other than X11. Not owned. Requires: the
/// application object.
xcb_connection_t* connection();

/// Returns the root window of the first screen. Constant time. Requires: a connection without an error.
xcb_window_t rootWindow(xcb_connection_t* connection);

/// Returns the atom of that name, which is created if it is missing, or XCB_ATOM_NONE where the server does
/// not answer. Waits for the server. `name` is ASCII.
xcb_atom_t atom(xcb_connection_t* connection, std::string_view name);

} // namespace tabulon::x11
