#pragma once

#include "desktop/desktop_screen.h"
#include "screen/x11/display.h"
#include "script/hands.h"

#include <functional>
#include <optional>

class QMenu;
class QMenuBar;
class QTreeView;

namespace zb::test {

/// Acts on the windows of a display by its mouse, its keyboard and its clipboard alone. What cannot be done
/// so is refused.
class DisplayHands final : public Hands {
public:
    DisplayHands(ScriptedProgram& program, DesktopScreen& screen, Display& display)
        : program_(program), screen_(screen), display_(display) {}

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
    Refusal act(const Target& target, const std::function<Refusal()>& act);
    void closePopupBefore(const Target& target);
    Spot spotInSight(const Target& target);
    Refusal clickTarget(const Target& target, int mostJitter);
    Refusal clickEntry(const Target& target);
    Refusal clickInMenu(QMenu& menu, QAction& action);
    Refusal openMenuOf(const MenuEntry& entry);
    const MenuEntry& counterpart(const MenuEntry& entry) const;
    Refusal giveFocus(Control& control);
    bool hasKeyboard(Control& control) const;
    Refusal whyNoEnter(Control& control);
    Refusal chooseInFieldMenu(Control& field, const char* entry);
    Refusal chooseRow(Control& control, int row);
    Refusal chooseFolder(Control& control, std::string_view path);
    std::optional<Spot> spotInSelection(Control& field) const;
    UserHands& hands() { return screen_.binding().hands; }
    void settle();

    ScriptedProgram& program_;
    DesktopScreen& screen_;
    Display& display_;
};

} // namespace zb::test
