#include "platform/linux/X11SelectionReader.h"

#include "platform/linux/X11.h"

#include <poll.h>

#include <algorithm>
#include <chrono>

namespace tabulon::x11 {
namespace {

using Time = std::chrono::steady_clock::time_point;

constexpr auto kPatience = std::chrono::seconds(2); // for each piece
constexpr auto kPatienceInAll = std::chrono::seconds(10);
constexpr std::uint32_t kPiece = 1 << 18; // in units of four bytes

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

class Reader {
public:
    Reader(const char* selection, const char* target, std::size_t largest)
        : connection_(xcb_connect(nullptr, nullptr)), largest_(largest) {
        if (xcb_connection_has_error(connection_.get()))
            return;
        property_ = atom(connection_.get(), "TABULON_SELECTION");
        incremental_ = atom(connection_.get(), "INCR");
        window_ = xcb_generate_id(connection_.get());
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, rootWindow(connection_.get()), -1,
                          -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &events);
        xcb_convert_selection(connection_.get(), window_, atom(connection_.get(), selection),
                              atom(connection_.get(), target), property_, XCB_CURRENT_TIME);
        xcb_flush(connection_.get());
    }

    std::optional<std::string> read() {
        if (xcb_connection_has_error(connection_.get()) || !waitForAnswer())
            return std::nullopt;
        std::string bytes;
        const std::optional<xcb_atom_t> type = takeProperty(bytes);
        if (!type)
            return std::nullopt;
        if (*type != incremental_)
            return bytes;
        return readPieces();
    }

private:
    Owned<xcb_generic_event_t> nextEvent() {
        while (!xcb_connection_has_error(connection_.get())) {
            if (Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())})
                return event;
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                deadline_ - std::chrono::steady_clock::now());
            pollfd file{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
            if (left.count() <= 0 || ::poll(&file, 1, static_cast<int>(left.count())) <= 0)
                return nullptr;
        }
        return nullptr;
    }

    bool waitForAnswer() {
        while (const auto event = nextEvent()) {
            if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY)
                continue;
            return reinterpret_cast<const xcb_selection_notify_event_t&>(*event).property != XCB_ATOM_NONE;
        }
        return false;
    }

    // Appends the value of the property and deletes it, which requests the next piece. Returns its type, or
    // `nullopt` where there is too much.
    std::optional<xcb_atom_t> takeProperty(std::string& bytes) {
        xcb_atom_t type = XCB_ATOM_NONE;
        std::uint32_t offset = 0;
        for (bool more = true; more;) {
            const auto cookie =
                xcb_get_property(connection_.get(), 0, window_, property_, XCB_ATOM_ANY, offset, kPiece);
            const Owned<xcb_get_property_reply_t> reply(
                xcb_get_property_reply(connection_.get(), cookie, nullptr));
            if (!reply)
                return std::nullopt;
            type = reply->type;
            const auto size = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
            bytes.append(static_cast<const char*>(xcb_get_property_value(reply.get())), size);
            offset += kPiece;
            more = reply->bytes_after > 0;
            if (bytes.size() > largest_)
                return std::nullopt;
        }
        xcb_delete_property(connection_.get(), window_, property_);
        xcb_flush(connection_.get());
        return type;
    }

    std::optional<std::string> readPieces() {
        std::string bytes;
        while (const auto event = nextEvent()) {
            if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
                continue;
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
            if (change.atom != property_ || change.state != XCB_PROPERTY_NEW_VALUE)
                continue;
            deadline_ = std::min(std::chrono::steady_clock::now() + kPatience, end_);
            const std::size_t before = bytes.size();
            if (!takeProperty(bytes))
                return std::nullopt;
            if (bytes.size() == before)
                return bytes;
        }
        return std::nullopt;
    }

    const std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    const std::size_t largest_;
    const Time end_ = std::chrono::steady_clock::now() + kPatienceInAll;
    Time deadline_ = std::chrono::steady_clock::now() + kPatience;
    xcb_atom_t property_ = XCB_ATOM_NONE;
    xcb_atom_t incremental_ = XCB_ATOM_NONE;
    xcb_window_t window_ = XCB_WINDOW_NONE;
};

} // namespace

std::optional<std::string> readSelection(const char* selection, const char* target, std::size_t largest) {
    return Reader(selection, target, largest).read();
}

} // namespace tabulon::x11
