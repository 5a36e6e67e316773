#include "desktop/window_binder.h"

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "desktop/binders/bar_binders.h"
#include "desktop/binders/combo_binder.h"
#include "desktop/binders/folder_field_binder.h"
#include "desktop/binders/list_binder.h"
#include "desktop/binders/simple_binders.h"
#include "desktop/binders/text_edit_binder.h"
#include "desktop/binders/text_field_binder.h"
#include "desktop/binders/text_view_binder.h"
#include "desktop/binders/tree_binder.h"
#include "desktop/key_codes.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTreeView>

namespace zb {

namespace {

using Kind = Control::Kind;

template<typename Made, typename Store, typename Shown>
std::unique_ptr<Binder> tie(Control& control, QWidget& widget, Binding& binding) {
    auto* shown = dynamic_cast<Shown*>(&widget);
    return shown == nullptr ? nullptr : std::make_unique<Made>(static_cast<Store&>(control), *shown, binding);
}

bool isInMenus(const Control& control) {
    return control.kind() == Kind::MenuEntry || control.kind() == Kind::PopupMenu;
}

} // namespace

WindowBinder::WindowBinder(Window& window, QWidget& form, Binding& binding)
    : window_(window), form_(form), binding_(binding), menus_(window, form, binding) {
    form_.setObjectName(toQt(window_.name()));
    form_.installEventFilter(this);
    bindControls();
    window_.bell = [this](Change) { showState(); };
    showState();
}

WindowBinder::~WindowBinder() {
    if (!abandoned_)
        window_.bell = nullptr;
}

void WindowBinder::abandon() {
    abandoned_ = true;
    menus_.abandon();
    for (const auto& [control, binder] : binders_)
        binder->abandon();
}

void WindowBinder::bindControls() {
    for (Control* control : window_.controls()) {
        if (isInMenus(*control))
            continue;
        auto* widget = form_.findChild<QWidget*>(widgetName(control->name()));
        std::unique_ptr<Binder> binder = widget == nullptr ? nullptr : bind(*control, *widget);
        if (binder == nullptr)
            unbound_.push_back(control->name());
        else
            binders_[control] = std::move(binder);
    }
}

std::unique_ptr<Binder> WindowBinder::bind(Control& control, QWidget& widget) {
    switch (control.kind()) {
    case Kind::TextField:
        if (const auto& field = static_cast<TextField&>(control); field.lines() == TextField::Lines::Many)
            return field.readOnly()
                       ? tie<TextViewBinder, TextField, QPlainTextEdit>(control, widget, binding_)
                       : tie<TextEditBinder, TextField, QPlainTextEdit>(control, widget, binding_);
        return tie<TextFieldBinder, TextField, QLineEdit>(control, widget, binding_);
    case Kind::Label:
        return tie<LabelBinder, Control, QLabel>(control, widget, binding_);
    case Kind::CheckBox:
    case Kind::Option:
    case Kind::Button:
        return tie<ButtonBinder, Control, QAbstractButton>(control, widget, binding_);
    case Kind::Pane:
        return tie<PaneBinder, Control, QWidget>(control, widget, binding_);
    case Kind::Toolbar:
        return tie<ToolbarBinder, Toolbar, QWidget>(control, widget, binding_);
    case Kind::StatusBar:
        return tie<StatusBarBinder, StatusBar, QStatusBar>(control, widget, binding_);
    case Kind::Combo:
        return tie<ComboBinder, Combo, StoreComboBox>(control, widget, binding_);
    case Kind::FolderField:
        return tie<FolderFieldBinder, FolderField, QTreeView>(control, widget, binding_);
    case Kind::List:
        return tie<ListBinder, List, QTreeView>(control, widget, binding_);
    case Kind::Tree:
        return tie<TreeBinder, Tree, NodeTreeView>(control, widget, binding_);
    case Kind::MenuEntry:
    case Kind::PopupMenu:
        break;
    }
    return nullptr;
}

Binder* WindowBinder::binderOf(const Control& control) const {
    const auto found = binders_.find(&control);
    return found == binders_.end() ? nullptr : found->second.get();
}

bool WindowBinder::followFocus() const {
    Binder* focused = window_.focusControl() == nullptr ? nullptr : binderOf(*window_.focusControl());
    if (focused != nullptr)
        focused->followFocus();
    return focused != nullptr;
}

void WindowBinder::flush() {
    for (const auto& [control, binder] : binders_)
        binder->flush();
}

void WindowBinder::showState() {
    const std::string& note = window_.titleNote();
    form_.setWindowTitle(shownTitle(note.empty() ? window_.caption() : note + " - " + window_.caption()));
    if (onChange)
        onChange();
}

// A key that reached no control: the focus is on a part of the window that has no store.
bool WindowBinder::runCommandOf(const QKeyEvent& event) {
    const auto key = meaningOf(event).key;
    return key && binding_.hands.runCommandKey(window_, *key);
}

bool WindowBinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &form_)
        return false;
    if (event->type() == QEvent::Close) {
        // The window itself decides whether it closes.
        event->ignore();
        binding_.hands.close(window_);
        return true;
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        Button* cancel = window_.cancelButton();
        if (cancel != nullptr)
            binding_.hands.click(Target::whole(*cancel));
        return cancel != nullptr;
    }
    return event->type() == QEvent::KeyPress && runCommandOf(static_cast<QKeyEvent&>(*event));
}

} // namespace zb
