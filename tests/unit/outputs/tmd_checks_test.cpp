#include "modeler/tmd_checks.h"
#include "support/temporary_folder.h"
#include "unit/outputs/model_desk.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;
using test::ModelDesk;

constexpr const char* kMissing = "Select a valid SECSMessage!";
constexpr const char* kUnselected = "SECSMessage was not selected!";
constexpr const char* kDuplicated = "Default TRMessage was duplicated!";
constexpr const char* kNoItem = "Not defined SequenceItem!";

/// A model shown in its trees, over the SECS messages Hello, World and NONE.
class TmdChecksTest : public testing::TestWithParam<int> {
protected:
    TmdChecksTest() : desk_(GetParam()) {
        for (const char* text : {"Hello: S1 F1 H->E.", "World: S1 F3 H->E.", "NONE: S1 F5 H->E."})
            desk_.app().SECSMessageStore->addMessageText(std::string(text) + "\r\n");
    }

    int received() const { return GetParam() == 1 ? kToHost : kToEquip; }
    int sent() const { return GetParam() == 1 ? kToEquip : kToHost; }

    void show(Tree& tree, const std::string& root, int direction) {
        tree.replaceNodes();
        Node& top = tree.nodes().add(nullptr, Relation::Child, root);
        for (const auto& record : desk_.app().TRModelStore->TRMessages()) {
            if (record->Direction() != direction)
                continue;
            Node& node = tree.nodes().add(&top, Relation::Child, record->Name());
            tree.nodes().setKey(node, record->Name());
            for (const auto& item : record->TRItems())
                tree.nodes().setKey(tree.nodes().add(&node, Relation::Child, item->Name()),
                                    record->Name() + "_" + item->Name());
        }
    }

    bool check() {
        show(window().tvwRcvTRMsg, "Receive TRMessages", received());
        show(window().tvwSndTRMsg, "Send TRMessages", sent());
        return checks().checkTRMessages();
    }

    TmdChecks checks() {
        return TmdChecks(desk_.app(), window(),
                         [this] { boxesBeforeModeler_ = desk_.screen().boxes.size(); });
    }

    frmTRModeler& window() { return desk_.app().frmTRModeler; }

    /// The texts of all red nodes and rows.
    std::set<std::string> marked() {
        std::set<std::string> texts;
        for (Tree* tree : {&window().tvwRcvTRMsg, &window().tvwSndTRMsg}) {
            for (int index = 1; const Node* node = tree->nodes().at(index); ++index) {
                if (node->foreColor() == kErrorForeColor)
                    texts.insert(node->text());
            }
        }
        for (const auto& row : window().lvwSequence.rows()) {
            if (row->foreColor() == kErrorForeColor)
                texts.insert(row->text());
        }
        return texts;
    }

    void expectBox(const std::string& text) {
        ASSERT_EQ(desk_.screen().boxes.size(), 1U);
        const Box& box = desk_.screen().boxes.front();
        EXPECT_EQ(box.text, text);
        EXPECT_TRUE(box.title.empty() || box.title == kApplicationTitle) << box.title;
        EXPECT_EQ(box.icon, BoxIcon::Critical);
        EXPECT_EQ(box.buttons, BoxButtons::OK);
    }

    using Names = std::set<std::string>;
    ModelDesk desk_;
    std::optional<std::size_t> boxesBeforeModeler_;
};

TEST_P(TmdChecksTest, PassASoundModelInSilence) {
    desk_.add("A", received(), "Hello", "(a)");
    desk_.add("B", received(), "hello");
    desk_.add("C", received(), "World");
    desk_.add("D", sent(), "World");
    desk_.add("E", sent(), "World");
    EXPECT_TRUE(check());
    EXPECT_TRUE(desk_.screen().boxes.empty());
    EXPECT_FALSE(boxesBeforeModeler_);
    EXPECT_EQ(marked(), Names{});
}

TEST_P(TmdChecksTest, MarkEachMessageOfAnUnknownSECSMessage) {
    desk_.add("Good", received(), "Hello");
    desk_.add("Lost", received(), "Gone");
    desk_.add("Blank", sent(), "  ");
    desk_.add("Empty", sent(), "");
    desk_.add("Nowhere", 3, "Gone");
    desk_.add("Default", received(), "Hello");
    EXPECT_FALSE(check());
    expectBox(kMissing);
    EXPECT_EQ(boxesBeforeModeler_, 0U);
    EXPECT_EQ(marked(), (Names{"Lost", "Blank", "Empty"}));
}

TEST_P(TmdChecksTest, ReportAMessageOfNoDirectionWithoutAMark) {
    desk_.add("Nowhere", 0, "Gone");
    EXPECT_FALSE(check());
    expectBox(kMissing);
    EXPECT_EQ(marked(), Names{});
}

TEST_P(TmdChecksTest, TakeASECSMessageNamedNoneAsNotSelected) {
    desk_.add("A", received(), "NONE");
    desk_.add("B", sent(), "NONE");
    desk_.add("C", received(), "none");
    EXPECT_FALSE(check());
    expectBox(kUnselected);
    EXPECT_EQ(boxesBeforeModeler_, 0U);
    EXPECT_EQ(marked(), (Names{"A", "B"}));
}

TEST_P(TmdChecksTest, MarkTheFirstTwoDefaultsOfASECSMessage) {
    desk_.add("Other", received(), "World");
    desk_.add("First", received(), "Hello", "NONE");
    desk_.add("Between", received(), "Hello", "(b)");
    desk_.add("Second", received(), "HELLO", " NONE ");
    desk_.add("Third", received(), "Hello", "   ");
    desk_.add("AlsoTwice", received(), "World");
    EXPECT_FALSE(check());
    expectBox(kDuplicated);
    EXPECT_EQ(boxesBeforeModeler_, 0U);
    EXPECT_EQ(marked(), (Names{"First", "Second"}));
}

TEST_P(TmdChecksTest, MarkTheDuplicatesAfterTheBox) {
    desk_.add("First", received(), "Hello");
    desk_.add("Second", received(), "Hello");
    Names marksAtBox{"not asked"};
    desk_.screen().onBox = [&] { marksAtBox = marked(); };
    EXPECT_FALSE(check());
    EXPECT_EQ(marksAtBox, Names{});
    EXPECT_EQ(marked(), (Names{"First", "Second"}));
}

TEST_P(TmdChecksTest, MarkEveryReceivedNodeThatReadsLikeADuplicate) {
    ModelDesk::addItem(desk_.add("Other", received(), "World", "(o)"), "First");
    desk_.add("First", received(), "Hello");
    desk_.add("Second", received(), "Hello");
    EXPECT_FALSE(check());
    const Node* item = window().tvwRcvTRMsg.nodes().find("Other_First");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->foreColor(), kErrorForeColor);
}

TEST_P(TmdChecksTest, AnswerOneByOne) {
    desk_.add("A", received(), "NONE");
    show(window().tvwRcvTRMsg, "Receive TRMessages", received());
    TmdChecks all = checks();
    EXPECT_FALSE(all.checkSECSMessageMissing());
    EXPECT_TRUE(all.checkSECSMessageUnselected());
    EXPECT_TRUE(desk_.screen().boxes.empty());
}

TEST_P(TmdChecksTest, LetSentMessagesShareASECSMessage) {
    desk_.add("A", sent(), "Hello");
    desk_.add("B", sent(), "Hello");
    EXPECT_TRUE(check());
}

TEST_P(TmdChecksTest, EndWithoutAWordAtASecondDefaultAfterOneWithoutAName) {
    desk_.add(" ", received(), "Hello");
    desk_.add("B", received(), "Hello");
    EXPECT_FALSE(check());
    EXPECT_TRUE(desk_.screen().boxes.empty());
}

TEST_P(TmdChecksTest, LeaveOlderMarksStanding) {
    desk_.add("A", received(), "Hello");
    ASSERT_TRUE(check());
    window().tvwRcvTRMsg.nodes().find("A")->setForeColor(kErrorForeColor);
    EXPECT_TRUE(checks().checkTRMessages());
    EXPECT_EQ(marked(), Names{"A"});
}

TEST_P(TmdChecksTest, MarkTheMessageWhereAnItemHasItsKey) {
    ModelDesk::addItem(desk_.add("A", received(), "World", "(a)"), "B");
    desk_.add("A_B", received(), "Gone");
    EXPECT_FALSE(check());
    EXPECT_EQ(marked(), Names{"A_B"});
}

TEST_P(TmdChecksTest, MarkEachSequenceWithoutItems) {
    desk_.addHead("First");
    desk_.addHead("Full");
    desk_.addRow("1", "ToHost", "Gone");
    desk_.addHead("Last");
    EXPECT_FALSE(checks().checkSequences());
    expectBox(kNoItem);
    EXPECT_FALSE(boxesBeforeModeler_);
    EXPECT_EQ(marked(), (Names{"First", "Last"}));
}

TEST_P(TmdChecksTest, PassSequencesWithRowsAndNoneAtAll) {
    EXPECT_TRUE(checks().checkSequences());
    desk_.addRow("1", "ToHost", "Before");
    desk_.addHead("Full");
    desk_.addRow("1", "ToHost", "Gone");
    EXPECT_TRUE(checks().checkSequences());
    EXPECT_TRUE(desk_.screen().boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(EachSide, TmdChecksTest, testing::Values(1, 2),
                         [](const auto& row) { return row.param == 1 ? "Host" : "Equipment"; });

class BuildTmd : public testing::Test {
protected:
    BuildTmd() {
        fs::create_directories(folder_ / "ZeltoInfo");
        app().ProjectName = "Line";
        app().ProjectPath = folder_.path().string();
        app().SECSMessageStore->addMessageText("Hello: S1 F1 H->E.\r\n");
        path_ = app().tmdFilePath();
        test::writeFile(path_, "old");
    }
    Application& app() { return desk_.app(); }

    test::TemporaryFolder folder_;
    ModelDesk desk_;
    std::string path_;
};

TEST_F(BuildTmd, WithoutAModelIsASuccessThatTouchesNothing) {
    EXPECT_TRUE(app().builds.buildTmd());
    app().TRModelStore.reset();
    EXPECT_TRUE(app().builds.buildTmd());
    EXPECT_EQ(test::readFile(path_), "old");
}

TEST_F(BuildTmd, WritesTheFile) {
    desk_.add("A", kToEquip, "Hello");
    EXPECT_TRUE(app().builds.buildTmd());
    EXPECT_NE(test::readFile(path_).find("<Hello>"), std::string::npos);
    EXPECT_TRUE(desk_.screen().boxes.empty());
}

TEST_F(BuildTmd, LeavesTheFileEmptyWhenACheckFails) {
    desk_.add("A", kToEquip, "Hello");
    desk_.addHead("NoRows");
    EXPECT_FALSE(app().builds.buildTmd());
    EXPECT_EQ(test::readFile(path_), "");
}

// Deletes nothing.
class Unremovable final : public SystemFileLayer {
public:
    Result<void> remove(const fs::path& /*path*/) override { return systemError(EPERM); }
};

TEST_F(BuildTmd, SaysNothingOfAFileThatCannotBeDeleted) {
    ModelDesk desk(2, std::make_unique<Unremovable>());
    desk.app().ProjectName = "Line";
    desk.app().ProjectPath = folder_.path().string();
    desk.app().SECSMessageStore->addMessageText("Hello: S1 F1 H->E.\r\n");
    desk.add("A", kToEquip, "Hello");
    EXPECT_TRUE(desk.app().builds.buildTmd());
    EXPECT_TRUE(desk.screen().boxes.empty());
    EXPECT_EQ(test::readFile(path_), "");
}

TEST_F(BuildTmd, ReportsWhenTheFileCannotBeWritten) {
    fs::remove(path_);
    fs::create_directories(path_);
    desk_.add("A", kToEquip, "Gone");
    EXPECT_FALSE(app().builds.buildTmd());
    ASSERT_EQ(desk_.screen().boxes.size(), 1U);
    EXPECT_EQ(desk_.screen().boxes.front().text, "Is a directory(21)");
}

} // namespace
} // namespace zb
