#include "console/console_screen.h"

#include "platform/text.h"

namespace zb {

Answer ConsoleScreen::showBox(const Box& box) {
    lastText_ = replaceAll(replaceAll(box.text, "\r", ""), "\n", " ");
    return box.buttons == BoxButtons::OK ? Answer::OK : Answer::No;
}

} // namespace zb
