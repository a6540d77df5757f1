// A program for other tests: a window that accepts a drop and prints each of its types as a line: the media
// type, a space, the bytes in hexadecimal. Then it exits. It implements the X drag protocol itself, because
// toolkits change some types.
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t kProtocolVersion = 5;
constexpr std::uint32_t kLargestForm = 1 << 20; // in units of four bytes
constexpr std::int16_t kLeft = 1000;
constexpr std::int16_t kTop = 500;
constexpr std::uint16_t kSize = 200;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;
using Event = Owned<xcb_generic_event_t>;

class Target {
public:
    explicit Target(xcb_connection_t* connection)
        : connection_(connection), window_(xcb_generate_id(connection)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        const std::array<std::uint32_t, 2> values = {screen->white_pixel, XCB_EVENT_MASK_PROPERTY_CHANGE};
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, kLeft, kTop, kSize, kSize,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
        const std::string title = "drag target";
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                            static_cast<std::uint32_t>(title.size()), title.data());
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, atom("XdndAware"), XCB_ATOM_ATOM, 32,
                            1, &kProtocolVersion);
        xcb_map_window(connection_, window_);
        xcb_flush(connection_);
    }

    // Returns true after a drop was received.
    bool run() {
        while (const Event event{xcb_wait_for_event(connection_)}) {
            if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE)
                continue;
            const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event.get());
            const auto& data = message.data.data32;
            if (message.type == atom("XdndEnter"))
                enter(message);
            else if (message.type == atom("XdndPosition"))
                send(data[0], "XdndStatus",
                     {window_, 1, 0, 0, atom("XdndActionCopy")}); // the window accepts the drop
            else if (message.type == atom("XdndDrop"))
                return drop(data[0], data[2]);
        }
        return false;
    }

private:
    xcb_atom_t atom(const std::string& name) {
        const auto cookie =
            xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    std::string nameOf(xcb_atom_t atom) {
        const Owned<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(connection_, xcb_get_atom_name(connection_, atom), nullptr));
        return reply ? std::string(xcb_get_atom_name_name(reply.get()),
                                   static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())))
                     : std::string();
    }

    std::string property(xcb_window_t window, xcb_atom_t name) {
        const auto cookie = xcb_get_property(connection_, 0, window, name, XCB_ATOM_ANY, 0, kLargestForm);
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
        return reply ? std::string(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                   static_cast<std::size_t>(xcb_get_property_value_length(reply.get())))
                     : std::string();
    }

    // If there are more than three types, they are in a property of the source's window.
    void enter(const xcb_client_message_event_t& message) {
        const auto& data = message.data.data32;
        types_.assign(data + 2, data + 5);
        if ((data[1] & 1) != 0) {
            const std::string list = property(data[0], atom("XdndTypeList"));
            types_.resize(list.size() / sizeof(xcb_atom_t));
            std::memcpy(types_.data(), list.data(), types_.size() * sizeof(xcb_atom_t));
        }
        std::erase(types_, xcb_atom_t{XCB_ATOM_NONE});
    }

    bool drop(xcb_window_t source, xcb_timestamp_t time) {
        bool all = true;
        for (const xcb_atom_t type : types_)
            all = print(type, time) && all;
        send(source, "XdndFinished", {window_, 1, atom("XdndActionCopy"), 0, 0});
        return all;
    }

    bool print(xcb_atom_t type, xcb_timestamp_t time) {
        const xcb_atom_t place = atom("DRAGGED");
        xcb_convert_selection(connection_, window_, atom("XdndSelection"), type, place, time);
        xcb_flush(connection_);
        while (const Event event{xcb_wait_for_event(connection_)}) {
            if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY)
                continue;
            if (reinterpret_cast<const xcb_selection_notify_event_t*>(event.get())->property == XCB_ATOM_NONE)
                return false;
            std::printf("%s ", nameOf(type).c_str());
            for (const char byte : property(window_, place))
                std::printf("%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
            std::puts("");
            return true;
        }
        return false;
    }

    void send(xcb_window_t source, const char* type, std::initializer_list<std::uint32_t> data) {
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = source;
        message.type = atom(type);
        std::copy(data.begin(), data.end(), message.data.data32);
        xcb_send_event(connection_, 0, source, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(connection_);
    }

    xcb_connection_t* const connection_;
    const xcb_window_t window_;
    std::vector<xcb_atom_t> types_;
};

} // namespace

int main() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool dropped = xcb_connection_has_error(connection) == 0 && Target(connection).run();
    xcb_disconnect(connection);
    return dropped ? 0 : 1;
}
