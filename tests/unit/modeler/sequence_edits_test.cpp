#include "modeler/sequence_edits.h"

#include "model/sequence_lines.h"
#include "platform/text.h"
#include "unit/modeler/modeler_desk.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace zb {
namespace {

using ::testing::ElementsAre;
using Texts = std::vector<std::string>;

/// "A" is a head, "1a" the item a with the ordinal 1.
SequenceRows rowsOf(const Texts& texts) {
    SequenceRows rows;
    for (const std::string& text : texts) {
        SequenceRow row;
        const bool head = text.front() >= 'A' && text.front() <= 'Z';
        row.picture = head ? kSequenceHead : kSequenceItem;
        row.text = head ? text : text.substr(0, 1);
        row.transactionName = head ? "" : text.substr(1);
        rows.push_back({row, {}});
    }
    return rows;
}

Texts textsOf(const SequenceRows& rows) {
    Texts texts;
    for (const MarkedRow& row : rows)
        texts.push_back(row.row.text + row.row.transactionName);
    return texts;
}

const Texts kTwo{"A", "1a", "2b", "3c", "B", "1d", "2e"};

Texts moved(const RowPlaces& places, Step way) {
    const auto edit = rowsMoved(rowsOf(kTwo), places, way);
    return edit ? textsOf(edit->rows) : Texts{"nothing"};
}

TEST(SequenceEdits, ItemsMoveByOneRowAndIntoTheNextSequence) {
    EXPECT_THAT(moved({2}, Step::Up), ElementsAre("A", "1b", "2a", "3c", "B", "1d", "2e"));
    EXPECT_THAT(moved({3}, Step::Down), ElementsAre("A", "1a", "2b", "B", "1c", "2d", "3e"));
    EXPECT_THAT(moved({5}, Step::Up), ElementsAre("A", "1a", "2b", "3c", "4d", "B", "1e"));
    EXPECT_THAT(moved({1, 3}, Step::Down), ElementsAre("A", "1b", "2a", "B", "1c", "2d", "3e"));
}

TEST(SequenceEdits, NothingMovesPastTheEnds) {
    EXPECT_THAT(moved({1}, Step::Up), ElementsAre("nothing"));
    EXPECT_THAT(moved({1, 2}, Step::Up), ElementsAre("nothing"));
    EXPECT_THAT(moved({5, 6}, Step::Down), ElementsAre("nothing"));
    EXPECT_THAT(moved({0}, Step::Up), ElementsAre("nothing"));
    EXPECT_THAT(moved({4}, Step::Down), ElementsAre("nothing"));
    EXPECT_THAT(moved({}, Step::Down), ElementsAre("nothing"));
}

TEST(SequenceEdits, AHeadMovesWithItsItems) {
    EXPECT_THAT(moved({4}, Step::Up), ElementsAre("B", "1d", "2e", "A", "1a", "2b", "3c"));
    EXPECT_THAT(moved({0, 2}, Step::Down), ElementsAre("B", "1d", "2e", "A", "1a", "2b", "3c"));
    const auto edit = rowsMoved(rowsOf(kTwo), {4}, Step::Up);
    ASSERT_TRUE(edit);
    EXPECT_THAT(edit->selected, ElementsAre(0));
}

TEST(SequenceEdits, RowsArePutAfterATarget) {
    const auto put = [](const RowPlaces& places, std::size_t target, Put how) {
        const auto edit = rowsPutAfter(rowsOf(kTwo), places, target, how);
        return edit ? textsOf(edit->rows) : Texts{"nothing"};
    };
    EXPECT_THAT(put({1, 3}, 5, Put::Moved), ElementsAre("A", "1b", "B", "1d", "2a", "3c", "4e"));
    EXPECT_THAT(put({6}, 0, Put::Moved), ElementsAre("A", "1e", "2a", "3b", "4c", "B", "1d"));
    EXPECT_THAT(put({1}, 0, Put::Moved), ElementsAre("nothing"));
    EXPECT_THAT(put({1, 2}, 2, Put::Moved), ElementsAre("nothing"));
    EXPECT_THAT(put({1}, 5, Put::Copied), ElementsAre("A", "1a", "2b", "3c", "B", "1d", "2a", "3e"));
    EXPECT_THAT(put({0}, 5, Put::Moved), ElementsAre("B", "1d", "2e", "A", "1a", "2b", "3c"));
    EXPECT_THAT(put({4}, 5, Put::Moved), ElementsAre("nothing"));
    EXPECT_THAT(put({4}, 1, Put::Copied),
                ElementsAre("A", "1a", "2b", "3c", "B_2", "1d", "2e", "B", "1d", "2e"));
    EXPECT_THAT(put({1}, 7, Put::Moved), ElementsAre("nothing"));
}

TEST(SequenceEdits, RemovedHeadsTakeTheirItems) {
    const auto edit = rowsRemoved(rowsOf(kTwo), {1, 4});
    ASSERT_TRUE(edit);
    EXPECT_THAT(textsOf(edit->rows), ElementsAre("A", "1b", "2c"));
    EXPECT_THAT(edit->selected, ElementsAre(1));
    const auto all = rowsRemoved(rowsOf(kTwo), {0, 4});
    ASSERT_TRUE(all);
    EXPECT_THAT(all->rows, ::testing::IsEmpty());
    EXPECT_THAT(all->selected, ::testing::IsEmpty());
}

TEST(SequenceEdits, RowsBeforeAllHeadsKeepTheirOrdinals) {
    const auto edit = rowsMoved(rowsOf({"7x", "9y", "A", "1a", "2b"}), {4}, Step::Up);
    ASSERT_TRUE(edit);
    EXPECT_THAT(textsOf(edit->rows), ElementsAre("7x", "9y", "A", "1b", "2a"));
}

// Whatever is moved, no row is lost, none is made, and the first row stays what it was: an item needs a head.
TEST(SequenceEdits, MovesKeepAllRowsInAnyOrder) {
    std::mt19937 random(7);
    SequenceRows rows = rowsOf(kTwo);
    const auto names = [](const SequenceRows& all) {
        Texts texts;
        for (const MarkedRow& row : all)
            texts.push_back(row.row.isHead() ? row.row.text : row.row.transactionName);
        std::sort(texts.begin(), texts.end());
        return texts;
    };
    const Texts before = names(rows);
    for (int i = 0; i < 2000; ++i) {
        RowPlaces places;
        for (std::size_t at = 0; at < rows.size(); ++at) {
            if (random() % 3 == 0)
                places.push_back(at);
        }
        const auto edit = random() % 2 == 0
                              ? rowsMoved(rows, places, random() % 2 == 0 ? Step::Up : Step::Down)
                              : rowsPutAfter(rows, places, random() % rows.size(), Put::Moved);
        if (!edit)
            continue;
        rows = edit->rows;
        ASSERT_EQ(names(rows), before);
        ASSERT_TRUE(rows.front().row.isHead());
        int ordinal = 0;
        for (const MarkedRow& row : rows) {
            ordinal = row.row.isHead() ? 0 : ordinal + 1;
            if (!row.row.isHead()) {
                ASSERT_EQ(row.row.text, std::to_string(ordinal));
            }
        }
    }
}

struct SequenceKeys : ::testing::Test, test::ModelerDesk {
    SequenceKeys() {
        addRecord("Go", 1);
        addRecord("Stop", 2);
        window.sequenceView().addSequence("A");
        window.sequenceView().insertItem(*window.lvwSequence.rows()[0], "ToHost", "Go");
        window.sequenceView().insertItem(*window.lvwSequence.rows()[1], "ToEquip", "Stop");
    }
    void press(KeyEvent key) { hands.key(window.lvwSequence, key); }
};

TEST_F(SequenceKeys, AltAndTheArrowsMoveTheSelectedRow) {
    hands.click(onRow(window.lvwSequence, 3));
    press({kKeyUp, kAltKey});
    EXPECT_EQ(test::rowsOf(window.lvwSequence), (Texts{"A||", "1|ToEquip|Stop", "2|ToHost|Go"}));
    EXPECT_EQ(window.lvwSequence.positionOf(window.lvwSequence.selected()), 2);
    press({kKeyDown, kAltKey});
    EXPECT_EQ(test::rowsOf(window.lvwSequence), (Texts{"A||", "1|ToHost|Go", "2|ToEquip|Stop"}));
}

TEST_F(SequenceKeys, CtrlDDuplicatesAndCtrlDelDeletes) {
    hands.click(onRow(window.lvwSequence, 2));
    press({'D', kControlKey});
    EXPECT_EQ(window.lvwSequence.count(), 4U);
    press({kKeyDelete, kControlKey});
    press({kKeyDelete, kControlKey});
    EXPECT_EQ(test::rowsOf(window.lvwSequence), (Texts{"A||", "1|ToHost|Go"}));
}

TEST_F(SequenceKeys, DelAloneDeletesNothing) {
    hands.click(onRow(window.lvwSequence, 2));
    press({kKeyDelete, 0});
    EXPECT_EQ(window.lvwSequence.count(), 3U);
}

TEST_F(SequenceKeys, RowsTakenByTheCopyKeyAreCopied) {
    hands.click(onRow(window.lvwSequence, 2));
    EXPECT_FALSE(hands.beginDrag(onRow(window.lvwSequence, 2))) << "a single row";
    hands.controlClick(onRow(window.lvwSequence, 3));
    std::optional<DragData> data = hands.beginDrag(onRow(window.lvwSequence, 3));
    ASSERT_TRUE(data);
    data->copied = true;
    hands.drop(*data, onRow(window.lvwSequence, 1));
    EXPECT_EQ(test::rowsOf(window.lvwSequence),
              (Texts{"A||", "1|ToHost|Go", "2|ToEquip|Stop", "3|ToHost|Go", "4|ToEquip|Stop"}));
}

} // namespace
} // namespace zb
