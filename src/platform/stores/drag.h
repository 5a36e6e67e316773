#pragma once

#include <string>

namespace zb {

class Control;

/// What a drag carries: plain text and where it came from (null: from outside the program).
struct DragData {
    std::string text;
    Control* source = nullptr;
};

} // namespace zb
