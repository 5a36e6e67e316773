#include "screen/x11/x_server.h"

#include <xcb/xtest.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <stdexcept>

namespace zb::test {

namespace {

constexpr xcb_keysym_t kNumLock = 0xff7f;
constexpr xcb_keysym_t kFirstKeypad = 0xff80;
constexpr xcb_keysym_t kLastKeypad = 0xffbd;
constexpr std::chrono::seconds kLongestAnswer(10);
constexpr std::chrono::milliseconds kFirstAnswer(1000);

struct Free {
    // Replies of the library come from malloc. NOLINTNEXTLINE(cppcoreguidelines-*)
    void operator()(void* reply) const { std::free(reply); }
};
template<typename Reply>
std::unique_ptr<Reply, Free> owned(Reply* reply) {
    if (reply == nullptr)
        throw std::runtime_error("the X server did not answer");
    return std::unique_ptr<Reply, Free>(reply);
}

bool isKeypad(xcb_keysym_t symbol) {
    return symbol >= kFirstKeypad && symbol <= kLastKeypad;
}

} // namespace

XServer::XServer() : connection_(xcb_connect(nullptr, nullptr), &xcb_disconnect) {
    if (xcb_connection_has_error(connection_.get()) != 0)
        throw std::runtime_error("there is no X server at DISPLAY");
    const auto* test = xcb_get_extension_data(connection_.get(), &xcb_test_id);
    if (test == nullptr || test->present == 0)
        throw std::runtime_error("the X server has no XTEST extension");
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    window_ = xcb_generate_id(connection_.get());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, screen_->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen_->root_visual, XCB_CW_EVENT_MASK, &events);
    marker_ = atom("_ZELTOBENCH_TEST_MARKER");
    frameExtents_ = atom("_NET_FRAME_EXTENTS");
    requestFrameExtents_ = atom("_NET_REQUEST_FRAME_EXTENTS");
    closeWindow_ = atom("_NET_CLOSE_WINDOW");
    stopKeyRepeat();
    setNumLock(true);
}

XServer::~XServer() = default;

xcb_atom_t XServer::atom(const char* name) {
    const auto asked =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    return owned(xcb_intern_atom_reply(connection_.get(), asked, nullptr))->atom;
}

void XServer::fakeInput(std::uint8_t type, std::uint8_t detail, const QPoint& place) {
    xcb_test_fake_input(connection_.get(), type, detail, XCB_CURRENT_TIME, screen_->root,
                        static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 0);
    xcb_flush(connection_.get());
}

void XServer::movePointer(const QPoint& place) {
    fakeInput(XCB_MOTION_NOTIFY, 0, place);
}

// A button that is released already stays as it is.
void XServer::setButton(int button, bool down) {
    if (down)
        heldButtons_.insert(button);
    else if (heldButtons_.erase(button) == 0)
        return;
    fakeInput(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void XServer::setKey(xcb_keycode_t code, bool down) {
    fakeInput(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, code);
}

// The layout may have changed since the last look. A key has its symbols plain and with Shift, the same of a
// second layout, and those with AltGr.
std::optional<XServer::Stroke> XServer::strokeOf(xcb_keysym_t symbol) {
    const xcb_setup_t* setup = xcb_get_setup(connection_.get());
    const int keys = setup->max_keycode - setup->min_keycode + 1;
    const auto asked =
        xcb_get_keyboard_mapping(connection_.get(), setup->min_keycode, static_cast<std::uint8_t>(keys));
    const auto mapping = owned(xcb_get_keyboard_mapping_reply(connection_.get(), asked, nullptr));
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const int perKey = mapping->keysyms_per_keycode;
    for (const int column : {0, 1, 4, 5}) {
        for (int key = 0; column < perKey && key < keys; ++key) {
            if (symbols[key * perKey + column] != symbol)
                continue;
            const bool shifted = column % 2 == 1 && !isKeypad(symbol);
            return Stroke{static_cast<xcb_keycode_t>(setup->min_keycode + key), shifted, column >= 4};
        }
    }
    return std::nullopt;
}

// A key stays down until the program has dealt with it. On a slow machine that takes longer than it takes the
// server to repeat the key.
void XServer::stopKeyRepeat() {
    const std::uint32_t off = XCB_AUTO_REPEAT_MODE_OFF;
    xcb_change_keyboard_control(connection_.get(), XCB_KB_AUTO_REPEAT_MODE, &off);
}

bool XServer::numLockIsOn() {
    const auto asked = xcb_query_pointer(connection_.get(), screen_->root);
    return (owned(xcb_query_pointer_reply(connection_.get(), asked, nullptr))->mask & XCB_MOD_MASK_2) != 0;
}

void XServer::setNumLock(bool on) {
    const auto key = strokeOf(kNumLock);
    if (!key || numLockIsOn() == on)
        return;
    setKey(key->code, true);
    setKey(key->code, false);
}

void XServer::sendToRoot(xcb_window_t window, xcb_atom_t type, std::uint32_t first) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    message.data.data32[0] = first;
    message.data.data32[1] = 2; // asked by the user
    xcb_send_event(connection_.get(), 0, screen_->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection_.get());
}

// The window manager takes its events in their order, so its answer comes after all its earlier work. One
// that has just been started does not hear the first question.
void XServer::awaitWindowManager() {
    const auto deadline = std::chrono::steady_clock::now() + kLongestAnswer;
    do {
        xcb_delete_property(connection_.get(), window_, frameExtents_);
        sendToRoot(window_, requestFrameExtents_, 0);
        if (answers(std::chrono::steady_clock::now() + kFirstAnswer))
            return;
    } while (std::chrono::steady_clock::now() < deadline);
    throw std::runtime_error("the window manager did not answer");
}

bool XServer::answers(std::chrono::steady_clock::time_point deadline) {
    for (;;) {
        const std::unique_ptr<xcb_generic_event_t, Free> event(xcb_poll_for_event(connection_.get()));
        if (event != nullptr) {
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
            if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && change.atom == frameExtents_ &&
                change.state == XCB_PROPERTY_NEW_VALUE)
                return true;
            continue;
        }
        if (xcb_connection_has_error(connection_.get()) != 0)
            throw std::runtime_error("the X server has gone");
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        pollfd descriptor{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
        ::poll(&descriptor, 1, static_cast<int>(left.count()));
    }
}

void XServer::askToClose(xcb_window_t window) {
    sendToRoot(window, closeWindow_, XCB_CURRENT_TIME);
}

void XServer::sendMarker(xcb_window_t window, std::uint32_t number) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = marker_;
    message.data.data32[0] = number;
    xcb_send_event(connection_.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection_.get());
}

} // namespace zb::test
