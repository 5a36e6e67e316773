#include "editor/splitter.h"

namespace zb {

bool Splitter::setWidth(int width) {
    if (width < kNarrowest || width > kWidest)
        return false;
    width_ = width;
    return true;
}

bool Splitter::inZone(int x, int y) const {
    const int edge = column_.left + width_;
    return x > edge && x < edge + column_.gap && y >= column_.top &&
           y < column_.top + column_.height - kDeadHeight;
}

Pointer Splitter::mouseMove(int x, int y, bool leftButtonDown) {
    if (dragging_ && leftButtonDown) {
        setWidth(widthThen_ + (x - pressedAt_));
        return Pointer::Sizing;
    }
    return inZone(x, y) ? Pointer::Sizing : Pointer::Default;
}

void Splitter::leftButtonDown(int x, int y) {
    if (!inZone(x, y))
        return;
    dragging_ = true;
    pressedAt_ = x;
    widthThen_ = width_;
}

} // namespace zb
