#include "screen/x11/display_foretold.h"

#include "controls/window.h"
#include "desktop/message_boxes.h"
#include "script/script_failure.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace zb::test {

void DisplayForetold::pressAnswer(Answer answer) {
    display_.releaseButtons();
    auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (shown == nullptr)
        throw ScriptFailure("a box on the display", "none");
    for (QAbstractButton* button : shown->buttons()) {
        if (answerOf(*shown, shown->standardButton(button)) == answer) {
            display_.click({button, button->rect().center()});
            return;
        }
    }
    shown->reject();
    throw ScriptFailure("a button for the answer in the box", shown->text().toStdString());
}

Answer DisplayForetold::showBox(const Box& box) {
    return keep(Answer::Cancel, [&] {
        const Answer answer = prepared().showBox(box);
        const DisplaySteps::Held held(display_.steps());
        QTimer::singleShot(0, &display_.steps(), [&] {
            keep(0, [&] {
                pressAnswer(answer);
                return 0;
            });
        });
        return shown().showBox(box);
    });
}

// The block of the script runs within the window's event loop, which ends when the window is hidden.
void DisplayForetold::runModal(Window& window) {
    const DisplaySteps::Held held(display_.steps());
    QTimer::singleShot(0, &display_.steps(), [&] {
        keep(0, [&] {
            display_.releaseButtons();
            prepared().runModal(window);
            return 0;
        });
        if (window.visible())
            window.hide();
    });
    shown().runModal(window);
}

} // namespace zb::test
