#include "modeler/sequence_rows.h"
#include "modeler/sequence_table.h"
#include "unit/modeler/modeler_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::rowsOf;
using Texts = std::vector<std::string>;

const std::string kMarkerLine = "###[SEQUENCE TABLE]\r\n";

class Sequences : public ::testing::Test {
protected:
    void load(std::string_view projectText) {
        list.clear();
        loadSequenceTable(projectText, list);
    }
    std::string saved() const {
        std::string text;
        saveSequenceTable(text, list);
        return text;
    }

    test::SilentScreen screen;
    Desktop desktop{screen};
    Window window{desktop, "frmAny"};
    List list{window, "lvwSequence"};
};

TEST_F(Sequences, AreReadBehindTheMarker) {
    load("SeqName\u00FFNo\u00FF\u00FF\r\n" + kMarkerLine +
         "SeqName\u00FFLoad\u00FF\u00FF\r\nSeqItem\u00FF1\u00FFToHost\u00FFDone\r\n");
    EXPECT_EQ(rowsOf(list), (Texts{"Load||", "1|ToHost|Done"}));
    EXPECT_TRUE(list.rows()[0]->bold());
    EXPECT_EQ(list.rows()[0]->image(), kSequenceHead);
    EXPECT_FALSE(list.rows()[1]->bold());
    EXPECT_EQ(list.rows()[1]->image(), kSequenceItem);
}

TEST_F(Sequences, NeedTheMarkerAsAWholeLine) {
    load(" ###[SEQUENCE TABLE]\r\nSeqName\u00FFA\u00FF\u00FF\r\n");
    EXPECT_EQ(list.count(), 0U);
    load("###[SEQUENCE TABLE] \r\nSeqName\u00FFA\u00FF\u00FF\r\n");
    EXPECT_EQ(list.count(), 0U);
    load("");
    EXPECT_EQ(list.count(), 0U);
}

TEST_F(Sequences, ReadOverBlankLinesAndTrimEveryField) {
    load(kMarkerLine + "\r\n   \r\n  SeqName \u00FF Load \u00FF \u00FF \r\n\r\n SeqItem\u00FF 1\u00FFToHost "
                       "\u00FF Done");
    EXPECT_EQ(rowsOf(list), (Texts{"Load||", "1|ToHost|Done"}));
    EXPECT_TRUE(list.rows()[0]->bold());
}

TEST_F(Sequences, EndAtALineWithTooFewFields) {
    const std::string behind = "\r\nSeqName\u00FFB\u00FF\u00FF\r\n";
    load(kMarkerLine + "SeqName\u00FFA\u00FF\u00FF\r\nnothing" + behind);
    EXPECT_EQ(rowsOf(list), (Texts{"A||"}));
    load(kMarkerLine + "SeqName\u00FFA" + behind);
    EXPECT_EQ(rowsOf(list), (Texts{"A||"}));
    EXPECT_EQ(list.rows()[0]->image(), kSequenceHead);
    EXPECT_FALSE(list.rows()[0]->bold());
    load(kMarkerLine + "SeqItem\u00FF1\u00FFToHost" + behind);
    EXPECT_EQ(rowsOf(list), (Texts{"1|ToHost|"}));
}

TEST_F(Sequences, KeepUnknownPicturesAndReadOverFurtherFields) {
    load(kMarkerLine + "seqname\u00FFA\u00FFb\u00FFc\u00FFd\r\n\u00FF\u00FF\u00FF\r\n");
    EXPECT_EQ(rowsOf(list), (Texts{"A|b|c", "||"}));
    EXPECT_EQ(list.rows()[0]->image(), "seqname");
    EXPECT_FALSE(list.rows()[0]->bold());
}

TEST_F(Sequences, OfAnEmptyListAreTheirMarker) {
    EXPECT_EQ(saved(), "\r\n\r\n\r\n" + kMarkerLine);
}

TEST_F(Sequences, AreWrittenAsTheyAreRead) {
    const std::string rows = "SeqName\u00FFLoad\u00FF\u00FF\r\nSeqItem\u00FF1\u00FFToHost\u00FFDone\r\n"
                             "SeqItem\u00FF2\u00FF\u00FF\uAC00\r\nSeqName\u00FFLoad\u00FF\u00FF\r\n";
    load(kMarkerLine + rows);
    EXPECT_EQ(saved(), "\r\n\r\n\r\n" + kMarkerLine + rows);
}

TEST_F(Sequences, KeepTheRowsBehindANameWithALineBreak) {
    addSequenceHead(list, "A");
    insertSequenceItem(list, *list.rows()[0], "ToHost", "one\r\ntwo");
    addSequenceHead(list, "B");
    load(saved());
    EXPECT_EQ(rowsOf(list), (Texts{"A||", "1|ToHost|one  two", "B||"}));
}

TEST_F(Sequences, FindTheirHeadUpwards) {
    load(kMarkerLine + "SeqItem\u00FF1\u00FF\u00FFx\r\nSeqName\u00FFA\u00FF\u00FF\r\n"
                       "SeqItem\u00FF1\u00FF\u00FFx\r\nSeqItem\u00FF2\u00FF\u00FFx\r\n");
    EXPECT_EQ(findSequenceHead(list, 4), 2);
    EXPECT_EQ(findSequenceHead(list, 2), 2);
    EXPECT_EQ(findSequenceHead(list, 1), 0);
    EXPECT_EQ(findSequenceHead(list, 0), 0);
}

TEST_F(Sequences, AreNumberedUpToTheNextHead) {
    load(kMarkerLine +
         "SeqName\u00FFA\u00FF\u00FF\r\nSeqItem\u00FF7\u00FF\u00FFx\r\n"
         "other\u00FF7\u00FF\u00FFx\r\nSeqName\u00FFB\u00FF\u00FF\r\nSeqItem\u00FF9\u00FF\u00FFy\r\n");
    renumberSequence(list, 1);
    EXPECT_EQ(rowsOf(list), (Texts{"A||", "1||x", "2||x", "B||", "9||y"}));
}

TEST_F(Sequences, NumberRowsAboveAllHeadsAfterADrop) {
    load(kMarkerLine + "SeqItem\u00FF5\u00FF\u00FFx\r\nSeqName\u00FFA\u00FF\u00FF\r\n");
    insertSequenceItem(list, *list.rows()[0], "ToHost", "y");
    EXPECT_EQ(rowsOf(list), (Texts{"1||x", "2|ToHost|y", "A||"}));
    deleteSequenceRow(list, *list.rows()[0]);
    EXPECT_EQ(rowsOf(list), (Texts{"2|ToHost|y", "A||"}));
}

class SequenceMarks : public ::testing::Test, protected test::ModelerDesk {
protected:
    SequenceMarks() {
        addRecord("Done", kToHost);
        window.displayModel();
        for (const char* name : {"A", "B"})
            addSequenceHead(list, name);
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
    EXPECT_EQ(rowsOf(list), (Texts{"A", "B", "1|ToHost|Done"}));
    EXPECT_FALSE(marked(1));
    EXPECT_TRUE(list.rows()[2]->selected());
}

} // namespace
} // namespace zb
