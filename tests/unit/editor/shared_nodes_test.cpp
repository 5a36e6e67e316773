#include "editor/shared_nodes.h"

#include "unit/editor/tree_commands_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

class LastNotice final : public Notices {
public:
    void post(Notice notice) override {
        text = notice.text;
        actions = std::move(notice.actions);
    }
    void withdraw(std::string_view /*topic*/) override {}
    std::string text;
    std::vector<NoticeAction> actions;
};

class SharedNodesTest : public TreeCommandsTest {
public:
    SharedNodesTest() { window.desktop().showNoticesIn(&notices); }
    ~SharedNodesTest() override { window.desktop().showNoticesIn(nullptr); }
    std::string names() const {
        std::string all;
        for (const std::string& name : window.cboSECSMessage.entries())
            all += name + " ";
        return all;
    }
    LastNotice notices;
};

TEST_F(SharedNodesTest, SmlOfAMailIsAdded) {
    window.sharedNodes.pasteText(
        "S6F11 W\r\n<L [2]\r\n  <U4 1>\r\n  <A \"abc\">\r\n>\r\n.\r\nS6F12\r\n<B 0x00>\r\n.\r\n");
    EXPECT_EQ(names(), "S6F11 S6F12 ");
    EXPECT_EQ(notices.text, "2 messages pasted");
    Node* list = tree().find("S6F11")->child();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->children(), 2);
    EXPECT_EQ(tree().selected(), tree().find("S6F11")) << "the first one, which comes into view";
    expectNoBox();
}

TEST_F(SharedNodesTest, AllThatWasFoundInATextIsReportedAndANoticeShowsIt) {
    Findings found;
    bool shown = false;
    window.sharedNodes.onFindings = [&](const Findings& findings) { found = findings; };
    window.sharedNodes.onShow = [&] { shown = true; };
    window.sharedNodes.pasteText("S1F1 W.\r\nS1F2\r\n<Q 1>\r\n.\r\nS1F3 W\r\n<Z 2>\r\n.\r\n");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found.front().place.message, SharedNodes::kPastedText);
    EXPECT_EQ(found.back().place.line, 6U);
    ASSERT_EQ(notices.actions.size(), 1U);
    notices.actions.front().run();
    EXPECT_TRUE(shown);
    window.sharedNodes.pasteText("S1F5 W.\r\n");
    EXPECT_TRUE(found.empty());
    EXPECT_TRUE(notices.actions.empty());
    window.sharedNodes.pasteText("S1F7\r\n<Q 1>\r\n.\r\n");
    EXPECT_EQ(found.size(), 1U);
    window.sharedNodes.pasteText("S1F9");
    EXPECT_TRUE(found.empty()) << "what was found in an earlier text";
}

TEST_F(SharedNodesTest, OfAListTheLibraryGivesWhatItHas) {
    window.sharedNodes.pasteText("S1F1, S99F1 s99f2");
    ASSERT_NE(tree().find("S99F1"), nullptr);
    EXPECT_EQ(tree().find("S99F1")->text(), "S99F1: S99 F1 W H<->E");
    EXPECT_EQ(tree().find("S99F2")->text(), "S99F2: S99 F2 H<->E");
    EXPECT_GT(tree().count(), 6U);
    EXPECT_EQ(notices.text.find("not"), std::string::npos) << notices.text;
}

TEST_F(SharedNodesTest, WhatCannotBeReadIsSaid) {
    window.sharedNodes.pasteText("Dear colleague, see the manual.");
    EXPECT_EQ(tree().count(), 0U);
    EXPECT_NE(notices.text, "");
    window.sharedNodes.pasteText("S1F1 W\r\n<Q 1>\r\n.\r\nS1F3 W\r\n.\r\n");
    EXPECT_EQ(notices.text.find("1 message pasted, 1 not: line 2: "), 0U) << notices.text;
}

TEST_F(SharedNodesTest, ANameThatIsTakenIsLeftOut) {
    window.sharedNodes.pasteText("S99F1");
    window.sharedNodes.pasteText("S99F1, S99F3");
    EXPECT_EQ(names(), "S99F1 S99F3 ");
    EXPECT_EQ(notices.text, "1 message pasted, 1 not: their names are taken");
}

} // namespace
} // namespace zb
