#pragma once

#include "controls/window.h"

namespace zb {

/// The splitter between the tree column and the pane column. It knows where its gap lies, in the window's
/// units, and turns the mouse's moves into widths of the tree column.
class Splitter {
public:
    /// The tree column never gets narrower, nor wider than a 16-bit position can say.
    static constexpr int kNarrowest = 500;
    static constexpr int kWidest = 32767;
    /// The lowest part of the gap, over which the splitter does not answer.
    static constexpr int kDeadHeight = 300;

    /// Where the tree column stands, as the window lays it out; the gap begins at its right edge.
    struct Column {
        int left = 0;
        int top = 0;
        int height = 0;
        int gap = 0;
    };

    explicit Splitter(int width) : width_(width) {}

    int width() const { return width_; }
    /// False, and the old width stands, when the width is out of bounds.
    bool setWidth(int width);
    void place(const Column& column) { column_ = column; }

    bool inZone(int x, int y) const;
    bool dragging() const { return dragging_; }

    /// The pointer to show. With the left button down a drag moves the gap on the way.
    Pointer mouseMove(int x, int y, bool leftButtonDown);
    void leftButtonDown(int x, int y);
    /// Any button ends the drag.
    void buttonUp() { dragging_ = false; }

private:
    int width_;
    Column column_;
    bool dragging_ = false;
    int pressedAt_ = 0;
    int widthThen_ = 0;
};

} // namespace zb
