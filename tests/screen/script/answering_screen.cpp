#include "screen/script/answering_screen.h"

#include "desktop/message_boxes.h"
#include "desktop/qt_text.h"
#include "script/script_failure.h"

#include <QAbstractButton>
#include <QMessageBox>

#include <utility>

namespace zb::test {

void AnsweringScreen::throwKept() {
    if (const auto kept = std::exchange(kept_, nullptr))
        std::rethrow_exception(kept);
}

Answer AnsweringScreen::showBox(const Box& box) {
    return keep(Answer::Cancel, [&] {
        const Answer answer = prepared_.showBox(box);
        // The box is shown as to a user, and the answer is the press of a button.
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

std::string AnsweringScreen::pickFile(const FileDialog& dialog) {
    return keep(std::string(), [&] { return prepared_.pickFile(dialog); });
}

void AnsweringScreen::runModal(Window& window) {
    keep(0, [&] {
        prepared_.runModal(window);
        return 0;
    });
}

} // namespace zb::test
