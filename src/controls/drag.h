#pragma once

#include <string>

namespace zb {

class Control;

/// What a drag carries: plain text or a picture, and where it came from (null: from outside the program).
struct DragData {
    enum class Form { Text, Picture };

    std::string text;
    Control* source = nullptr;
    Form form = Form::Text;
};

} // namespace zb
