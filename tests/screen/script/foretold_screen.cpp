#include "screen/script/foretold_screen.h"

#include "desktop/message_boxes.h"
#include "desktop/qt_text.h"
#include "script/script_failure.h"

#include <QAbstractButton>
#include <QMessageBox>

#include <utility>

namespace zb::test {

void ForetoldScreen::throwKept() {
    if (const auto kept = std::exchange(kept_, nullptr))
        std::rethrow_exception(kept);
}

Answer ForetoldScreen::showBox(const Box& box) {
    return keep(Answer::Cancel, [&] {
        const Answer answer = foretold_.showBox(box);
        // The box comes up as the user would see it, and the answer is the press of a button.
        const auto shown = makeBox(box, shown_.mainWindow());
        shown->show();
        const QList<QAbstractButton*> buttons = shown->buttons();
        for (QAbstractButton* button : buttons) {
            if (answerOf(*shown, shown->standardButton(button)) != answer)
                continue;
            button->click();
            return answerOf(*shown, shown->result());
        }
        throw ScriptFailure("a button for the answer in the box", box.text);
    });
}

std::string ForetoldScreen::pickFile(const FileDialog& dialog) {
    return keep(std::string(), [&] { return foretold_.pickFile(dialog); });
}

void ForetoldScreen::runModal(Window& window) {
    keep(0, [&] {
        foretold_.runModal(window);
        return 0;
    });
}

} // namespace zb::test
