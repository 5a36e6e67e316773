#include "messages/bare_sml.h"
#include "messages/libraries/built_in.h"
#include "messages/library_store.h"
#include "platform/number.h"
#include "platform/text.h"
#include "support/temporary_folder.h"
#include "unit/messages/strict_sml.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

namespace zb {
namespace {

using test::readStrictSml;
using test::StrictItem;
using test::StrictMessage;
using testing::ElementsAre;

/// The items from `next` on that belong below `level`, as a simulator should hold them.
std::vector<StrictItem> strictItems(const std::vector<SECSItemRecord>& items, std::size_t& next, int level) {
    std::vector<StrictItem> result;
    while (next < items.size() && items[next].getLevel() == level) {
        const SECSItemRecord& item = items[next++];
        StrictItem strict;
        strict.type = item.getType() == "X" ? "A" : item.getType();
        if (strict.type == "A" || strict.type == "J")
            strict.text = item.getValue();
        else if (strict.type != "L" && !item.getValue().empty())
            for (const std::string& word : splitAtBlanks(item.getValue()))
                strict.values.push_back(word == "True" || word == "T" ? 1 : valueOf(word));
        strict.items = strictItems(items, next, level + 1);
        result.push_back(strict);
    }
    return result;
}

std::vector<StrictMessage> strictMessages(const SECSLibraryStore& store) {
    std::vector<StrictMessage> messages;
    for (const SECSMessageRecord* record : store.getMessages()) {
        std::size_t next = 0;
        messages.push_back({record->getStream(), record->getFunction(), record->getWait(),
                            strictItems(record->getItems(), next, 1)});
    }
    return messages;
}

class BareSmlText : public testing::Test {
protected:
    std::string bareOf(const std::string& smd) {
        SECSLibraryStore store{CodePage(1252)};
        EXPECT_EQ(store.load(smd, kFormatGem), "");
        BareSml sml = composeBareSml(store.getMessages());
        notes = sml.notes;
        return sml.text;
    }
    std::vector<std::string> notes;
};

TEST_F(BareSmlText, HasHeadsItemsAndValuesAlone) {
    EXPECT_EQ(
        bareOf(
            "* A title\r\nAsk: S1 F1 W <R> <NL> H->E\r\n    L 20V COUNT\r\n        A 6 MDLN 'HL \"V\"' [K]\r\n"
            "        B 3 ACK 0 10 255\r\n        BOOLEAN 2 DONE True False\r\n        F4 1 PARM 0.5\r\n"
            "        U4 10V VID\r\n        B 0\r\n        L 0\r\n        J 2 KANA 'ab'.\r\n"
            "* B\r\nNext: S1 F2 H->E.\r\n"),
        "S1F1 W\r\n  <L\r\n    <A 'HL \"V\"'>\r\n    <B 0x00 0x0A 0xFF>\r\n    <BOOLEAN T F>\r\n"
        "    <F4 0.5>\r\n    <U4>\r\n    <B >\r\n    <L\r\n    >\r\n    <J \"ab\">\r\n  >\r\n.\r\n\r\n"
        "S1F2\r\n.\r\n\r\n");
    EXPECT_THAT(notes, ElementsAre());
}

TEST_F(BareSmlText, NumbersHaveDigitsOnBothSidesOfThePointAndNoPlus) {
    EXPECT_THAT(bareOf("A: S1 F1 H->E\r\n    F8 4 X1 .5 1. +2.25 -.5\r\n"),
                testing::HasSubstr("<F8 0.5 1.0 2.25 -0.5>"));
    EXPECT_THAT(bareOf("A: S1 F1 H->E\r\n    U8 1 X1 18446744073709551615.\r\n"),
                testing::HasSubstr("<U8 18446744073709551615>"));
}

TEST_F(BareSmlText, WhatTheCoreLacksIsNoted) {
    EXPECT_EQ(bareOf("A: S1 F1 H->E\r\n    X 1 CPVAL '1'\r\n    X 1 PARM ''.\r\n"),
              "S1F1\r\n  <A \"1\">\r\n  <A \"\">\r\n.\r\n\r\n");
    EXPECT_THAT(notes, ElementsAre("A: 2 items of any type written as text",
                                   "A: 2 items outside of a list, where readers take one"));
}

TEST_F(BareSmlText, EveryLibraryMessageIsReadByAStrictReaderAndByThisProgram) {
    SECSLibraryStore libraries{CodePage(1252)};
    libraries.load(gemLibraryText(), kFormatGem);
    for (const std::string& block : semiLibraryBlocks())
        libraries.load(block, kFormatSemi);
    ASSERT_EQ(libraries.getMessages().size(), 450u);
    const std::vector<StrictMessage> expected = strictMessages(libraries);

    const std::string bare = composeBareSml(libraries.getMessages()).text;
    const std::vector<StrictMessage> read = readStrictSml(bare);
    ASSERT_EQ(read.size(), expected.size());
    for (std::size_t i = 0; i < read.size(); ++i)
        EXPECT_EQ(read[i], expected[i]) << libraries.getMessages()[i]->getNodeText();

    const test::TemporaryFolder folder;
    const std::string path = (folder.path() / "bare.sml").string();
    std::ofstream(path, std::ios::binary) << bare;
    SECSLibraryStore again{CodePage(1252)};
    EXPECT_EQ(again.load(path, kFormatSml), "");
    EXPECT_TRUE(again.findings().empty());
    EXPECT_EQ(strictMessages(again), expected);
}

TEST(StrictSml, RefusesWhatIsNotInTheCoreOfTheLanguage) {
    for (const char* text : {"S1F1 <A[1] \"a\">.", "S1F1 // comment\n.", "Name: S1F1.", "S1F1 <A 'a'>.",
                             "S1F1 <U1 256>.", "S1F1 <B 10>.", "S1F2 W.", "S1F1 <U1 1> <U1 2>.",
                             "S1F1 <X \"a\">.", "S1F1 <L <U1 1>.", "S1F1", "S1F1 <F4 .5>.", "S1F1 <U1 VID>."})
        EXPECT_THROW(readStrictSml(text), std::runtime_error) << text;
}

} // namespace
} // namespace zb
