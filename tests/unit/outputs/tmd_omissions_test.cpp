#include "outputs/tmd_omissions.h"

#include "unit/outputs/model_desk.h"

#include <gmock/gmock.h>

namespace zb::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> omissions(ModelDesk& desk) {
    const ProjectView view = desk.app().view();
    return omissionsOf(composeTmd(*view.model, desk.app().ProjectType, view.sequences), view);
}

TEST(TmdOmissions, AWholeModelLeavesNothingOut) {
    ModelDesk desk;
    ModelDesk::addItem(desk.add("First", kToEquip, "Hello"), "A");
    desk.add("Say", kToHost, "World");
    desk.addHead("Good");
    desk.addRow("1", "", "First");
    EXPECT_THAT(omissions(desk), IsEmpty());
}

TEST(TmdOmissions, EachKindIsCounted) {
    ModelDesk desk;
    TRMessageRecord& first = desk.add("First", kToEquip, "Hello");
    ModelDesk::addItem(first, "A");
    ModelDesk::addItem(first, "b c");
    desk.add("a:b", kToEquip, "Hello", "(b)");
    desk.add("Say", kToHost, "World");
    desk.addHead("no name");
    desk.addRow("1", "", "First");
    EXPECT_THAT(omissions(desk), ElementsAre("1 of 2 received messages", "0 of 1 sent messages",
                                             "1 of 2 items of received messages", "0 of 1 sequences",
                                             "0 of 1 rows of sequences"));
}

TEST(TmdOmissions, TheOtherSideIsCountedByItsOwnDirections) {
    ModelDesk desk(1);
    desk.add("Said", kToHost, "Hello");
    desk.add("no name", kToEquip, "World");
    EXPECT_THAT(omissions(desk), ElementsAre("0 of 1 sent messages"));
}

TEST(TmdOmissions, AStatementThatIsMissingIsCounted) {
    ModelDesk desk;
    desk.add("First", kToEquip, "Hello");
    desk.add("Second", kToEquip, "2nd");
    EXPECT_THAT(omissions(desk), ElementsAre("1 of 2 dispatch statements"));
}

} // namespace
} // namespace zb::test
