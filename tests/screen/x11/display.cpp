#include "screen/x11/display.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>

namespace zb::test {

namespace {

constexpr xcb_keysym_t kShift = 0xffe1;
constexpr xcb_keysym_t kControl = 0xffe3;
constexpr xcb_keysym_t kAltGr = 0xfe03;
constexpr int kFarEnoughToLeave = 16;
constexpr int kFarEnoughToDrag = 32; // also along the row on which it begins

QPoint onScreen(const Spot& spot) {
    return spot.widget->mapToGlobal(spot.place);
}

/// While it lives the time of a double click is longer than a slow machine takes for its presses.
class LongDoubleClick {
public:
    LongDoubleClick() { QApplication::setDoubleClickInterval(5000); }
    ~LongDoubleClick() { QApplication::setDoubleClickInterval(before_); }
    LongDoubleClick(const LongDoubleClick&) = delete;
    LongDoubleClick& operator=(const LongDoubleClick&) = delete;

private:
    int before_ = QApplication::doubleClickInterval();
};

} // namespace

// A dialog before the target is put beside the main window, as a user would. Of a window's frame only the
// window manager knows.
void Display::uncover(const Spot& spot) {
    const QPoint place = onScreen(spot);
    const QWidget* window = spot.widget->window();
    if (QApplication::topLevelAt(place) == window)
        return;
    for (QWidget* other : QApplication::topLevelWidgets()) {
        if (other == window || !other->isVisible() || !other->frameGeometry().contains(place))
            continue;
        const QRect screen = other->screen()->availableGeometry();
        const QSize size = other->frameGeometry().size();
        other->move(std::max(screen.left(), screen.right() - size.width()), screen.top());
    }
    steps_.rest();
}

void Display::pointAt(const Spot& spot) {
    steps_.rest();
    uncover(spot);
    steps_.run({[this, spot] { server_.movePointer(onScreen(spot)); }});
}

DisplaySteps::Step Display::setButton(Button button, bool down) {
    return [this, button, down] { server_.setButton(static_cast<int>(button), down); };
}

// The hand trembles around the point, and stays on the widget.
void Display::click(const Spot& spot, Button button, int mostJitter, const DisplaySteps::Step& then) {
    const int jitter = std::min({jitter_, mostJitter, spot.widget->width() - 4});
    const int last = spot.widget->width() - jitter - 2;
    const int left = std::clamp(spot.place.x() - jitter / 2, std::min(2, last), last);
    const Spot from{spot.widget, {jitter == 0 ? spot.place.x() : left, spot.place.y()}};
    const QPoint to = onScreen(from) + QPoint(jitter, 0);
    pointAt(from);
    std::vector<DisplaySteps::Step> steps{setButton(button, true)};
    if (jitter > 0)
        steps.push_back([this, to] { server_.movePointer(to); });
    steps.push_back(setButton(button, false));
    if (then)
        steps.push_back(then);
    steps_.run(std::move(steps));
}

// A list takes no notice of the button for the time of a double click, or until the pointer has left the
// place of the click. Only then does a release choose a row, even one that appears under the pointer.
void Display::chooseInList(const Spot& combo, const std::function<std::optional<Spot>()>& row) {
    pointAt(combo);
    {
        const LongDoubleClick untilPointerLeaves;
        steps_.run({[this] {
            server_.setButton(static_cast<int>(Button::Left), true);
            server_.setButton(static_cast<int>(Button::Left), false);
        }});
        const auto spot = row();
        if (!spot)
            return;
        const QPoint aside(kFarEnoughToLeave, 0);
        steps_.run({[&] { server_.movePointer(onScreen(*spot) - aside); },
                    [&] { server_.movePointer(onScreen(*spot) + aside); }});
    }
    click(*row(), Button::Left);
}

void Display::clickAgain() {
    const LongDoubleClick secondClickCounts;
    steps_.run({setButton(Button::Left, true), setButton(Button::Left, false)});
}

void Display::clickWith(xcb_keysym_t held, const Spot& spot, int mostJitter) {
    const auto key = server_.strokeOf(held);
    steps_.run({[&] { server_.setKey(key->code, true); }});
    click(spot, Button::Left, mostJitter);
    steps_.run({[&] { server_.setKey(key->code, false); }});
}

void Display::drag(const Spot& from, const std::function<Spot()>& to) {
    pointAt(from);
    const QPoint start = onScreen(from);
    QPoint end;
    steps_.run({setButton(Button::Left, true),
                [this, start] { server_.movePointer(start + QPoint(-kFarEnoughToDrag / 2, 2)); },
                [this, start] { server_.movePointer(start + QPoint(-kFarEnoughToDrag, 2)); },
                [&] {
                    end = onScreen(to());
                    server_.movePointer(end + QPoint(1, 0));
                },
                [&] { server_.movePointer(end); }, setButton(Button::Left, false)});
}

void Display::dragFromNeighbour(std::string_view text, const Spot& to) {
    steps_.rest();
    uncover(to);
    dragFrom(neighbour_.offer(text), to);
}

void Display::dragPictureFromNeighbour(const Spot& to) {
    steps_.rest();
    uncover(to);
    dragFrom(neighbour_.offerPicture(), to);
}

void Display::dragFilesFromNeighbour(std::string_view paths, const Spot& to) {
    steps_.rest();
    uncover(to);
    dragFrom(neighbour_.offerFiles(paths), to);
}

void Display::dragFrom(const QPoint& start, const Spot& to) {
    const QPoint end = onScreen(to);
    steps_.run({[this, start] { server_.movePointer(start); }, setButton(Button::Left, true),
                [this, start] { server_.movePointer(start - QPoint(kFarEnoughToDrag / 2, 2)); },
                [this, start] { server_.movePointer(start - QPoint(kFarEnoughToDrag, 2)); },
                [this, end] {
                    neighbour_.awaitDrag();
                    server_.movePointer(end + QPoint(1, 0));
                },
                [this, end] {
                    neighbour_.awaitAnswer();
                    server_.movePointer(end);
                },
                [this] {
                    neighbour_.awaitAnswer();
                    server_.setButton(static_cast<int>(Button::Left), false);
                }});
    neighbour_.awaitDrop();
    steps_.rest();
}

void Display::clickTitle(QWidget& window) {
    steps_.rest();
    const QRect frame = window.frameGeometry();
    const int title = (frame.top() - window.geometry().top()) / 2;
    click({&window, {window.width() / 3, title}}, Button::Left, 0);
}

void Display::releaseButtons() {
    std::vector<DisplaySteps::Step> steps;
    for (const int button : server_.heldButtons())
        steps.push_back([this, button] { server_.setButton(button, false); });
    steps_.run(std::move(steps));
}

bool Display::strike(xcb_keysym_t symbol, bool shift, bool control) {
    const auto key = server_.strokeOf(symbol);
    if (!key)
        return false;
    std::vector<xcb_keycode_t> held;
    const auto hold = [&](bool wanted, xcb_keysym_t modifier) {
        if (const auto found = wanted ? server_.strokeOf(modifier) : std::nullopt)
            held.push_back(found->code);
    };
    hold(shift || key->shift, kShift);
    hold(control, kControl);
    hold(key->altGr, kAltGr);
    steps_.run({[&] {
                    for (const xcb_keycode_t code : held)
                        server_.setKey(code, true);
                    server_.setKey(key->code, true);
                },
                [&] {
                    server_.setKey(key->code, false);
                    for (const xcb_keycode_t code : held)
                        server_.setKey(code, false);
                }});
    return true;
}

} // namespace zb::test
