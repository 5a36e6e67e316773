#include "lint/silencings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb {
namespace {

Finding finding(const std::string& id, const std::string& message, const std::string& item) {
    return {Severity::Warning, FindingPlace::inMessage(message, item), "text", id};
}

TEST(Silencings, SilenceAKindAMessageOrAPlace) {
    const auto silencings = Silencings::parse("# a comment\n"
                                              "std.direction\r\n"
                                              "std.item AlarmReport\n"
                                              "smd.item.count Other 1/3\n"
                                              "tr.condition.unreachable \"LIMIT PRESSURE\" .\n");
    EXPECT_TRUE(silencings.silences(finding("std.direction", "Any", "")));
    EXPECT_TRUE(silencings.silences(finding("std.item.length", "AlarmReport", "1/3")));
    EXPECT_FALSE(silencings.silences(finding("std.item.length", "Other", "1/3")));
    EXPECT_TRUE(silencings.silences(finding("smd.item.count", "Other", "1/3")));
    EXPECT_FALSE(silencings.silences(finding("smd.item.count", "Other", "1/2")));
    EXPECT_TRUE(silencings.silences(finding("tr.condition.unreachable", "LIMIT PRESSURE", "")));
    EXPECT_FALSE(silencings.silences(finding("tr.condition.unreachable", "LIMIT PRESSURE", "ITEM")));
    EXPECT_FALSE(silencings.silences(finding("std.structure", "AlarmReport", "")));
    EXPECT_FALSE(Silencings().silences(finding("std.structure", "AlarmReport", "")));
}

TEST(Silencings, AreAddedAndRemovedWithoutAChangeOfOtherLines) {
    const std::string kept = "# by hand\n  std.direction   \nno rule at all\nstd.item \"open\n";
    auto silencings = Silencings::parse(kept);
    EXPECT_EQ(silencings.text(), kept);
    const auto place = Silencing::placeOf(finding("std.structure", "A \"B\" \n", ""));
    silencings.add(place);
    silencings.add(place);
    silencings.add(Silencing::placeOf(finding("std.item.code", "Ack", "1/2")));
    EXPECT_EQ(silencings.text(), kept + "std.structure \"A \\\"B\\\" \\n\" .\nstd.item.code Ack 1/2\n");
    EXPECT_TRUE(Silencings::parse(silencings.text()).silences(finding("std.structure", "A \"B\" \n", "")));
    silencings.remove(place);
    EXPECT_FALSE(silencings.silences(finding("std.structure", "A \"B\" \n", "")));
    silencings.remove({"std.direction", {}, {}});
    EXPECT_EQ(silencings.text(), "# by hand\nno rule at all\nstd.item \"open\nstd.item.code Ack 1/2\n");
    EXPECT_EQ(silencings.all().size(), 1U);
}

TEST(Silencings, KeepLinesThatCannotBeUnderstood) {
    for (const std::string line :
         {"std.direction A B C", "std.direction \"A", "std.direction \"A\"B", "\"\\q\"", "std.direction \"\\",
          "\xFF\xFE", "std.directions", "# std.direction", "\"std.direction\\u0000\"", "[]", "{\"a\":1}"}) {
        const auto silencings = Silencings::parse(line + "\n");
        EXPECT_EQ(silencings.text(), line + "\n");
        EXPECT_FALSE(silencings.silences(finding("std.direction", "A", ""))) << line;
        EXPECT_TRUE(silencings.all().empty()) << line;
    }
}

TEST(Silencings, ReadBackAsTheyWereWrittenWhateverEndsALine) {
    for (const std::string_view text : {"smd.name\r", "smd.name A\r\r\r\nvalue\r\r", "\r", "\r\n\r\r\n"}) {
        const std::string written = Silencings::parse(text).text();
        EXPECT_EQ(Silencings::parse(written).text(), written);
        EXPECT_EQ(written.find('\r'), std::string::npos);
    }
}

TEST(Silencings, DifferInEveryWord) {
    auto silencings = Silencings::parse("std.item \"A\\nB\"\n");
    EXPECT_FALSE(silencings.silences(finding("std.item.length", "A", "B")));
    silencings.add({"std.item", "A", "B"});
    EXPECT_TRUE(silencings.silences(finding("std.item.length", "A", "B")));
    EXPECT_EQ(silencings.text(), "std.item \"A\\nB\"\nstd.item A B\n");
}

TEST(Silencings, OfAPlaceWithoutAMessageDoNotBecomeOnesOfTheKind) {
    Silencings silencings;
    silencings.add(Silencing::placeOf({Severity::Warning, {}, "text", "std.structure"}));
    EXPECT_EQ(silencings.text(), "std.structure \"\" .\n");
    const auto read = Silencings::parse(silencings.text());
    EXPECT_TRUE(read.silences({Severity::Warning, {}, "text", "std.structure"}));
    EXPECT_FALSE(read.silences(finding("std.structure", "AlarmReport", "")));
}

TEST(Silencings, AreBesideTheProject) {
    EXPECT_EQ(silencingsPath("a/Etcher.zbp"), "a/Etcher.zbcheck");
    EXPECT_EQ(silencingsPath("Etcher"), "Etcher.zbcheck");
}

} // namespace
} // namespace zb
