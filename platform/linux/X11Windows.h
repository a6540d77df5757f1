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
    xcb_window_t window;
    /// The process that owns it, as the window says; 0 if it says nothing. In a sandbox the number is that of
    /// the sandbox.
    unsigned pid;
    /// The two names of its class, such as "Navigator" and "firefox-esr", in small letters.
    std::string instance;
    std::string className;
};

/// The windows of one display. Every function waits for the server.
class X11Windows {
public:
    /// Connects to the display that the environment names.
    X11Windows();

    /// Returns false if there is no such display. Then there are no windows.
    bool isConnected() const;

    /// Returns the windows from the lowest to the topmost, or an empty list without a window manager.
    std::vector<ManagedWindow> stackedWindows() const;
    /// Returns the window with the keyboard, with a `window` of 0 if there is none.
    ManagedWindow activeWindow() const;
    /// Asks the window manager to put these windows, from the lowest to the topmost, above the others and to
    /// give the keyboard to the last one. Requires: not empty.
    void bringToFront(const std::vector<ManagedWindow>& windows) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    ManagedWindow managed(xcb_window_t window) const;
    std::vector<std::uint32_t> numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
    void sendToManager(xcb_window_t window, xcb_atom_t message, std::uint32_t second,
                       std::uint32_t third) const;

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = 0;
};

} // namespace tabulon
