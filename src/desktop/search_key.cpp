#include "desktop/search_key.h"

#include "controls/desktop.h"
#include "desktop/binders/binder.h"
#include "editor/frm_find.h"

#include <QMainWindow>
#include <QShortcut>

namespace zb {

void addSearchKey(Window& window, QWidget& form, QMainWindow& main, Binding& binding) {
    auto* find = dynamic_cast<frmFind*>(&window);
    if (find == nullptr)
        return;
    const auto search = [&binding, find] {
        return binding.desktop.modalWindow() == nullptr ? find->findAgain() : void();
    };
    binding.searchAgain = search;
    for (QWidget* place : {static_cast<QWidget*>(&main), &form})
        QObject::connect(new QShortcut(Qt::Key_F3, place), &QShortcut::activated, &form, search);
}

} // namespace zb
