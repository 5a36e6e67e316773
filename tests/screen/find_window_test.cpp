#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QMainWindow>
#include <QTest>

namespace zb::test {
namespace {

struct FindWindow : ::testing::Test {
    FindWindow() {
        program.application.start("");
        program.application.showEditor();
        NodeTree& tree = editor().liveTree();
        for (const char* text : {"one", "two", "one more"})
            tree.add(nullptr, Relation::Last, text);
        program.settle();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }
    frmFind& find() { return program.application.frmFind; }
    std::string selected() {
        const Node* node = editor().liveTree().selected();
        return node == nullptr ? std::string() : std::string(node->text());
    }
    QWidget& widget(const char* name) { return program.widget<QWidget>(editor(), name); }

    ProgramOnScreen program{"/"};
};

TEST_F(FindWindow, IsBesideTheTreeThatItSearches) {
    program.screen.mainWindow()->setGeometry(-300, 0, 780, 560);
    program.settle();
    find().showFind();
    program.settle();
    const QWidget& tree = widget("tvwEdit");
    const QRect covered(tree.mapToGlobal(QPoint()), tree.size());
    EXPECT_FALSE(program.form(find()).frameGeometry().intersects(covered));
}

TEST_F(FindWindow, ItsKeyAsksWhatToLookForWhenNothingWasSearched) {
    QTest::keyClick(&widget("tvwEdit"), Qt::Key_F3);
    EXPECT_TRUE(find().visible());
}

TEST_F(FindWindow, ItsKeyGoesOnWithTheLastSearchWhenItIsClosed) {
    find().showFind();
    find().txtFindWhat.setText("one");
    find().findNext();
    EXPECT_EQ(selected(), "one more");
    program.screen.binding().hands.click(Target::whole(find().cmdCancel));
    ASSERT_FALSE(find().visible());
    EXPECT_EQ(find().txtFindWhat.text(), "");
    QTest::keyClick(&widget("tvwEdit"), Qt::Key_F3);
    EXPECT_EQ(selected(), "one");
    EXPECT_FALSE(find().visible());
}

TEST_F(FindWindow, ItsKeyIsAKeyOfTheFieldFirst) {
    find().showFind();
    find().txtFindWhat.setText("two");
    find().findNext();
    find().hide();
    editor().liveTree().select(editor().liveTree().firstRoot());
    QTest::keyClick(&widget("txtStream"), Qt::Key_F3);
    EXPECT_TRUE(editor().txtStream.locked());
    EXPECT_EQ(selected(), "two");
}

} // namespace
} // namespace zb::test
