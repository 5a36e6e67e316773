#include "controls/user_hands.h"
#include "editor/find_terms.h"
#include "unit/shell/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb::test {
namespace {

using testing::ElementsAre;

TEST(FindTerms, TheLatestComesFirstAndEachIsThereOnce) {
    SettingsStore settings = SettingsStore::inMemory();
    FindTerms terms(settings);
    EXPECT_THAT(terms.all(), ElementsAre());
    for (const char* term : {"S1F1", "[!0]", "S1F1", "", "two words"})
        terms.remember(term);
    EXPECT_THAT(FindTerms(settings).all(), ElementsAre("two words", "S1F1", "[!0]"));
}

TEST(FindTerms, TheOldestOnesAreForgotten) {
    SettingsStore settings = SettingsStore::inMemory();
    FindTerms terms(settings);
    const std::string text(100, 'x');
    for (int i = 1; i <= 30; ++i)
        terms.remember(text + std::to_string(i));
    EXPECT_EQ(terms.all().size(), FindTerms::kMost);
    EXPECT_EQ(terms.all().front(), text + "30");
    EXPECT_EQ(terms.all().back(), text + "11");
}

TEST(FindTerms, UpAndDownWalkThroughThemAndBackToWhatWasTyped) {
    SettingsStore settings = SettingsStore::inMemory();
    FindTerms terms(settings);
    terms.remember("old");
    terms.remember("new");
    TermWalk walk;
    EXPECT_EQ(walk.step(terms, false, "typed"), "typed");
    EXPECT_EQ(walk.step(terms, true, "typed"), "new");
    EXPECT_EQ(walk.step(terms, true, "new"), "old");
    EXPECT_EQ(walk.step(terms, true, "old"), "old");
    EXPECT_EQ(walk.step(terms, false, "old"), "new");
    EXPECT_EQ(walk.step(terms, false, "new"), "typed");
}

TEST(FindTerms, TheWindowRemembersForTheNextRun) {
    SystemFileLayer files;
    Program program(files);
    program.application.start({});
    frmFind& find = program.application.frmFind;
    UserHands hands(program.application.desktop);
    find.showFind();
    hands.type(find.txtFindWhat, "S6");
    hands.click(Target::whole(find.cmdFindNext));
    hands.close(find);
    find.showFind();
    EXPECT_EQ(find.txtFindWhat.text(), "");
    EXPECT_FALSE(find.cmdFindNext.enabled());
    hands.key(find.txtFindWhat, {kKeyUp, 0});
    EXPECT_EQ(find.txtFindWhat.text(), "S6");
    EXPECT_TRUE(find.cmdFindNext.enabled());
    EXPECT_THAT(FindTerms(program.settings).all(), ElementsAre("S6"));
}

} // namespace
} // namespace zb::test
