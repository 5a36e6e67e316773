#pragma once

#include <QObject>

#include <functional>

class QMainWindow;
class QSplitter;
class QWidget;

namespace zb {

class LayoutMemory;
class Window;
struct Binding;

/// The place of the workbench in the main window: below the documents, as high as its strip, and higher while
/// a pane is open. Also its keys: Alt and a digit open and close a pane, F6 goes to the workbench and back,
/// Escape leaves it.
class WorkbenchPlace final : public QObject {
public:
    /// `returnFocus` gives the keyboard to the control that has the focus in the active window.
    WorkbenchPlace(Window& workbench, QWidget& form, QMainWindow& main, Binding& binding,
                   LayoutMemory& layout, std::function<void()> returnFocus);
    /// Remembers the height of an open pane.
    ~WorkbenchPlace() override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void letDocumentsShrink();
    void addKeys(QMainWindow& main);
    void open(QWidget& pane);
    void close(const QWidget& pane);
    void toggle(const QString& button);
    bool focusPane();
    void turn();
    void leave();
    bool hasKeyboard() const;

    Window& workbench_;
    QWidget& form_;
    QWidget& column_; // around the panes
    QWidget& strip_;
    QSplitter& splitter_;
    Binding& binding_;
    LayoutMemory& layout_;
    std::function<void()> returnFocus_;
    const QWidget* opened_ = nullptr;
};

} // namespace zb
