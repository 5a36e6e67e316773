#pragma once

#include "desktop/desktop_screen.h"
#include "screen/script/spots.h"
#include "script/hands.h"

#include <QString>

namespace zb::test {

/// Acts on the real windows: keys and the mouse are events of the widget that shows the control. Actions that
/// the user could not do are refused with the texts of the stores.
class ScreenHands final : public Hands {
public:
    ScreenHands(ScriptedProgram& program, DesktopScreen& screen) : program_(program), screen_(screen) {}

    Refusal click(const Target& target) override;
    Refusal controlClick(const Target& target) override;
    Refusal rightClick(const Target& target) override;
    Refusal doubleClick(const Target& target) override;
    Refusal dismiss() override;
    Refusal focus(Control& control) override;
    Refusal activate(Window& window) override;
    Refusal close(Window& window) override;
    Refusal type(Control& control, std::string_view text) override;
    Refusal key(Control& control, KeyEvent key) override;
    Refusal paste(Control& control, std::string_view text) override;
    Refusal choose(Control& control, std::string_view text) override;
    Refusal drag(const Target& from, const Target& to) override;
    Refusal drop(const DragData& data, const Target& to) override;

private:
    template<typename Act>
    Refusal act(const Target& target, Act act);
    void press(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    void release(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    void clickSpot(const Spot& spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    Refusal clickEntry(const Target& target);
    void giveFocus(Control& control);
    void sendKey(QWidget& widget, KeyEvent key);
    void dropOn(const DragData& data, const Target& to);
    UserHands& hands() { return screen_.binding().hands; }
    void settle();

    ScriptedProgram& program_;
    DesktopScreen& screen_;
};

} // namespace zb::test
