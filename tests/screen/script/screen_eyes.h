#pragma once

#include "desktop/desktop_screen.h"
#include "script/eyes.h"

#include <memory>

namespace zb::test {

/// Reads what the widgets show, and from the stores what no widget shows.
class ScreenEyes final : public Eyes {
public:
    ScreenEyes(ScriptedProgram& program, DesktopScreen& screen) : stores_(program), screen_(screen) {}

    Properties properties(const Place& place) override;
    std::optional<PropertyValue> property(const Place& place, std::string_view name) override;
    std::optional<std::vector<std::string>> treeLines(const Place& place) override;
    std::optional<std::vector<std::string>> rowLines(const Place& place) override;

private:
    void settle();
    std::optional<PropertyValue> shown(const Place& place, std::string_view name);
    std::optional<PropertyValue> shownByWindow(const Place& place, std::string_view name);
    std::optional<PropertyValue> shownByControl(const Place& place, std::string_view name);
    std::optional<PropertyValue> shownByEntry(const Place& place, std::string_view name);
    std::optional<PropertyValue> shownByButton(const Place& place, std::string_view name);
    std::optional<PropertyValue> shownByNode(const Place& place, std::string_view name);
    std::optional<PropertyValue> shownByRow(const Place& place, std::string_view name);
    std::optional<PropertyValue> shownByPanel(const Place& place, std::string_view name);
    Binder* binderOf(const Place& place) const;

    StoreEyes stores_;
    DesktopScreen& screen_;
};

} // namespace zb::test
