// What the X11 parts of the desktop services share: the toolkit's connection, atoms, the root window. Empty
// on other displays.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace tabulon::x11 {

/// Frees what xcb has allocated.
struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// The toolkit's connection; nullptr where the display is not X11. Requires the application object.
xcb_connection_t* connection();

xcb_window_t rootWindow(xcb_connection_t* connection);

/// The atom of that name, made where it is missing; XCB_ATOM_NONE when the server does not answer.
xcb_atom_t atom(xcb_connection_t* connection, std::string_view name);

} // namespace tabulon::x11
