#include "controls/desktop.h"
#include "desktop/binders/dragging.h"
#include "desktop/models/node_tree_view.h"
#include "modeler/model_nodes.h"
#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QImage>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QMouseEvent>
#include <QSplitter>
#include <QSplitterHandle>
#include <QTreeView>

namespace zb::test {
namespace {

struct Mouse : ::testing::Test {
    Mouse() {
        program.application.start("");
        program.application.showEditor();
        program.settle();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }
    frmTRModeler& modeler() { return program.application.frmTRModeler; }

    void send(QWidget& widget, QEvent::Type type, const QPoint& place, Qt::MouseButtons buttons) {
        QMouseEvent event(type, place, widget.mapToGlobal(place),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(&widget, &event);
    }

    /// Press, a move of so many pixels with the button down, release.
    void click(QWidget& widget, const QPoint& place, int jitter) {
        send(widget, QEvent::MouseButtonPress, place, Qt::LeftButton);
        const QPoint end = place + QPoint(jitter, 0);
        if (jitter > 0)
            send(widget, QEvent::MouseMove, end, Qt::LeftButton);
        send(widget, QEvent::MouseButtonRelease, end, Qt::NoButton);
    }

    QPoint placeOf(const NodeTreeView& view, const Node& node) {
        const auto& model = static_cast<const NodeTreeModel&>(*view.model());
        return view.visualRect(model.indexOf(&node)).center();
    }

    ProgramOnScreen program{"/"};
};

TEST_F(Mouse, APressThatShakesWithinItsNodeIsAClick) {
    program.application.showModeler();
    int clicks = 0;
    for (Tree* tree : {&modeler().tvwRcvTRMsg, &modeler().tvwSndTRMsg}) {
        Node& node = tree->nodes().add(nullptr, Relation::Last, "message");
        tree->onNodeClick = [&clicks](Node&) { ++clicks; };
        auto& view = program.widget<NodeTreeView>(modeler(), tree->name().c_str());
        program.settle();
        for (const int jitter : {0, 3, 12}) {
            clicks = 0;
            click(*view.viewport(), placeOf(view, node), jitter);
            EXPECT_EQ(clicks, 1) << tree->name() << " moved " << jitter << " px";
            EXPECT_EQ(tree->nodes().selected(), &node);
        }
    }
}

TEST_F(Mouse, APressThatMovesFarWithoutADragIsAClick) {
    Tree& tree = editor().tvwEdit;
    Node& node = tree.nodes().add(nullptr, Relation::Last, "Message: S1 F1 W H->E");
    int clicks = 0;
    tree.onNodeClick = [&clicks](Node&) { ++clicks; };
    auto& view = program.widget<NodeTreeView>(editor(), "tvwEdit");
    program.settle();
    click(*view.viewport(), placeOf(view, node), 60);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mouse, APressThatShakesWithinItsRowIsAClick) {
    List& list = editor().lvwSource;
    ListRow& row = list.add("S1F1");
    int clicks = 0;
    list.onRowClick = [&clicks](ListRow&) { ++clicks; };
    program.settle();
    auto& view = program.widget<QTreeView>(editor(), "lvwSource");
    const int position = list.positionOf(&row) - 1;
    view.scrollTo(view.model()->index(position, 0));
    for (const int jitter : {0, 3, 12}) {
        clicks = 0;
        click(*view.viewport(), view.visualRect(view.model()->index(position, 0)).center(), jitter);
        EXPECT_EQ(clicks, 1) << "moved " << jitter << " px";
    }
}

TEST_F(Mouse, APressOnABoxOfTheModelerSelectsTheNodeAndClearsItsMark) {
    program.application.showModeler();
    Tree& tree = modeler().tvwRcvTRMsg;
    Node& root = *tree.nodes().firstRoot();
    Node& message = tree.nodes().add(&root, Relation::Child, "message");
    tree.nodes().add(&message, Relation::Child, "item");
    root.setExpanded(true);
    message.setExpanded(false);
    message.setForeColor(kErrorForeColor);
    auto& view = program.widget<NodeTreeView>(modeler(), "tvwRcvTRMsg");
    program.settle();
    QPoint box = placeOf(view, message);
    while (box.x() > 0 && !view.isOnBox(message, box))
        box.rx() -= 1;
    ASSERT_TRUE(view.isOnBox(message, box));
    click(*view.viewport(), box, 0);
    EXPECT_EQ(tree.nodes().selected(), &message);
    EXPECT_EQ(message.foreColor(), OptionalColor(kUnmarkedColor));
    EXPECT_TRUE(message.expanded());
}

TEST_F(Mouse, TheGapOfTheTreeColumnMovesWhereverItIsSeen) {
    program.screen.mainWindow()->resize(1200, 700);
    program.settle();
    auto& splitter = program.widget<QSplitter>(editor(), "editorSplitter");
    QSplitterHandle& handle = *splitter.handle(2);
    const auto drag = [&](int by, int from) {
        const QPoint place(from, 40);
        send(handle, QEvent::MouseButtonPress, place, Qt::LeftButton);
        // The handle moves along, so the way is measured from where it was.
        const QPointF target = splitter.mapFromGlobal(handle.mapToGlobal(place)) + QPoint(by, 0);
        const QPoint now = handle.mapFromGlobal(splitter.mapToGlobal(target)).toPoint();
        send(handle, QEvent::MouseMove, now, Qt::LeftButton);
        send(handle, QEvent::MouseButtonRelease, now, Qt::NoButton);
        program.settle();
    };
    const auto seen = [&] { return splitter.widget(1)->width(); };
    drag(3000, 1);
    for (int pixel = 0; pixel < handle.width(); ++pixel) {
        const int before = seen();
        drag(-20, pixel);
        EXPECT_EQ(seen(), before - 20) << "pressed on pixel " << pixel << " of the gap";
    }
    // The handle of the library takes room from the tree.
    const int tree = seen();
    QSplitterHandle& first = *splitter.handle(1);
    send(first, QEvent::MouseButtonPress, {1, 40}, Qt::LeftButton);
    send(first, QEvent::MouseMove, {41, 40}, Qt::LeftButton);
    send(first, QEvent::MouseButtonRelease, {1, 40}, Qt::NoButton);
    program.settle();
    const int narrower = seen();
    EXPECT_LT(narrower, tree);
    EXPECT_EQ(editor().treeWidth() / 9, narrower);
    drag(-10, 1);
    EXPECT_EQ(seen(), narrower - 10);
}

TEST_F(Mouse, TheGapOfTheTreeColumnMovesInANarrowWindow) {
    program.screen.mainWindow()->resize(800, 600);
    program.settle();
    auto& splitter = program.widget<QSplitter>(editor(), "editorSplitter");
    QSplitterHandle& handle = *splitter.handle(2);
    const int before = splitter.widget(1)->width();
    send(handle, QEvent::MouseButtonPress, {1, 40}, Qt::LeftButton);
    send(handle, QEvent::MouseMove, {1 - 30, 40}, Qt::LeftButton);
    send(handle, QEvent::MouseButtonRelease, {1, 40}, Qt::NoButton);
    program.settle();
    EXPECT_EQ(splitter.widget(1)->width(), before - 30);
}

TEST_F(Mouse, ShowingADocumentThatIsInFrontMaximizesIt) {
    auto& documents = *program.screen.mainWindow()->findChild<QMdiArea*>();
    QMdiSubWindow* document = documents.activeSubWindow();
    ASSERT_NE(document, nullptr);
    for (const bool minimized : {false, true}) {
        if (minimized)
            document->showMinimized();
        else
            document->showNormal();
        program.settle();
        ASSERT_FALSE(document->isMaximized());
        program.application.showEditor();
        program.settle();
        EXPECT_TRUE(document->isMaximized()) << (minimized ? "minimized" : "restored");
    }
}

TEST_F(Mouse, ColumnsKeepTheirOrder) {
    EXPECT_FALSE(program.widget<QTreeView>(editor(), "lvwSource").header()->sectionsMovable());
    EXPECT_FALSE(program.widget<QTreeView>(modeler(), "lvwTRObject").header()->sectionsMovable());
}

TEST_F(Mouse, ADragPictureShowsAShortTextWhole) {
    const QStringList texts{
        QStringLiteral("S1F1"),    QStringLiteral("MDLN"),        QStringLiteral("A 16V LOTID 'x'"),
        QStringLiteral("iiiiiii"), QStringLiteral("Wait, Reply"), QStringLiteral("ftfjfi")};
    for (double size = 6; size <= 14; size += 0.25) {
        QFont font;
        font.setPointSizeF(size);
        const QFontMetrics metrics(font);
        for (const QString& text : texts) {
            EXPECT_EQ(metrics.elidedText(text, Qt::ElideRight, dragTextWidth(metrics, {text})), text)
                << "at " << size << " pt";
        }
    }
}

TEST_F(Mouse, APictureFromAnotherProgramFallsOnTheStatements) {
    frmTRItem& dialog = program.application.frmTRItem;
    program.application.showModeler();
    dialog.show();
    Node& root = dialog.tvwStatement.nodes().add(nullptr, Relation::Last, "Conditions");
    program.settle();
    QMimeData content;
    content.setImageData(QImage(4, 4, QImage::Format_RGB32));
    const auto drop = [&](const char* tree, const Window& window, const QPoint& place) {
        QWidget& target = *program.widget<NodeTreeView>(window, tree).viewport();
        QDragEnterEvent enter(place, Qt::CopyAction, &content, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &enter);
        QDropEvent fall(place, Qt::CopyAction, &content, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &fall);
        return enter.isAccepted();
    };
    auto& view = program.widget<NodeTreeView>(dialog, "tvwStatement");
    EXPECT_TRUE(drop("tvwStatement", dialog, placeOf(view, root)));
    EXPECT_EQ(root.children(), 0); // no statement was chosen yet
    ASSERT_TRUE(dialog.picIF.onDragData);
    dialog.picIF.onDragData();
    drop("tvwStatement", dialog, placeOf(view, root));
    ASSERT_EQ(root.children(), 1);
    EXPECT_EQ(root.child()->text(), "if");
    EXPECT_FALSE(drop("tvwRcvTRMsg", modeler(), {10, 10}));
}

} // namespace
} // namespace zb::test
