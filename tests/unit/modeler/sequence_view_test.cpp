#include "modeler/sequence_view.h"

#include "model/sequence_lines.h"
#include "unit/modeler/modeler_desk.h"

#include <gtest/gtest.h>

#include <random>

namespace zb {
namespace {

using test::rowsOf;
using Texts = std::vector<std::string>;

class SequenceViewTest : public ::testing::Test {
protected:
    void load(std::string_view rows) { view.show(readSequences(rows)); }
    std::size_t count() { return list.count(); }

    test::SilentScreen screen;
    Desktop desktop{screen};
    Window window{desktop, "frmAny"};
    List list{window, "lvwSequence"};
    Sequences sequences;
    SequenceView view{list, sequences};
};

TEST_F(SequenceViewTest, ShowsHeadsInBold) {
    load("SeqName\u00FFLoad\u00FF\u00FF\r\nSeqItem\u00FF1\u00FFToHost\u00FFDone\r\n");
    EXPECT_EQ(rowsOf(list), (Texts{"Load||", "1|ToHost|Done"}));
    EXPECT_TRUE(list.rows()[0]->bold());
    EXPECT_EQ(list.rows()[0]->image(), kSequenceHead);
    EXPECT_FALSE(list.rows()[1]->bold());
    EXPECT_EQ(list.rows()[1]->image(), kSequenceItem);
}

TEST_F(SequenceViewTest, ShowsAHeadThatWasCutShortInPlainType) {
    load("SeqName\u00FFA\r\n");
    EXPECT_EQ(list.rows()[0]->image(), kSequenceHead);
    EXPECT_FALSE(list.rows()[0]->bold());
}

TEST_F(SequenceViewTest, ReplacesWhatItShowed) {
    load("SeqName\u00FFA\u00FF\u00FF\r\n");
    list.select(list.rows()[0].get());
    load("SeqName\u00FFB\u00FF\u00FF\r\n");
    EXPECT_EQ(rowsOf(list), (Texts{"B||"}));
    EXPECT_EQ(list.selected(), nullptr);
    view.clear();
    EXPECT_EQ(rowsOf(list), Texts());
    EXPECT_TRUE(sequences.rows().empty());
}

TEST_F(SequenceViewTest, SelectsWhatIsAdded) {
    view.addSequence("A");
    EXPECT_EQ(list.selected(), list.rows()[0].get());
    view.insertItem(*list.rows()[0], "ToHost", "x");
    view.insertItem(*list.rows()[0], "ToEquip", "y");
    EXPECT_EQ(rowsOf(list), (Texts{"A||", "1|ToEquip|y", "2|ToHost|x"}));
    EXPECT_EQ(list.selected(), list.rows()[1].get());
}

TEST_F(SequenceViewTest, ClosesTheGapOfARemovedItem) {
    load("SeqName\u00FFA\u00FF\u00FF\r\nSeqItem\u00FF1\u00FF\u00FFx\r\nSeqItem\u00FF2\u00FF\u00FFy\r\n");
    list.select(list.rows()[2].get());
    view.remove(*list.rows()[1]);
    EXPECT_EQ(rowsOf(list), (Texts{"A||", "1||y"}));
    EXPECT_EQ(list.selected(), list.rows()[1].get());
}

TEST_F(SequenceViewTest, RemovesAHeadWithItsItems) {
    load("SeqName\u00FFA\u00FF\u00FF\r\nSeqItem\u00FF1\u00FF\u00FFx\r\nSeqItem\u00FF2\u00FF\u00FFy\r\n"
         "SeqName\u00FFB\u00FF\u00FF\r\nSeqItem\u00FF1\u00FF\u00FFz\r\n");
    view.remove(*list.rows()[0]);
    EXPECT_EQ(rowsOf(list), (Texts{"B||", "1||z"}));
    view.remove(*list.rows()[0]);
    EXPECT_EQ(rowsOf(list), Texts());
}

// Every path of clicks keeps the rows of the list those of the sequences.
TEST_F(SequenceViewTest, HasTheRowsOfTheSequencesAfterAnyChanges) {
    load("SeqItem\u00FF5\u00FF\u00FFx\r\nother\u00FF7\u00FF\u00FFx\r\n");
    std::mt19937 random(7);
    for (int step = 0; step < 2000; ++step) {
        const auto at = count() == 0 ? 0 : random() % count();
        const auto change = random() % 5;
        if (change == 0)
            view.addSequence("S" + std::to_string(step));
        else if (count() > 0 && (change == 1 || count() > 40))
            view.remove(*list.rows()[at]);
        else if (count() > 0)
            view.insertItem(*list.rows()[at], "ToHost", "M" + std::to_string(step));
        ASSERT_EQ(count(), sequences.rows().size());
        for (std::size_t row = 0; row < count(); ++row) {
            const SequenceRow& expected = sequences.rows()[row];
            ASSERT_EQ(list.rows()[row]->cells(),
                      (Texts{expected.text, expected.direction, expected.transactionName}))
                << "row " << row << " after step " << step;
            ASSERT_EQ(list.rows()[row]->image(), expected.picture);
        }
    }
}

class SequenceMarks : public ::testing::Test, protected test::ModelerDesk {
protected:
    SequenceMarks() {
        addRecord("Done", kToHost);
        window.displayModel();
        for (const char* name : {"A", "B"})
            window.sequenceView().addSequence(name);
        for (const auto& row : list.rows())
            row->setForeColor(kErrorForeColor);
        list.select(nullptr);
    }
    bool marked(std::size_t row) { return list.rows()[row]->foreColor() == kErrorForeColor; }
    List& list = window.lvwSequence;
};

TEST_F(SequenceMarks, GoWhereARowIsPressed) {
    hands.click(onRow(list, 1));
    EXPECT_FALSE(marked(0));
    EXPECT_TRUE(marked(1));
    EXPECT_EQ(list.selected(), list.rows()[0].get());
    hands.click(Target::whole(list));
    EXPECT_EQ(list.selected(), nullptr);
    EXPECT_TRUE(marked(1));
}

TEST_F(SequenceMarks, GoWhereADragPasses) {
    hands.dragOver({"anything", nullptr}, onRow(list, 2));
    EXPECT_FALSE(marked(1));
    EXPECT_TRUE(list.rows()[1]->selected());
    hands.dragOver({"anything", nullptr}, Target::whole(list));
    EXPECT_TRUE(list.rows()[1]->selected());
    EXPECT_TRUE(marked(0));
}

TEST_F(SequenceMarks, GoFromTheRowOfAnOpenedMenu) {
    list.select(list.rows()[0].get());
    fire(list.onMouseUp, 2, nullptr);
    EXPECT_TRUE(window.mnuSeqPopup.isOpen());
    EXPECT_FALSE(marked(0));
    EXPECT_TRUE(marked(1));
}

TEST_F(SequenceMarks, GoWithAPictureThatIsDroppedAndNothingElse) {
    hands.drop({"Done", nullptr, DragData::Form::Picture}, onRow(list, 1));
    EXPECT_EQ(list.count(), 2U);
    hands.drop({"Done", nullptr}, onRow(list, 2));
    EXPECT_EQ(rowsOf(list), (Texts{"A||", "B||", "1|ToHost|Done"}));
    EXPECT_FALSE(marked(1));
    EXPECT_TRUE(list.rows()[2]->selected());
}

} // namespace
} // namespace zb
