#pragma once

#include <xcb/xcb.h>

#include <QPoint>

#include <chrono>
#include <memory>
#include <optional>
#include <set>

namespace zb::test {

/// The X server as the hands at its mouse and keyboard reach it, over a connection of their own. Failures of
/// the server throw std::runtime_error.
class XServer {
public:
    XServer();
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    /// A key of the keyboard, and what has to be held for it.
    struct Stroke {
        xcb_keycode_t code = 0;
        bool shift = false;
        bool altGr = false;
    };

    /// The pointer in pixels of the screen.
    void movePointer(const QPoint& place);
    void setButton(int button, bool down);
    /// The buttons that are held down.
    const std::set<int>& heldButtons() const { return heldButtons_; }
    void setKey(xcb_keycode_t code, bool down);
    /// The key with this symbol in the keyboard layout of now; none when it has no such key.
    std::optional<Stroke> strokeOf(xcb_keysym_t symbol);
    void setNumLock(bool on);

    /// Returns when the server and the window manager have dealt with all that came before.
    void awaitWindowManager();
    /// Asks the window manager to close a window, as the button of its frame does.
    void askToClose(xcb_window_t window);
    /// An event of ours in the queue of another client, after everything that the server has sent it.
    void sendMarker(xcb_window_t window, std::uint32_t number);
    xcb_atom_t markerType() const { return marker_; }

private:
    xcb_atom_t atom(const char* name);
    void fakeInput(std::uint8_t type, std::uint8_t detail, const QPoint& place = {});
    void sendToRoot(xcb_window_t window, xcb_atom_t type, std::uint32_t first);
    bool answers(std::chrono::steady_clock::time_point deadline);
    void stopKeyRepeat();
    bool numLockIsOn();

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection_;
    xcb_screen_t* screen_ = nullptr;
    std::set<int> heldButtons_;
    xcb_window_t window_ = 0; // never shown: what the window manager answers about
    xcb_atom_t marker_ = 0;
    xcb_atom_t frameExtents_ = 0;
    xcb_atom_t requestFrameExtents_ = 0;
    xcb_atom_t closeWindow_ = 0;
};

} // namespace zb::test
