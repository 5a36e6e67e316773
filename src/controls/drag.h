#pragma once

#include <string>

namespace zb {

class Control;

/// The data of a drag: plain text or a picture, and its source (null: from outside the program).
struct DragData {
    enum class Form { Text, Picture };

    std::string text;
    Control* source = nullptr;
    Form form = Form::Text;
    bool copied = false; ///< taken by the copy key, so that it can be put down several times
};

} // namespace zb
