#pragma once

#include "controls/window.h"

namespace zb {

/// The splitter between the tree column and the pane column. It knows the position of its gap, in the
/// window's units, and converts mouse moves to widths of the tree column.
class Splitter {
public:
    /// The tree column is never narrower, nor wider than a 16-bit position can express.
    static constexpr int kNarrowest = 500;
    static constexpr int kWidest = 32767;
    /// The lowest part of the gap, where the splitter does not react.
    static constexpr int kDeadHeight = 300;

    /// The position of the tree column in the window; the gap begins at its right edge.
    struct Column {
        int left = 0;
        int top = 0;
        int height = 0;
        int gap = 0;
    };

    explicit Splitter(int width) : width_(width) {}

    int width() const { return width_; }
    /// False, and the width is unchanged, when the width is out of bounds.
    bool setWidth(int width);
    void place(const Column& column) { column_ = column; }

    bool inZone(int x, int y) const;
    bool dragging() const { return dragging_; }

    /// Returns the pointer to show. With the left button pressed the move drags the gap.
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
