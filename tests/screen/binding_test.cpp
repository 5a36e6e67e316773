#include "desktop/qt_text.h"
#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QAction>
#include <QMenu>

#include <set>

namespace zb::test {
namespace {

using ::testing::IsEmpty;

// Names in the forms of widgets that only contain others.
bool isPlace(const std::string& name) {
    static const std::set<std::string> kPlaces{"centralWidget", "mdiArea", "menuBar", "hiddenParts"};
    return kPlaces.contains(name) || name.ends_with("Splitter") || name.ends_with("Column");
}

bool isOurs(const QWidget& widget) {
    const std::string name = fromQt(widget.objectName());
    return !name.empty() && !name.starts_with("qt_") && !isPlace(name);
}

std::set<std::string> namesOf(const Window& window) {
    std::set<std::string> names;
    for (const Control* control : window.controls())
        names.insert(fromQt(widgetName(control->name())));
    return names;
}

// Toolbars and status bars create widgets for their own members, named after them.
bool isMember(const std::string& name, const std::set<std::string>& stores) {
    const auto end = name.find('_');
    return end != std::string::npos && stores.contains(name.substr(0, end));
}

struct WindowForms : ::testing::Test {
    ProgramOnScreen program{"/"};
};

TEST_F(WindowForms, EveryStoreHasItsWidget) {
    for (const Window* window : program.application.desktop.windows()) {
        WindowBinder* binder = program.screen.binderOf(*window);
        ASSERT_NE(binder, nullptr) << window->name();
        EXPECT_THAT(binder->unbound(), IsEmpty()) << window->name();
        for (const Control* control : window->controls()) {
            const bool shown =
                (control->kind() != Control::Kind::MenuEntry || binder->menus().actionOf(*control)) &&
                (control->kind() != Control::Kind::PopupMenu || binder->menus().menuOf(*control));
            EXPECT_TRUE(shown) << window->name() << '.' << control->name();
        }
    }
}

TEST_F(WindowForms, EveryNamedWidgetHasItsStore) {
    std::vector<std::string> strays;
    for (const Window* window : program.application.desktop.windows()) {
        std::set<std::string> stores = namesOf(*window);
        // The filter of the workbench is shown above the trees of the modeler.
        if (window->name() == "frmTRModeler")
            stores.insert({"txtModelFilter", "lblModelFilter"});
        if (window->name() == "frmMain")
            continue; // contains the documents; its own parts are checked below
        for (const QWidget* widget : program.form(*window).findChildren<QWidget*>()) {
            const std::string name = fromQt(widget->objectName());
            if (isOurs(*widget) && !stores.contains(name) && !isMember(name, stores))
                strays.push_back(window->name() + "." + name);
        }
    }
    EXPECT_THAT(strays, IsEmpty());
}

TEST_F(WindowForms, EveryPartOfTheMainWindowHasItsStore) {
    const std::set<std::string> stores = namesOf(program.application.frmMain);
    std::vector<std::string> strays;
    for (const QWidget* widget : program.form(program.application.frmMain)
                                     .findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const std::string name = fromQt(widget->objectName());
        if (isOurs(*widget) && !widget->isWindow() && !stores.contains(name))
            strays.push_back(name);
    }
    EXPECT_THAT(strays, IsEmpty());
}

TEST_F(WindowForms, EveryToolbarButtonHasItsPicture) {
    for (const Window* window : program.application.desktop.windows()) {
        for (Control* control : window->controls()) {
            if (control->kind() != Control::Kind::Toolbar)
                continue;
            for (const ToolbarButton& button : static_cast<Toolbar*>(control)->buttons())
                EXPECT_TRUE(Pictures::has(button.picture().empty() ? button.key() : button.picture()))
                    << control->name() << '[' << button.key() << ']';
        }
    }
}

TEST_F(WindowForms, EveryNodeAndRowOfTheModelHasItsPicture) {
    for (const char* name : {"TRMsg", "RcvTRMsg", "SndTRMsg", "BothTRMsg", "DefaultTRItem", "UserTRItem",
                             "SeqName", "SeqItem", "Statement", "if", "elif", "else", "ItemValue",
                             "Equal_Pressed", "NotEqual_Pressed", "and_Pressed", "or_Pressed"})
        EXPECT_TRUE(Pictures::has(name)) << name;
}

TEST_F(WindowForms, EveryFieldHasANameForScreenReaders) {
    std::vector<std::string> nameless;
    for (const Window* window : program.application.desktop.windows()) {
        for (const Control* control : window->controls()) {
            const Binder* binder = program.screen.binderOf(*window)->binderOf(*control);
            if (binder == nullptr || !control->takesFocus() || !control->visible())
                continue;
            const QWidget& widget = binder->widget();
            QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&binder->widget());
            // Screen readers take the caption of a button, and the buddy label of a field.
            const bool named = reader != nullptr && !reader->text(QAccessible::Name).isEmpty();
            if (!named && widget.accessibleName().isEmpty())
                nameless.push_back(window->name() + "." + control->name());
        }
    }
    EXPECT_THAT(nameless, IsEmpty());
}

} // namespace
} // namespace zb::test
