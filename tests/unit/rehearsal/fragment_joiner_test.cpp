#include "rehearsal/fragment_joiner.h"

#include <gtest/gtest.h>

namespace zb::test {
namespace {

using rehearsal::FragmentedPacket;
using rehearsal::FragmentJoiner;

const FragmentedPacket kPacket{"fd00::33", "fd00::1f", 1};

TEST(FragmentJoiner, JoinsTheFragmentsInAnyOrder) {
    FragmentJoiner joiner;
    EXPECT_FALSE(joiner.add(kPacket, {16, true, "end"}));
    EXPECT_FALSE(joiner.add(kPacket, {0, false, "abcdefgh"}));
    EXPECT_FALSE(joiner.add(kPacket, {0, false, "abcdefgh"})) << "recorded twice";
    EXPECT_EQ(joiner.add(kPacket, {8, false, "ijklmnop"}), "abcdefghijklmnopend");
    EXPECT_EQ(joiner.add(kPacket, {0, true, "alone"}), "alone") << "the packet is forgotten when it is whole";
}

TEST(FragmentJoiner, KeepsPacketsApart) {
    FragmentJoiner joiner;
    FragmentedPacket other = kPacket;
    other.identification = 2;
    EXPECT_FALSE(joiner.add(kPacket, {0, false, "abcdefgh"}));
    EXPECT_FALSE(joiner.add(other, {0, false, "ABCDEFGH"}));
    EXPECT_EQ(joiner.add(other, {8, true, "I"}), "ABCDEFGHI");
    EXPECT_EQ(joiner.add(kPacket, {8, true, "i"}), "abcdefghi");
}

TEST(FragmentJoiner, GivesUpAPacketWithFragmentsThatContradictEachOther) {
    FragmentJoiner joiner;
    EXPECT_FALSE(joiner.add(kPacket, {0, false, "abcdefghABCDEFGH"}));
    EXPECT_FALSE(joiner.add(kPacket, {8, false, "ijklmnop"})) << "an overlap";
    EXPECT_FALSE(joiner.add(kPacket, {16, true, "end"})) << "the beginning is gone";
    FragmentJoiner second;
    EXPECT_FALSE(second.add(kPacket, {8, true, "end"}));
    EXPECT_FALSE(second.add(kPacket, {16, false, "ijklmnop"})) << "after the end";
    EXPECT_FALSE(second.add(kPacket, {0, false, "abcdefgh"})) << "the end is gone";
}

TEST(FragmentJoiner, PassesFragmentsThatNoPacketHas) {
    FragmentJoiner joiner;
    EXPECT_FALSE(joiner.add(kPacket, {65528, true, "too long"}));
    EXPECT_FALSE(joiner.add(kPacket, {0, false, "no unit"}));
    EXPECT_FALSE(joiner.add(kPacket, {0, true, ""}));
    EXPECT_EQ(joiner.add(kPacket, {0, true, "whole"}), "whole");
}

TEST(FragmentJoiner, OfTooManyOpenPacketsTheOldestIsGivenUp) {
    FragmentJoiner joiner;
    FragmentedPacket packet = kPacket;
    for (packet.identification = 0; packet.identification < 65; ++packet.identification)
        EXPECT_FALSE(joiner.add(packet, {0, false, "abcdefgh"}));
    packet.identification = 0;
    EXPECT_FALSE(joiner.add(packet, {8, true, "end"}));
    packet.identification = 64;
    EXPECT_EQ(joiner.add(packet, {8, true, "end"}), "abcdefghend");
}

} // namespace
} // namespace zb::test
