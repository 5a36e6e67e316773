#pragma once

#include "screen/support/program_on_screen.h"

#include <QString>

#include <functional>

class QWidget;

namespace zb::test {

/// Takes pictures of windows into a folder, each named after the window and a suffix for the style.
class Photographer {
public:
    Photographer(ProgramOnScreen& program, QString folder, QString suffix)
        : program_(program), folder_(std::move(folder)), suffix_(std::move(suffix)) {}

    void take(QWidget& widget, const QString& name);
    /// Shows the window for the picture and hides it again.
    void takeDialog(Window& window, const QString& name);
    /// Takes the picture after a command has shown the window and `fill` has filled it in, and hides it, so
    /// that the command continues. A window that is not shown is left out.
    void takeNext(Window& window, const QString& name, std::function<void()> fill);

    bool failed() const { return failed_; }

private:
    ProgramOnScreen& program_;
    QString folder_;
    QString suffix_;
    bool failed_ = false;
};

} // namespace zb::test
