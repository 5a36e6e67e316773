// What the screen hands to the system: programs for files, and the clock.

#include "desktop/desktop_screen.h"
#include "desktop/qt_text.h"
#include "desktop/system_information.h"

#include <QDesktopServices>
#include <QTimer>
#include <QUrl>

namespace zb {

bool DesktopScreen::showSystemInformation() {
    return startSystemInformation();
}

bool DesktopScreen::openFile(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(path)));
}

void DesktopScreen::callLater(std::chrono::milliseconds delay, std::function<void()> function) {
    if (timers_ != nullptr)
        QTimer::singleShot(delay, timers_.get(), std::move(function));
}

} // namespace zb
