#include "lint/live_messages.h"
#include "lint/live_model.h"
#include "lint/project_check.h"
#include "messages/message_store.h"
#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "model/tr_model_store.h"
#include "project/project_messages.h"
#include "project/project_text.h"
#include "project/project_view.h"
#include "unit/lint/checked_project.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace zb::test {
namespace {

using Places = std::multiset<std::string>;

Places placesIn(const Findings& findings) {
    const auto places = placesOf(findings);
    return {places.begin(), places.end()};
}

/// Without the messages: of two with one name either may be the one that is reported.
Places kindsIn(const Findings& findings) {
    Places kinds;
    for (const Finding& finding : findings)
        kinds.insert(finding.id + " " + finding.place.item);
    return kinds;
}

class LiveMessagesTest : public ::testing::Test {
protected:
    explicit LiveMessagesTest(bool standard = true) : standard_(standard) {
        live.onChange = [this](const Findings& gone, const Findings& come) {
            count += std::ssize(come) - std::ssize(gone);
        };
        tree.setListener(&live);
    }

    void read(std::string_view text) {
        readSmdSection(tree, text);
        live.restart(tree, CodePage(1252), standard_);
        finish();
    }

    int finish() {
        int pieces = 0;
        for (; !live.isDone(); ++pieces)
            live.checkNext();
        return pieces;
    }

    Findings found() const {
        Findings findings;
        live.visit([&](const Node&, const Finding& finding) {
            findings.push_back(finding);
            return true;
        });
        return findings;
    }

    Findings expected() const {
        const SECSMessageStore none;
        const Sequences sequences;
        return checkProject(tree, {Side::Host, none, nullptr, sequences}, CodePage(1252), standard_).messages;
    }

    void expectSame(const std::string& what) {
        finish();
        EXPECT_EQ(placesIn(found()), placesIn(expected())) << what;
        EXPECT_EQ(count, std::ssize(found())) << what;
    }

    NodeTree tree;
    LiveMessages live{CodePage(1252)};
    std::ptrdiff_t count = 0;
    bool standard_;
};

constexpr const char* kMessages =
    "* d\nAsk: S1 F17 W H->E.\n* d\nAnswer: S1 F18 H<-E\n    B 1 ONLACK 0.\n"
    "* d\nOne: S6 F11 W H<-E\n    L 3\n        U4 1 DATAID 0\n        U4 1 CEID 1 [K]\n        L 0.\n"
    "* d\nTwo: S6 F11 W H<-E\n    L 3\n        U4 1 DATAID 0\n        U4 1 CEID 2 [K]\n        L 0.\n"
    "* d\nTaken: S6 F12 H->E\n    B 1 ACKC6 0.\n";

TEST_F(LiveMessagesTest, FindTheSameAsACheckOfTheWholeProject) {
    read(kMessages);
    const auto change = [&](const char* message, int item, const char* text) {
        Node* node = tree.find(message);
        Node* changed = item == 0 ? node : tree.at(node->index() + item);
        changed->setText(text);
        expectSame(text);
    };
    expectSame("at first");
    EXPECT_TRUE(found().empty());
    change("Answer", 0, "Answer: S2 F18 H<-E");
    EXPECT_FALSE(found().empty());
    change("Answer", 0, "Answer: S1 F18 H<-E");
    change("Two", 3, "U4 1 CEID 1 [K]");
    change("One", 3, "U4 1 CEID 1");
    change("Two", 3, "U4 1 CEID 2");
    change("One", 0, "One: S6 F13 W H<-E");
    change("Taken", 0, "Taken: S6 F14 H->E");
    change("One", 0, "One: S6 F11 W H<-E");
    change("Ask", 0, "Ask: S1 F17 H<-E");
    change("Ask", 0, "Ask: SX F17 H<-E");
    change("Two", 3, "U4 2X CEID 2 [K]");
    change("Two", 0, "One: S6 F11 W H<-E");
    change("Two", 0, "No message");
    change("Two", 0, "Two: S6 F11 W H<-E");
}

TEST_F(LiveMessagesTest, CheckOnlyWhatAChangeConcerns) {
    std::string text;
    for (int number = 1; number <= 500; ++number)
        text += "* d\nM" + std::to_string(number) + ": S" + std::to_string(64 + number % 50) + " F" +
                std::to_string(1 + number / 50 * 2) + " H<-E\n    U1 1 SLOT 1.\n";
    read(text);
    Node* message = tree.find("M250");
    message->child()->setText("U1 1 SLOT 2");
    EXPECT_EQ(finish(), 1);
    message->child()->setText("U1 1 SLOT 999");
    EXPECT_EQ(finish(), 1);
    EXPECT_EQ(placesIn(found()), Places{"smd.value.range: M250: 1"});
    message->setText("M250: S64 F1 H<-E");
    EXPECT_LE(finish(), 6); // the message itself, and those of its old and new function
}

TEST_F(LiveMessagesTest, TheStepsThatAreLeftComeDownToNone) {
    readSmdSection(tree, kMessages);
    live.restart(tree, CodePage(1252), false);
    const std::size_t atFirst = live.stepsLeft();
    const int pieces = finish();
    EXPECT_LE(atFirst, static_cast<std::size_t>(pieces));
    EXPECT_GE(atFirst + 4, static_cast<std::size_t>(pieces));
    EXPECT_EQ(live.stepsLeft(), 0U);
    tree.find("One")->child()->setText("L 9");
    EXPECT_EQ(live.stepsLeft(), 1U);
    finish();
    EXPECT_EQ(live.stepsLeft(), 0U);
}

TEST_F(LiveMessagesTest, SeveralPiecesMakeTheFirstCheck) {
    readSmdSection(tree, kMessages);
    live.restart(tree, CodePage(1252), true);
    live.checkNext();
    live.checkNext();
    tree.find("Answer")->setText("Answer: S2 F18 H<-E");
    tree.remove(*tree.find("One"));
    live.checkNext();
    tree.add(nullptr, Relation::Last, "Last: S1 F1 H->E");
    expectSame("changed on the way");
}

class AnyMessageChange : public LiveMessagesTest, public ::testing::WithParamInterface<unsigned> {
protected:
    AnyMessageChange() : LiveMessagesTest(GetParam() % 4 != 0), random_(GetParam()) {}

    std::size_t upTo(std::size_t choices) {
        return std::uniform_int_distribution<std::size_t>(0, choices - 1)(random_);
    }
    Node* anyNode() { return tree.at(static_cast<int>(upTo(tree.count())) + 1); }

    void changeAnything() {
        static constexpr std::array kTexts{"Ask: S1 F17 W H->E",
                                           "One: S6 F11 W H<-E",
                                           "Two: S6 F11 H<-E",
                                           "Taken: S6 F12 H->E",
                                           "Odd: SX F300",
                                           "d",
                                           "U4 1 CEID 1 [K]",
                                           "U4 1 CEID 2 [K]",
                                           "U4 1 CEID 2",
                                           "L 2",
                                           "L 4V",
                                           "U1 1 SLOT 999",
                                           "A 2 LOT-ID 'abc'",
                                           "B 1 ACKC6 9",
                                           ""};
        Node* node = anyNode();
        const char* text = kTexts[upTo(kTexts.size())];
        switch (upTo(6)) {
        case 0:
        case 1:
        case 2:
            node->setText(text);
            break;
        case 3:
            tree.add(node, Relation::Next, text);
            break;
        case 4:
            tree.add(node, Relation::Child, text);
            break;
        default:
            if (tree.count() > 6)
                removeOrBringBack(*node);
        }
    }

private:
    void removeOrBringBack(Node& node) {
        if (upTo(2) == 0) {
            tree.remove(node);
            return;
        }
        NodeBranch branch = tree.detach(node);
        for (std::size_t pieces = upTo(3); pieces > 0 && !live.isDone(); --pieces)
            live.checkNext();
        tree.attach(std::move(branch));
    }

    std::minstd_rand random_;
};

TEST_P(AnyMessageChange, LeavesWhatACheckOfTheWholeProjectFinds) {
    read(kMessages);
    for (int action = 0; action < 400; ++action) {
        changeAnything();
        for (std::size_t pieces = upTo(4); pieces > 0 && !live.isDone(); --pieces)
            live.checkNext();
        if (action % 8 != 0)
            continue;
        finish();
        ASSERT_EQ(kindsIn(found()), kindsIn(expected())) << "after action " << action;
        ASSERT_EQ(count, std::ssize(found())) << "after action " << action;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyMessageChange, ::testing::Range(1U, 13U));

struct LiveModelTest : ::testing::Test {
    void open(std::string_view modelAndSequences) {
        project = parseProject(projectOf(kModelMessages, modelAndSequences));
        project.messages.fill(tree);
        project.model->onTouched = [this](const std::string& name) { live.touch(name); };
        live.onChange = [this](const Findings& gone, const Findings& come) {
            count += std::ssize(come) - std::ssize(gone);
        };
        live.restart({&tree, project.model.get(), &project.sequences, 2}, CodePage(1252), true);
    }

    Findings found() {
        while (!live.isDone())
            live.checkNext();
        Findings findings;
        live.visit([&](const Finding& finding) {
            findings.push_back(finding);
            return true;
        });
        return findings;
    }

    void expectSame(const std::string& what) {
        SECSMessageStore messages;
        SmdWriter(CodePage(1252)).buildMessageText(WalkMode::SaveProject, tree, messages);
        const Findings expected = checkProject(tree, viewOf(project, messages), CodePage(1252), true).model;
        EXPECT_EQ(placesIn(found()), placesIn(expected)) << what;
        EXPECT_EQ(count, std::ssize(expected)) << what;
    }

    static constexpr const char* kModelMessages =
        "* d\nStart: S2 F41 W H->E\n    L 2\n        A 5 RCMD 'START' [K]\n        L 1\n            L 2\n"
        "                A 4 CPNAME 'PORT'\n                U1 1 CPVAL 1.\n"
        "* d\nDone: S2 F42 H<-E\n    L 2\n        B 1 HCACK 0\n        L 0.\n";

    Project project;
    NodeTree tree;
    LiveModel live{CodePage(1252)};
    std::ptrdiff_t count = 0;
};

TEST_F(LiveModelTest, FindsTheSameAsACheckOfTheWholeProject) {
    open("###[TRANSACTION MODEL] 1\n"
         "## [TR MESSAGE] First\n  SECSMessage Start\n  Condition ({RCMD} == 'START')\n  Report True\n"
         "  Direction 2\nEndTRMessage\n"
         "## [TR MESSAGE] Any\n  SECSMessage Start\n  Report False\n  Direction 2\nEndTRMessage\n");
    expectSame("at first");
    TRModelStore& model = *project.model;
    model.changeTRMessage("Any")->setCondition("({RCMD} == 'START')");
    expectSame("the same condition twice");
    EXPECT_EQ(count, 1);
    model.changeTRMessage("Any")->setSECSMessage("Nothing");
    expectSame("an unknown SECS message");
    model.changeTRMessage("Any")->setSECSMessage("start");
    model.changeTRMessage("First")->setCondition("");
    expectSame("a default in front");
    std::unique_ptr<TRMessageRecord> taken = model.takeAt(0);
    expectSame("removed");
    model.insertAt(0, std::move(taken));
    expectSame("put back");
    Node* item = tree.find("Start")->child()->child();
    item->setText("A 5 COMMAND 'START' [K]");
    live.touchDefinition("START");
    expectSame("an item was renamed");
    EXPECT_GT(count, 0);
    model.deleteTRMessage("First");
    model.deleteTRMessage("Any");
    expectSame("empty");
    EXPECT_EQ(count, 0);
}

// Their order decides which of them the driver chooses.
TEST_F(LiveModelTest, ATRMessageThatMovesIsCheckedInItsNewPlace) {
    open(
        "###[TRANSACTION MODEL] 1\n"
        "## [TR MESSAGE] First\n  SECSMessage Start\n  Condition ({RCMD} == 'START')\n  Direction 2\nEndTRMessage\n"
        "## [TR MESSAGE] Any\n  SECSMessage Start\n  Direction 2\nEndTRMessage\n");
    expectSame("at first");
    const std::ptrdiff_t atFirst = count;
    TRModelStore& model = *project.model;
    model.insertAt(1, model.takeAt(0));
    expectSame("the default comes first");
    EXPECT_GT(count, atFirst);
    model.insertAt(1, model.takeAt(0));
    expectSame("moved back");
    EXPECT_EQ(count, atFirst);
}

TEST_F(LiveModelTest, SequencesAreCheckedWhenTheyDiffer) {
    open("###[TRANSACTION MODEL] 1\n"
         "## [TR MESSAGE] Any\n  SECSMessage Start\n  Report False\n  Direction 2\nEndTRMessage\n");
    expectSame("at first");
    live.touchSequences();
    EXPECT_TRUE(live.isDone());
    project.sequences.addSequence("Run");
    live.touchSequences();
    expectSame("an empty sequence");
    EXPECT_EQ(count, 1);
    project.sequences.insertItem(0, "ToEquip", "Any");
    live.touchSequences();
    expectSame("a row");
    project.model->deleteTRMessage("Any");
    expectSame("its TR message has gone");
}

} // namespace
} // namespace zb::test
