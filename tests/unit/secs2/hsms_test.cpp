#include "messages/secs2/hsms.h"
#include "messages/secs2/secs1.h"

#include <gtest/gtest.h>
#include <string>

namespace zb::secs2 {
namespace {

TEST(Hsms, AFrameHasLengthHeaderAndData) {
    Header header;
    header.session = 10;
    header.stream = 1;
    header.function = 13;
    header.wait = true;
    header.system = 0x01020304;
    std::string bytes;
    appendFrame(bytes, header, "xy");
    EXPECT_EQ(bytes, std::string("\0\0\0\x0C\0\x0A\x81\x0D\0\0\1\2\3\4xy", 16));
    EXPECT_EQ(bigEndian32(bytes), 12U);
    EXPECT_EQ(decodeHeader(bytes.substr(4)), header);
}

TEST(Hsms, ControlMessagesHaveNames) {
    EXPECT_EQ(controlName(1), "Select.req");
    EXPECT_EQ(controlName(9), "Separate.req");
    EXPECT_EQ(controlName(8), "");
    EXPECT_EQ(controlType("LINKTEST.REQ"), 5U);
    EXPECT_EQ(controlType("S1F1"), 0U);
}

TEST(Secs1, BlocksJoinToTheMessageThatWasSplit) {
    Header header;
    header.session = 7;
    header.stream = 6;
    header.function = 11;
    header.system = 99;
    for (const std::size_t length : {0U, 1U, 244U, 245U, 1000U}) {
        const std::string data(length, 'd');
        std::string bytes;
        appendBlocks(bytes, header, true, data);
        BlockJoiner joiner;
        std::optional<BlockMessage> message;
        for (std::string_view rest = bytes; !rest.empty();) {
            const auto block = decodeBlock(rest);
            ASSERT_TRUE(block);
            EXPECT_FALSE(message);
            message = joiner.add(*block);
            if (!message) { // a block that was not acknowledged is repeated
                EXPECT_FALSE(joiner.add(*block));
            }
            rest.remove_prefix(block->size);
        }
        ASSERT_TRUE(message) << length;
        EXPECT_EQ(message->header, header);
        EXPECT_EQ(message->data, data);
        EXPECT_TRUE(message->toHost);
        EXPECT_EQ(joiner.incomplete(), 0U);
    }
}

TEST(Secs1, AWrongChecksumIsNoBlock) {
    std::string bytes;
    appendBlocks(bytes, Header(), false, "abc");
    EXPECT_TRUE(decodeBlock(bytes));
    bytes[12] = 'X';
    EXPECT_FALSE(decodeBlock(bytes));
    EXPECT_FALSE(decodeBlock(bytes.substr(0, 8)));
    EXPECT_FALSE(decodeBlock(""));
}

TEST(Secs1, ABlockOutOfOrderEndsItsMessage) {
    std::string bytes;
    appendBlocks(bytes, Header(), false, std::string(700, 'x'));
    std::vector<Block> blocks;
    for (std::string_view rest = bytes; !rest.empty(); rest.remove_prefix(blocks.back().size))
        blocks.push_back(*decodeBlock(rest));
    BlockJoiner joiner;
    EXPECT_FALSE(joiner.add(blocks[0]));
    EXPECT_FALSE(joiner.add(blocks[2]));
    EXPECT_EQ(joiner.incomplete(), 1U);
}

} // namespace
} // namespace zb::secs2
