#include "model/sequence_lines.h"
#include "model/sequences.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace zb {
namespace {

using Texts = std::vector<std::string>;

/// Each row as one text.
Texts rowsOf(const Sequences& sequences) {
    Texts texts;
    for (const SequenceRow& row : sequences.rows())
        texts.push_back(row.text + "|" + row.direction + "|" + row.transactionName);
    return texts;
}

class SequencesTest : public ::testing::Test {
protected:
    void load(std::string_view rows) { sequences = readSequences(rows); }
    std::string saved() const {
        std::string text;
        appendSequences(text, sequences);
        return text;
    }

    Sequences sequences;
};

TEST_F(SequencesTest, AreReadLineByLine) {
    load("SeqName\u00FFLoad\u00FF\u00FF\r\nSeqItem\u00FF1\u00FFToHost\u00FFDone\r\n");
    EXPECT_EQ(rowsOf(sequences), (Texts{"Load||", "1|ToHost|Done"}));
    EXPECT_TRUE(sequences.rows()[0].isWhole);
    EXPECT_EQ(sequences.rows()[0].picture, kSequenceHead);
    EXPECT_TRUE(sequences.rows()[1].isWhole);
    EXPECT_EQ(sequences.rows()[1].picture, kSequenceItem);
}

TEST_F(SequencesTest, ReadOverBlankLinesAndTrimEveryField) {
    load("\r\n   \r\n  SeqName \u00FF Load \u00FF \u00FF \r\n\r\n SeqItem\u00FF 1\u00FFToHost "
         "\u00FF Done");
    EXPECT_EQ(rowsOf(sequences), (Texts{"Load||", "1|ToHost|Done"}));
    EXPECT_TRUE(sequences.rows()[0].isWhole);
}

TEST_F(SequencesTest, EndAtALineWithTooFewFields) {
    const std::string rest = "\r\nSeqName\u00FFB\u00FF\u00FF\r\n";
    load("SeqName\u00FFA\u00FF\u00FF\r\nnothing" + rest);
    EXPECT_EQ(rowsOf(sequences), (Texts{"A||"}));
    load("SeqName\u00FFA" + rest);
    EXPECT_EQ(rowsOf(sequences), (Texts{"A||"}));
    EXPECT_EQ(sequences.rows()[0].picture, kSequenceHead);
    EXPECT_FALSE(sequences.rows()[0].isWhole);
    load("SeqItem\u00FF1\u00FFToHost" + rest);
    EXPECT_EQ(rowsOf(sequences), (Texts{"1|ToHost|"}));
}

TEST_F(SequencesTest, KeepUnknownPicturesAndReadOverFurtherFields) {
    load("seqname\u00FFA\u00FFb\u00FFc\u00FFd\r\n\u00FF\u00FF\u00FF\r\n");
    EXPECT_EQ(rowsOf(sequences), (Texts{"A|b|c", "||"}));
    EXPECT_EQ(sequences.rows()[0].picture, "seqname");
    EXPECT_FALSE(sequences.rows()[0].isHead());
}

TEST_F(SequencesTest, OfAnEmptyListAreNoLine) {
    EXPECT_EQ(saved(), "");
}

TEST_F(SequencesTest, AreWrittenAsTheyAreRead) {
    const std::string rows = "SeqName\u00FFLoad\u00FF\u00FF\r\nSeqItem\u00FF1\u00FFToHost\u00FFDone\r\n"
                             "SeqItem\u00FF2\u00FF\u00FF\uAC00\r\nSeqName\u00FFLoad\u00FF\u00FF\r\n";
    load(rows);
    EXPECT_EQ(saved(), rows);
}

TEST_F(SequencesTest, KeepTheRowsAfterANameWithALineBreak) {
    sequences.addSequence("A");
    sequences.insertItem(0, "ToHost", "one\r\ntwo");
    sequences.addSequence("B");
    load(saved());
    EXPECT_EQ(rowsOf(sequences), (Texts{"A||", "1|ToHost|one  two", "B||"}));
}

TEST_F(SequencesTest, FindTheirHeadUpwards) {
    load("SeqItem\u00FF1\u00FF\u00FFx\r\nSeqName\u00FFA\u00FF\u00FF\r\n"
         "SeqItem\u00FF1\u00FF\u00FFx\r\nSeqItem\u00FF2\u00FF\u00FFx\r\n");
    EXPECT_EQ(sequences.headOf(3), 1U);
    EXPECT_EQ(sequences.headOf(1), 1U);
    EXPECT_EQ(sequences.headOf(0), std::nullopt);
    EXPECT_EQ(Sequences().headOf(0), std::nullopt);
}

TEST_F(SequencesTest, AreNumberedUpToTheNextHead) {
    load("SeqName\u00FFA\u00FF\u00FF\r\nSeqItem\u00FF7\u00FF\u00FFx\r\n"
         "other\u00FF7\u00FF\u00FFx\r\nSeqName\u00FFB\u00FF\u00FF\r\nSeqItem\u00FF9\u00FF\u00FFy\r\n");
    EXPECT_EQ(sequences.insertItem(0, "ToHost", "z"), 1U);
    EXPECT_EQ(rowsOf(sequences), (Texts{"A||", "1|ToHost|z", "2||x", "3||x", "B||", "9||y"}));
    EXPECT_EQ(sequences.remove(2), 1U);
    EXPECT_EQ(rowsOf(sequences), (Texts{"A||", "1|ToHost|z", "2||x", "B||", "9||y"}));
}

TEST_F(SequencesTest, LoseTheItemsOfARemovedHead) {
    load("SeqName\u00FFA\u00FF\u00FF\r\nSeqItem\u00FF1\u00FF\u00FFx\r\n"
         "other\u00FF2\u00FF\u00FFx\r\nSeqName\u00FFB\u00FF\u00FF\r\nSeqItem\u00FF1\u00FF\u00FFy\r\n");
    EXPECT_EQ(sequences.remove(0), 3U);
    EXPECT_EQ(rowsOf(sequences), (Texts{"B||", "1||y"}));
    EXPECT_EQ(sequences.remove(0), 2U);
    EXPECT_EQ(rowsOf(sequences), Texts());
}

TEST_F(SequencesTest, NumberRowsAboveAllHeadsAfterADrop) {
    load("SeqItem\u00FF5\u00FF\u00FFx\r\nSeqName\u00FFA\u00FF\u00FF\r\n");
    EXPECT_EQ(sequences.insertItem(0, "ToHost", "y"), 1U);
    EXPECT_EQ(rowsOf(sequences), (Texts{"1||x", "2|ToHost|y", "A||"}));
    EXPECT_EQ(sequences.remove(0), 1U);
    EXPECT_EQ(rowsOf(sequences), (Texts{"2|ToHost|y", "A||"}));
}

} // namespace
} // namespace zb
