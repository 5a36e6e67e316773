#include "lint/condition_reach.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zb {
namespace {

Reach reach(const std::string& text, const std::vector<std::string>& earlierTexts) {
    std::vector<Condition> earlier;
    earlier.reserve(earlierTexts.size());
    for (const std::string& other : earlierTexts)
        earlier.push_back(Condition::parse(other));
    std::vector<const Condition*> pointers;
    pointers.reserve(earlier.size());
    for (const Condition& condition : earlier)
        pointers.push_back(&condition);
    return reachOf(Condition::parse(text), pointers);
}

TEST(ConditionReach, ANarrowerConditionIsCovered) {
    EXPECT_EQ(reach("(({A} == 1) and ({B} == 2))", {"({A} == 1)"}), Reach::Covered);
    EXPECT_EQ(reach("({A} == 1)", {"(({A} == 1) and ({B} == 2))"}), Reach::Open);
}

TEST(ConditionReach, SeveralConditionsCoverTogether) {
    EXPECT_EQ(reach("(({A} == 1) or ({A} == 2))", {"({A} == 1)", "({A} == 2)"}), Reach::Covered);
    EXPECT_EQ(reach("(({A} == 1) or ({A} == 3))", {"({A} == 1)", "({A} == 2)"}), Reach::Open);
    EXPECT_EQ(reach("({B} == 5)", {"({A} == 1)", "({A} != 1)"}), Reach::Covered);
}

TEST(ConditionReach, UnequalValuesAreOpenToOtherValues) {
    EXPECT_EQ(reach("({A} != 1)", {"({A} == 2)"}), Reach::Open);
    EXPECT_EQ(reach("({A} == 2)", {"({A} != 1)"}), Reach::Covered);
}

TEST(ConditionReach, EqualComparisonsCoverEachOther) {
    EXPECT_EQ(reach("({A} == 1)", {"({A} == 1)"}), Reach::Covered);
    EXPECT_EQ(reach("({A} == '1')", {"({A} == 1)"}), Reach::Covered);
    EXPECT_EQ(reach("({A} == 1)", {"({A} == 2)"}), Reach::Open);
    EXPECT_EQ(reach("({A} == 1)", {"({B} == 1)"}), Reach::Open);
}

TEST(ConditionReach, AContradictionNeverHolds) {
    EXPECT_EQ(reach("(({A} == 1) and ({A} == 2))", {}), Reach::Never);
    EXPECT_EQ(reach("(({A[1]} == 1) and ({A[2]} == 2))", {}), Reach::Open);
}

TEST(ConditionReach, NothingIsSaidOfWhatIsTooComplex) {
    std::string text = "({I0} == 0)";
    for (int item = 1; item < 40; ++item) {
        const std::string name = std::to_string(item);
        text.insert(0, 1, '(').append(" and ({I" + name + "} == 0))");
    }
    EXPECT_EQ(reach(text, {"({I0} == 0)", "({I1} == 0)"}), Reach::Open);
    EXPECT_EQ(reach("no condition", {"({A} == 1)"}), Reach::Open);
}

} // namespace
} // namespace zb
