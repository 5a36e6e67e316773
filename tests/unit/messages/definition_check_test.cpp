#include "messages/definition_check.h"
#include "unit/messages/workbench.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> findingsOf(const NodeTree& tree) {
    std::vector<std::string> lines;
    for (const Finding& finding : checkDefinitions(tree, CodePage(1252)))
        lines.push_back((finding.severity == Severity::Error ? "" : "warning: ") + finding.place.message +
                        ": " + finding.place.item + ": " + finding.text);
    return lines;
}

TEST(DefinitionCheck, FindsNothingInGoodMessages) {
    test::Workbench bench;
    bench.read({"* a", "A: S1 F1 W H->E.", "* b", "B: S1 F2 H<-E", "    L 2", "        U1 3 ID 1",
                "        L 5V N", "            A 10 'x'", "    BOOLEAN 2 X T."});
    const std::string before = test::outline(bench.tree);
    EXPECT_THAT(findingsOf(bench.tree), IsEmpty());
    EXPECT_EQ(test::outline(bench.tree), before);
}

TEST(DefinitionCheck, ReportsEveryFaultWithItsPlace) {
    test::Workbench bench;
    bench.read({"* a", "A: S129 F256 H->E", "    Z 1 5", "    L 2", "        U1 1 ID -1", "        U1 1 id 1",
                "        L 3V", "    B 3 N 300 x 400.", "* b", "B: S1 F1 H->E", "    A 1 ID 'x'",
                "    A 1 a-b 'x'."});
    EXPECT_THAT(findingsOf(bench.tree),
                ElementsAre("A: : You must insert a positive number less than 128 in the stream",
                            "A: : You must insert a positive number less than 255 in the function",
                            "A: 1: Bad item type",
                            "A: 2: The count of sub items is not correct. Change the item count",
                            "A: 2/1: Insert unsigned integer for initial value.",
                            "A: 2/2: The name of this item be duplicated", "A: 2/3: Insert item name",
                            "A: 3: Insert binary for initial value.",
                            "A: 3: Insert binary for initial value..",
                            "B: 2: The name of this item is not correct"));
}

TEST(DefinitionCheck, WarnsOfWhatABuildLetsPass) {
    test::Workbench bench;
    bench.read({"* a", "A: S1 F1 H->E", "  U1 1 5.", "* b", "a: S1 F2", "    A x 'abc'", "    A 1 'x'",
                "        U1 1 5."});
    EXPECT_THAT(findingsOf(bench.tree), ElementsAre("warning: A: : This line belongs to no message: U1 1 5",
                                                    "warning: a: : The head has no direction",
                                                    "warning: a: : The name of this message is used twice",
                                                    "warning: a: 1: The item count is not a number",
                                                    "warning: a: 2: Only a list can have sub items"));
}

TEST(DefinitionCheck, ReportsTheNodeAndLeavesTheTreeAlone) {
    test::Workbench bench;
    bench.read({"* a", "A: S1 F1 H->E", "    U1 3 1", "    U1 1 -1."});
    const Findings findings = checkDefinitions(bench.tree, CodePage(1252));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].place.nodeIndex, 5);
    EXPECT_EQ(bench.tree.at(4)->text(), "U1 3 1");
    EXPECT_EQ(bench.tree.at(5)->backColor(), OptionalColor());
    EXPECT_EQ(bench.tree.selected(), nullptr);
}

TEST(DefinitionCheck, HugeCountsCostNothing) {
    test::Workbench bench;
    std::string text = "* a\r\nA: S1 F1 H->E\r\n";
    for (int i = 0; i < 2000; ++i)
        text += "    A 1000000 'x'\r\n    U1 2000000000 1\r\n";
    bench.read(text);
    EXPECT_THAT(findingsOf(bench.tree), IsEmpty());
}

TEST(DefinitionCheck, TheFirstErrorIsWhereTheCheckedWalkStops) {
    const std::vector<std::string> items{"U1 1 -1", "A 1 a-b 'x'", "L 2",      "Z 1",
                                         "L 5V",    "F4 1 N x",    "B 1 N 256"};
    for (const std::string& item : items) {
        test::Workbench bench;
        bench.read({"* a", "A: S1 F1 H->E", "    A 3 GOOD 'x'", "    " + item + "."});
        const Findings findings = checkDefinitions(bench.tree, bench.codePage);
        const WalkOutcome outcome = bench.walk(WalkMode::Modeler);
        ASSERT_TRUE(outcome.fault.has_value()) << item;
        ASSERT_FALSE(findings.empty()) << item;
        EXPECT_EQ(findings.front().place.nodeIndex, outcome.fault->nodeIndex) << item;
        std::string shown(outcome.fault->fault.text);
        if (const std::size_t lineEnd = shown.find("\r\n"); lineEnd != std::string::npos)
            shown.replace(lineEnd, 2, " ");
        EXPECT_EQ(findings.front().text, shown);
    }
}

} // namespace
} // namespace zb
