#include "generate/message_shape.h"

#include <gtest/gtest.h>

namespace zb::generate {
namespace {

ItemForest forest(const std::string& body) {
    SECSMessageRecord record;
    record.parseTexts("M: S1 F1 H->E", "", body);
    return itemsOf(record);
}

TEST(MessageShape, FlattensListsWithoutAName) {
    const ItemForest items = forest("1 L 2\r\n2 A 3 RCMD 'A'\r\n2 L 2\r\n3 U1 1 A 1\r\n3 U1 1 B 1\r\n");
    const MessageShape shape(items.roots);
    ASSERT_EQ(items.fault, "");
    ASSERT_EQ(shape.records().size(), 1U);
    EXPECT_EQ(shape.records()[0].fields.size(), 3U);
    EXPECT_EQ(shape.records()[0].steps.size(), 7U);
}

TEST(MessageShape, HasATypeForNamedAndForRepeatedLists) {
    const ItemForest items =
        forest("1 L 3\r\n2 L 1 SETUP\r\n3 U1 1 A 1\r\n2 L 9V WAFERS\r\n3 L 1\r\n4 U1 1 SLOT 1\r\n"
               "2 L 5V IDS\r\n3 U4 1 ID 1\r\n");
    const MessageShape shape(items.roots);
    ASSERT_EQ(shape.records().size(), 3U);
    EXPECT_EQ(shape.records()[0].wish, "SETUP");
    EXPECT_EQ(shape.records()[1].wish, "WAFERS_Entry");
    const std::vector<Field>& fields = shape.records()[2].fields;
    ASSERT_EQ(fields.size(), 3U);
    EXPECT_EQ(fields[0].kind, Field::Kind::Record);
    EXPECT_EQ(fields[1].kind, Field::Kind::Records);
    EXPECT_EQ(fields[2].kind, Field::Kind::Values);
    EXPECT_EQ(fields[2].wish, "ID");
}

TEST(MessageShape, FindsTheLastItemOfAName) {
    const ItemForest items = forest("1 L 3\r\n2 U1 1 A 1\r\n2 L 9V LIST\r\n3 U1 1 A 1\r\n2 L 0 NONE\r\n");
    const MessageShape shape(items.roots);
    const MessageShape::Path path = shape.pathTo("A");
    ASSERT_EQ(path.places.size(), 1U);
    EXPECT_EQ(path.places[0].field, 1U);
    EXPECT_FALSE(path.isList);
    EXPECT_TRUE(shape.pathTo("LIST").isList);
    EXPECT_TRUE(shape.pathTo("NONE").isFound);
    EXPECT_FALSE(shape.pathTo("B").isFound);
}

TEST(MessageShape, WrapsSeveralItemsInAList) {
    const ItemForest items = forest("1 U1 1 A 1\r\n1 U1 1 B 1\r\n");
    ASSERT_EQ(items.roots.size(), 1U);
    EXPECT_EQ(items.roots[0].members.size(), 2U);
}

TEST(MessageShape, RefusesWhatNoMessageCanBe) {
    EXPECT_NE(forest("1 U1 1 A 1\r\n2 U1 1 B 1\r\n").fault, "");
    EXPECT_NE(forest("1 L 3V A\r\n2 U1 1 B 1\r\n2 U1 1 C 1\r\n").fault, "");
    EXPECT_NE(forest("1 B 2000000000 A\r\n").fault, "");
    EXPECT_EQ(forest("1 XX 1 A 1\r\n").fault, "");
}

} // namespace
} // namespace zb::generate
