#include "screen/support/program_on_screen.h"

#include <QCoreApplication>

namespace zb::test {

ProgramOnScreen::ProgramOnScreen(const std::string& applicationFolder)
    : application(screen, settings, files, generator, {applicationFolder, {}}) {
    screen.attach(application.desktop);
}

ProgramOnScreen::~ProgramOnScreen() {
    screen.detach();
}

QWidget& ProgramOnScreen::form(const Window& window) const {
    return screen.binderOf(window)->form();
}

void ProgramOnScreen::settle() {
    for (int round = 0; round < 5; ++round)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    screen.flush();
}

} // namespace zb::test
