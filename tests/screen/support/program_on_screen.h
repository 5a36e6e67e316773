#pragma once

#include "desktop/desktop_screen.h"
#include "outputs/generator.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "shell/application.h"

#include <string>

namespace zb::test {

class FixedGenerator final : public Generator {
public:
    std::string answer = "done";
    std::string generate(const std::string& /*projectFile*/) override { return answer; }
};

/// A separate program in its real windows, with settings that are not stored in a file.
struct ProgramOnScreen {
    explicit ProgramOnScreen(const std::string& applicationFolder);
    ~ProgramOnScreen();

    /// The form that shows a window, and one of its widgets by the name of its store.
    QWidget& form(const Window& window) const;
    template<typename Widget>
    Widget& widget(const Window& window, const char* name) const {
        return *form(window).findChild<Widget*>(QLatin1String(name));
    }
    /// Processes everything that waits for the event loop.
    void settle();

    DesktopScreen screen;
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    FixedGenerator generator;
    Application application;
};

} // namespace zb::test
