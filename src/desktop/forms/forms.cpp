#include "desktop/forms/forms.h"

#include "desktop/forms/editor_splitter.h"
#include "editor/frm_sec_editor.h"

#include "ui_frmAbout.h"
#include "ui_frmFind.h"
#include "ui_frmMain.h"
#include "ui_frmNewProject.h"
#include "ui_frmOption.h"
#include "ui_frmResult.h"
#include "ui_frmSECSEditor.h"
#include "ui_frmTRModeler.h"

#include <QMainWindow>

#include <array>

namespace zb {

namespace {

template<typename Layout, typename Root = QWidget>
std::unique_ptr<QWidget> make() {
    auto form = std::make_unique<Root>();
    Layout().setupUi(form.get());
    return form;
}

struct Form {
    const char* window;
    std::unique_ptr<QWidget> (*make)();
};

constexpr std::array kForms{
    Form{"frmMain", &make<Ui::frmMain, QMainWindow>}, Form{"frmSECSEditor", &make<Ui::frmSECSEditor>},
    Form{"frmTRModeler", &make<Ui::frmTRModeler>},    Form{"frmFind", &make<Ui::frmFind>},
    Form{"frmNewProject", &make<Ui::frmNewProject>},  Form{"frmOption", &make<Ui::frmOption>},
    Form{"frmResult", &make<Ui::frmResult>},          Form{"frmAbout", &make<Ui::frmAbout>},
};

// Labels name their fields to screen readers by being their buddies; fields without one have their tool tip.
void nameForReaders(QWidget& form) {
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        if (widget->accessibleName().isEmpty() && !widget->toolTip().isEmpty())
            widget->setAccessibleName(widget->toolTip());
    }
}

} // namespace

std::unique_ptr<QWidget> makeForm(const std::string& window) {
    for (const Form& form : kForms) {
        if (form.window == window)
            return form.make();
    }
    return std::make_unique<QWidget>();
}

void finishForm(Window& window, QWidget& form) {
    nameForReaders(form);
    if (auto* hidden = form.findChild<QWidget*>(QStringLiteral("hiddenParts")))
        hidden->hide();
    if (auto* editor = dynamic_cast<frmSECSEditor*>(&window))
        new EditorSplitter(*editor, form); // the form owns it
}

} // namespace zb
