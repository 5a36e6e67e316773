#include "desktop/forms/paired_scrolling.h"

#include "desktop/models/node_tree_view.h"

#include <QScrollBar>

namespace zb {

PairedScrolling::PairedScrolling(QWidget& form) : QObject(&form) {
    QList<NodeTreeView*> views;
    for (QAbstractItemView* view : form.findChildren<QAbstractItemView*>()) {
        if (auto* tree = dynamic_cast<NodeTreeView*>(view))
            views << tree;
    }
    for (NodeTreeView* view : views) {
        for (const auto bar :
             {&QAbstractScrollArea::verticalScrollBar, &QAbstractScrollArea::horizontalScrollBar}) {
            connect((view->*bar)(), &QScrollBar::valueChanged, this, [this, view, views, bar](int value) {
                if (following_)
                    return;
                following_ = true;
                for (NodeTreeView* other : views) {
                    if (other != view)
                        (other->*bar)()->setValue(value);
                }
                following_ = false;
            });
        }
    }
}

} // namespace zb
