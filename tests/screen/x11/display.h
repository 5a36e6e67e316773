#pragma once

#include "screen/script/spots.h"
#include "screen/x11/display_steps.h"
#include "screen/x11/neighbour.h"
#include "screen/x11/x_server.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace zb::test {

/// A display with a mouse, a keyboard and a clipboard, before which somebody sits.
class Display {
public:
    enum class Button { Left = 1, Middle = 2, Right = 3, WheelUp = 4, WheelDown = 5 };

    /// The pointer moves so many pixels between press and release.
    explicit Display(int jitter) : jitter_(jitter) {}

    DisplaySteps& steps() { return steps_; }
    XServer& server() { return server_; }
    Neighbour& neighbour() { return neighbour_; }

    /// A click, which moves by `mostJitter` at most where more would begin a drag. What comes `then` is done
    /// while a menu that the click has opened is still there.
    void click(const Spot& spot, Button button = Button::Left, int mostJitter = kAnyJitter,
               const DisplaySteps::Step& then = {});
    /// A click on a combo, and one on the row of its list; no row when the list has not opened.
    void chooseInList(const Spot& combo, const std::function<std::optional<Spot>()>& row);
    /// The second press and release of a double click.
    void clickAgain();
    /// Holds a key of this symbol while something is clicked.
    void clickWith(xcb_keysym_t held, const Spot& spot, int mostJitter = kAnyJitter);
    /// Press, a move that begins a drag, a move over the target, and the release there.
    void drag(const Spot& from, const std::function<Spot()>& to);
    void dragFromNeighbour(std::string_view text, const Spot& to);
    void dragPictureFromNeighbour(const Spot& to);
    void dragFilesFromNeighbour(std::string_view paths, const Spot& to);
    /// The pointer on the title bar of a window's frame.
    void clickTitle(QWidget& window);

    /// Lets go of what is held, as a hand does before it answers a box that a press has opened.
    void releaseButtons();

    /// A key that enters this symbol, down and up; false when the keyboard has none.
    bool strike(xcb_keysym_t symbol, bool shift = false, bool control = false);

    static constexpr int kAnyJitter = 1000;

private:
    void pointAt(const Spot& spot);
    void uncover(const Spot& spot);
    void dragFrom(const QPoint& start, const Spot& to);
    DisplaySteps::Step setButton(Button button, bool down);

    XServer server_;
    DisplaySteps steps_{server_};
    Neighbour neighbour_;
    int jitter_;
};

} // namespace zb::test
