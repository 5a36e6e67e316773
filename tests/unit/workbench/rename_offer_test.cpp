#include "workbench/rename_offer.h"

#include "controls/user_hands.h"
#include "messages/message_nodes.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zb::test {
namespace {

/// Messages M0, M1 and so on, and a TR message for each.
struct RenameOfferTest : testing::Test {
    RenameOfferTest() {
        application.start({});
        application.ProjectName = "P";
        application.frmTRModeler.newModelerProject();
        for (int number = 0; number < kMessages; ++number) {
            const std::string name = "M" + std::to_string(number);
            addMessageNodes(editor.liveTree(), nullptr, name, name + ": S1 F1 H->E", "");
            auto record = std::make_unique<TRMessageRecord>();
            record->setName("TR" + std::to_string(number));
            record->setSECSMessage(name);
            record->setDirection(kToHost);
            application.TRModelStore->addTRMessage(std::move(record));
        }
        application.showEditor();
    }
    void rename(const std::string& pattern) {
        std::vector<Node*> all;
        for (Node* root = editor.liveTree().firstRoot(); root != nullptr; root = root->next()) {
            if (root->text().find(':') != std::string::npos)
                all.push_back(root);
        }
        editor.liveTree().select(all.front());
        editor.markedNodes.set(all);
        EXPECT_EQ(editor.markedChanges.rename(pattern), "");
    }
    std::string secsMessageOf(const std::string& name) const {
        return application.TRModelStore->getTRMessage(name)->SECSMessage();
    }

    static constexpr int kMessages = 8;
    SystemFileLayer files;
    Program program{files};
    Application& application = program.application;
    frmSECSEditor& editor = application.frmSECSEditor;
    frmWorkbench& workbench = application.frmWorkbench;
    UserHands hands{application.desktop};
};

TEST_F(RenameOfferTest, NamesAFewOfManyMessages) {
    rename("R{name}");
    EXPECT_EQ(workbench.notices.lblNotice.text(), "8 TR messages still name M0, M1, M2, M3, M4 and 3 others");
}

TEST_F(RenameOfferTest, FollowsAllRenamesOfSeveralSteps) {
    rename("R{name}");
    rename("{name}_2");
    hands.click(Target::whole(workbench.notices.cmdNotice[0]));
    EXPECT_EQ(workbench.notices.lblNotice.text(), "8 TR messages renamed");
    EXPECT_EQ(secsMessageOf("TR0"), "RM0_2");
    EXPECT_EQ(secsMessageOf("TR7"), "RM7_2");
}

TEST_F(RenameOfferTest, FollowsNamesThatChangePlaces) {
    rename("R{name}");
    editor.messagePane.onRenamed({{"RM0", "X"}, {"RM1", "RM0"}});
    Node* first = editor.liveTree().find("RM0");
    Node* second = editor.liveTree().find("RM1");
    editor.liveTree().setKey(*first, "X");
    editor.liveTree().setKey(*second, "RM0");
    hands.click(Target::whole(workbench.notices.cmdNotice[0]));
    EXPECT_EQ(secsMessageOf("TR0"), "X");
    EXPECT_EQ(secsMessageOf("TR1"), "RM0");
}

} // namespace
} // namespace zb::test
