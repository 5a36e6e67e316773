#pragma once

#include "desktop/binders/binder.h"

#include <map>
#include <vector>

class QLabel;
class QStatusBar;
class QToolBar;
class QToolButton;

namespace zb {

class StatusBar;
class Toolbar;
class ToolbarButton;

/// Buttons of a toolbar store, with the pictures of their Keys: in a tool bar of the main window, or in rows
/// within a pane with as many buttons as the widget's property "buttonsPerRow".
class ToolbarBinder final : public Binder {
public:
    ToolbarBinder(Toolbar& toolbar, QWidget& widget, Binding& binding);

    /// Null for a button of another toolbar.
    QToolButton* buttonOf(const ToolbarButton& button) const;

private:
    void show(Change change) override;
    void makeButtons();
    QToolButton& makeButton(ToolbarButton& button);
    QToolButton& makeArrow(ToolbarButton& button, const QToolButton& shown);
    void openMenuOf(ToolbarButton& button);
    void place(QToolButton& shown, int position);
    void showButtons();
    void showTabStop();
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool moveByKey(std::size_t from, int key);
    bool isInPane() const;
    int buttonsPerRow() const;

    Toolbar& toolbar_;
    std::vector<QToolButton*> buttons_;
};

class StatusBarBinder final : public Binder {
public:
    StatusBarBinder(StatusBar& store, QStatusBar& bar, Binding& binding);

    const QLabel* panel(std::string_view key) const;

private:
    void show(Change change) override;

    StatusBar& store_;
    QStatusBar& bar_;
    std::vector<QLabel*> panels_;
};

} // namespace zb
