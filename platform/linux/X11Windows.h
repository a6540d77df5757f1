// The windows of all applications on an X11 display: which one has the keyboard, and bringing them to the
// front. Uses a connection of its own, so that programs without a toolkit can use it.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tabulon {

/// A window that the window manager manages.
struct ManagedWindow {
    /// Its number on the server. The window may be destroyed at any time.
    xcb_window_t window;
    /// The process that owns it, as the window says; 0 if it says nothing. In a sandbox the number is that of
    /// the sandbox.
    unsigned pid;
    /// The two names of its class, such as "Navigator" and "firefox-esr", in small letters.
    std::string instance;
    std::string className;
};

/// The windows of one display. Every function but `isConnected` waits for the server. A request that the
/// server refuses, such as one for a window that was destroyed, is treated as an empty reply.
class X11Windows {
public:
    /// Connects to the display that the environment names. Waits until it is connected, or that has failed;
    /// see `isConnected`.
    X11Windows();

    /// Returns false if there is no such display. Then there are no windows. Also false after the connection
    /// has ended, for example with the server.
    bool isConnected() const;

    /// Returns the windows from the lowest to the topmost, or an empty list without a window manager. At most
    /// 65,536 windows. Waits for the server several times for each of them.
    std::vector<ManagedWindow> stackedWindows() const;
    /// Returns the window with the keyboard, with a `window` of 0 if there is none. The other members are
    /// empty then.
    ManagedWindow activeWindow() const;
    /// Asks the window manager to put these windows, from the lowest to the topmost, above the others and to
    /// give the keyboard to the last one. Requires: not empty. The window manager may refuse it, and does not
    /// reply. Returns before it has acted.
    void bringToFront(const std::vector<ManagedWindow>& windows) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    /// Reads the properties of a window. Those that are missing are 0 or empty.
    ManagedWindow managed(xcb_window_t window) const;
    /// Returns the numbers of a property, or an empty list if it is missing, has another type, or is not of
    /// 32-bit numbers.
    std::vector<std::uint32_t> numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
    /// Adds a message about `window` to the output. It is sent when the output is flushed. `second` and
    /// `third` are its second and third number; the first one marks a request of the user.
    void sendToManager(xcb_window_t window, xcb_atom_t message, std::uint32_t second,
                       std::uint32_t third) const;

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    /// The root window of the first screen; 0 without a display.
    xcb_window_t root_ = 0;
};

} // namespace tabulon
