#include "workbench/frm_rehearsal.h"

#include "controls/user_hands.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "unit/shell/program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace zb::test {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr int kDeviationKey = 118; // F7
const std::string kEtcher = ZB_SOURCE_FOLDER "/examples/etcher/";

struct RehearsalWindow : ::testing::Test {
    RehearsalWindow() {
        fs::create_directories(folder / "Etcher");
        fs::copy_file(kEtcher + "Etcher.zbp", project());
        application.start(project());
    }

    std::string project() const { return (folder / "Etcher/Etcher.zbp").string(); }
    static std::string recorded(const std::string& name) { return kEtcher + "recordings/" + name; }
    void click(Control& control) { ASSERT_EQ(hands.click(Target::whole(control)), "") << control.name(); }
    void clickRow(List& list, std::size_t row) {
        Target target = Target::whole(list);
        target.row = list.rows().at(row).get();
        ASSERT_EQ(hands.click(target), "") << list.name();
    }
    /// Shows the document with a recording, all of it judged.
    void open(const std::string& path) {
        click(application.frmWorkbench.cmdRehearsal);
        window.recording.txtRecording.setText(path);
        click(window.recording.cmdReadRecording);
        window.finish();
    }
    /// Another content of the open project, as one step.
    void change(const std::string& from, const std::string& to) {
        const std::string text = application.comparisons.text();
        ASSERT_THAT(text, HasSubstr(from));
        application.comparisons.change(parseProject(replaceAll(text, from, to)), "Change");
        window.finish();
    }
    List& messages() { return window.timeline.lvwTimeline; }
    /// The number of the selected message; "" for none.
    std::string selected() { return messages().selected() == nullptr ? "" : messages().selected()->text(); }
    static std::vector<std::string> cells(const List& list, std::size_t column) {
        std::vector<std::string> texts;
        for (const auto& row : list.rows())
            texts.push_back(row->cell(column));
        return texts;
    }
    /// The first message whose row has this text in a cell.
    std::size_t find(const std::string& text) {
        for (std::size_t at = 0; at < messages().count(); ++at)
            for (const std::string& cell : messages().rows()[at]->cells())
                if (cell == text)
                    return at;
        ADD_FAILURE() << text << " is not listed";
        return 0;
    }
    std::string noticed() const { return application.frmWorkbench.notices.lblNotice.text(); }

    TemporaryFolder folder;
    SystemFileLayer files;
    Program program{files, (folder / "state").string()};
    Application& application = program.application;
    frmRehearsal& window = application.frmRehearsal;
    UserHands hands{application.desktop};
};

TEST_F(RehearsalWindow, ARegularDayIsAsModelled) {
    open(recorded("regular.log"));
    EXPECT_TRUE(window.visible());
    EXPECT_EQ(window.titleNote(), "regular.log");
    EXPECT_GT(messages().count(), 20U);
    EXPECT_EQ(selected(), "1");
    EXPECT_THAT(window.lblPlace.text(), HasSubstr(", 0 not as modelled"));
    EXPECT_FALSE(window.cmdNextDeviation.enabled());
    EXPECT_THAT(noticed(), StartsWith("regular.log: "));
}

TEST_F(RehearsalWindow, AllThreeFormsOfADayHaveTheSameMessages) {
    open(recorded("odd.log"));
    const auto fromLog = cells(messages(), 4);
    open(recorded("odd.pcap"));
    EXPECT_EQ(cells(messages(), 4), fromLog);
}

TEST_F(RehearsalWindow, StepsGoThroughTheMessages) {
    open(recorded("regular.log"));
    EXPECT_FALSE(window.cmdBack.enabled());
    click(window.cmdForward);
    EXPECT_EQ(selected(), "2");
    ASSERT_EQ(hands.key(messages(), {kKeyDown, kAltKey}), "");
    EXPECT_EQ(selected(), "3");
    ASSERT_EQ(hands.key(window.recording.txtRecording, {kKeyUp, kAltKey}), "");
    EXPECT_EQ(selected(), "2");
    click(window.cmdFirst);
    EXPECT_EQ(selected(), "1");
    EXPECT_FALSE(window.cmdFirst.enabled());
}

TEST_F(RehearsalWindow, TheKeysJumpFromDeviationToDeviation) {
    open(recorded("odd.log"));
    ASSERT_EQ(hands.key(messages(), {kDeviationKey, 0}), "");
    EXPECT_THAT(messages().selected()->cell(6), StartsWith("! "));
    const std::string first = selected();
    ASSERT_EQ(hands.key(messages(), {kDeviationKey, 0}), "");
    EXPECT_THAT(messages().selected()->cell(6), StartsWith("! "));
    EXPECT_NE(selected(), first);
    EXPECT_GT(window.details.lvwFindings.count(), 0U);
    ASSERT_EQ(hands.key(messages(), {kDeviationKey, kShiftKey}), "");
    EXPECT_EQ(selected(), first);
}

TEST_F(RehearsalWindow, TheFilterListsWhatHasItsText) {
    open(recorded("odd.log"));
    const std::size_t all = messages().count();
    window.timeline.txtTimelineFilter.setText("s6f11");
    window.finish();
    EXPECT_LT(messages().count(), all);
    for (const std::string& label : cells(messages(), 3))
        EXPECT_THAT(label, StartsWith("S6F11"));
    window.timeline.txtTimelineFilter.setText("");
    click(window.timeline.chkOnlyDeviations);
    window.finish();
    EXPECT_GT(messages().count(), 0U);
    for (const std::string& verdict : cells(messages(), 6))
        EXPECT_THAT(verdict, StartsWith("! "));
    click(window.timeline.chkOnlyDeviations);
    window.finish();
    EXPECT_EQ(messages().count(), all);
}

TEST_F(RehearsalWindow, TheSelectedMessageStaysSelectedUnderAFilterThatListsIt) {
    open(recorded("regular.log"));
    const std::size_t at = find("S6F11 W");
    clickRow(messages(), at);
    const std::string number = selected();
    window.timeline.txtTimelineFilter.setText("S6F11");
    window.finish();
    EXPECT_EQ(selected(), number);
    window.timeline.txtTimelineFilter.setText("");
    window.finish();
    EXPECT_EQ(selected(), number);
}

TEST_F(RehearsalWindow, DifferencesOfTheItemsAreMarkedBySign) {
    open(recorded("regular.log"));
    change("A 6 MDLN", "A 5 MDLN");
    click(window.cmdNextDeviation);
    EXPECT_THAT(cells(window.details.lvwItems, 0), testing::Contains("~"));
    EXPECT_THAT(cells(window.details.lvwItems, 3), testing::Contains("expected 5 characters, found 6"));
    EXPECT_THAT(window.details.lblItems.text(), HasSubstr("the nearest definition"));
    EXPECT_EQ(cells(window.details.lvwFindings, 0).at(0), "structure");
}

TEST_F(RehearsalWindow, AnotherConditionIsAnotherVerdict) {
    open(recorded("regular.log"));
    TRModelStore& model = *application.TRModelStore;
    const TRMessageRecord* conditional = nullptr;
    std::size_t at = 0;
    for (; at < messages().count() && conditional == nullptr; ++at) {
        const TRMessageRecord* record = model.getTRMessage(messages().rows()[at]->cell(5));
        if (record != nullptr && !isDefaultCondition(record->Condition()))
            conditional = record;
    }
    ASSERT_NE(conditional, nullptr);
    const std::string name = conditional->Name();
    clickRow(messages(), at - 1);
    EXPECT_EQ(window.details.lvwConditions.rows().front()->cell(0).empty(), false);
    const auto owners = cells(window.details.lvwConditions, 1);
    ASSERT_THAT(owners, testing::Contains(name));
    change("Condition " + conditional->Condition(), "Condition ({" + conditional->SECSMessage() + "} == 1)");
    EXPECT_NE(messages().rows()[at - 1]->cell(5), name);
    EXPECT_EQ(cells(window.details.lvwConditions, 0).front(), "false");
    // The undo of the change brings the former verdict back.
    click(application.frmMain.mnuEditor);
    click(application.frmWorkbench.cmdUndo);
    window.finish();
    EXPECT_EQ(messages().rows()[at - 1]->cell(5), name);
    EXPECT_EQ(messages().rows()[at - 1]->cell(6), "ok");
}

TEST_F(RehearsalWindow, TheSequenceFillsWithTheSelectedMessage) {
    open(recorded("regular.log"));
    const std::size_t second = find("StartUp 2/4");
    clickRow(messages(), second);
    EXPECT_THAT(window.details.lblSequence.text(), StartsWith("Sequence StartUp: step 2 of "));
    const auto states = cells(window.details.lvwSequence, 2);
    ASSERT_GE(states.size(), 3U);
    EXPECT_EQ(states[0], "done");
    EXPECT_EQ(states[1], "here");
    EXPECT_EQ(states[2], "");
    EXPECT_THAT(window.details.lvwSequence.rows()[0]->cell(1), testing::StartsWith("H"));
}

TEST_F(RehearsalWindow, ATypedMessageIsOneMoreRow) {
    open(recorded("regular.log"));
    const std::size_t all = messages().count();
    EXPECT_FALSE(window.cmdTryTyped.enabled());
    window.txtTyped.setText("S9F99 W\n<A 'x'>.");
    click(window.cmdTryTyped);
    window.finish();
    ASSERT_EQ(messages().count(), all + 1);
    EXPECT_EQ(messages().selected(), messages().rows().back().get());
    EXPECT_EQ(messages().rows().back()->cell(1), "typed");
    EXPECT_EQ(messages().rows().back()->cell(6), "! unknown-message");
    click(window.cmdForgetTyped);
    window.finish();
    EXPECT_EQ(messages().count(), all);
    EXPECT_FALSE(window.cmdForgetTyped.enabled());
}

TEST_F(RehearsalWindow, AMessageIsTypedWithoutARecording) {
    click(application.frmWorkbench.cmdRehearsal);
    window.txtTyped.setText("S1F1 W.");
    click(window.cmdTryTyped);
    window.finish();
    ASSERT_EQ(messages().count(), 1U);
    EXPECT_EQ(messages().rows().front()->cell(4), "AreYouThere");
}

TEST_F(RehearsalWindow, AFaultInTypedSmlIsShownWithItsPlace) {
    click(application.frmWorkbench.cmdRehearsal);
    window.txtTyped.setText("S1F1 W\n<Q7 1>.");
    click(window.cmdTryTyped);
    EXPECT_THAT(window.lblTypedFault.text(), StartsWith("line 2, column "));
    EXPECT_EQ(messages().count(), 0U);
    EXPECT_EQ(window.txtTyped.text(), "S1F1 W\n<Q7 1>.");
    window.txtTyped.setText("S1F1 W.");
    EXPECT_EQ(window.lblTypedFault.text(), "");
}

TEST_F(RehearsalWindow, ABadRecordingIsReportedAndTheShownOneStays) {
    open(recorded("regular.log"));
    const std::size_t all = messages().count();
    open("/none/none.log");
    EXPECT_THAT(noticed(), StartsWith("none.log cannot be read: "));
    EXPECT_EQ(messages().count(), all);
    std::ofstream(folder / "empty.log") << "nothing of interest\n";
    open((folder / "empty.log").string());
    EXPECT_EQ(noticed(), "empty.log: no message was found");
    EXPECT_EQ(messages().count(), all);
    EXPECT_EQ(window.titleNote(), "regular.log");
}

TEST_F(RehearsalWindow, ACancelledReadingLeavesTheShownRecording) {
    open(recorded("regular.log"));
    const std::size_t all = messages().count();
    program.screen.longWork = [](const auto& /*work*/) { return false; };
    open(recorded("odd.log"));
    EXPECT_EQ(messages().count(), all);
    EXPECT_EQ(window.titleNote(), "regular.log");
}

TEST_F(RehearsalWindow, TheSideOfTheWriterTurnsTheDirections) {
    open(recorded("regular.hex"));
    const auto before = cells(messages(), 2);
    window.recording.cboSide.choose(1);
    window.finish();
    EXPECT_EQ(window.recording.cboSide.text(), "Host");
    const auto asHost = cells(messages(), 2);
    window.recording.cboSide.choose(2);
    window.finish();
    EXPECT_NE(cells(messages(), 2), asHost);
    window.recording.cboSide.choose(0);
    window.finish();
    EXPECT_EQ(cells(messages(), 2), before);
}

TEST_F(RehearsalWindow, APortIsANumberOfAPort) {
    open(recorded("regular.pcap"));
    window.recording.txtPort.setText("many");
    click(window.recording.cmdReadRecording);
    EXPECT_EQ(noticed(), "The port of a recording is a number from 1 to 65535");
    window.recording.txtPort.setText("4999");
    click(window.recording.cmdReadRecording);
    EXPECT_EQ(noticed(), "regular.pcap: no message was found");
}

TEST_F(RehearsalWindow, TheDefinitionAndTheTRMessageAreShownInTheirWindows) {
    open(recorded("regular.log"));
    clickRow(messages(), find("StartUp 2/4"));
    const std::string definition = messages().selected()->cell(4);
    const std::string transaction = messages().selected()->cell(5);
    click(window.cmdGoDefinition);
    EXPECT_EQ(application.desktop.frontDocument(application.frmMain), &application.frmSECSEditor);
    EXPECT_THAT(application.frmSECSEditor.tvwEdit.nodes().selected()->text(), StartsWith(definition + ":"));
    window.show();
    click(window.cmdGoTRMessage);
    EXPECT_EQ(application.desktop.frontDocument(application.frmMain), &application.frmTRModeler);
    const Node* received = application.frmTRModeler.tvwRcvTRMsg.nodes().selected();
    const Node* sent = application.frmTRModeler.tvwSndTRMsg.nodes().selected();
    EXPECT_TRUE((received != nullptr && contains(received->text(), transaction)) ||
                (sent != nullptr && contains(sent->text(), transaction)));
}

TEST_F(RehearsalWindow, AnotherProjectClosesIt) {
    open(recorded("regular.log"));
    program.screen.answers = {Answer::No};
    ASSERT_TRUE(application.projects.openFile(project()));
    EXPECT_FALSE(window.visible());
    EXPECT_EQ(messages().count(), 0U);
}

TEST_F(RehearsalWindow, ClosingItLetsTheRecordingGo) {
    open(recorded("regular.log"));
    ASSERT_EQ(hands.close(window), "");
    EXPECT_FALSE(window.visible());
    EXPECT_EQ(messages().count(), 0U);
    click(application.frmWorkbench.cmdRehearsal);
    click(window.recording.cmdReadRecording);
    window.finish();
    EXPECT_GT(messages().count(), 0U);
}

TEST_F(RehearsalWindow, ItWorksInSlicesBetweenTheActionsOfTheUser) {
    click(application.frmWorkbench.cmdRehearsal);
    window.recording.txtRecording.setText(recorded("odd.log"));
    click(window.recording.cmdReadRecording);
    EXPECT_EQ(messages().count(), 0U);
    for (int turns = 0; turns < 1'000; ++turns) {
        std::vector<SilentScreen::Later> now;
        now.swap(program.screen.later);
        std::erase_if(now, [](const auto& later) { return later.delay.count() > 0; });
        if (now.empty())
            break;
        for (const auto& later : now)
            later.run();
    }
    EXPECT_GT(messages().count(), 10U);
    EXPECT_THAT(window.lblPlace.text(), StartsWith("1 of "));
}

TEST(RehearsalWindowWithoutAProject, SaysThatItNeedsOne) {
    SystemFileLayer files;
    Program program{files};
    program.application.start("");
    UserHands(program.application.desktop)
        .click(Target::whole(program.application.frmWorkbench.cmdRehearsal));
    EXPECT_FALSE(program.application.frmRehearsal.visible());
    EXPECT_EQ(program.application.frmWorkbench.notices.lblNotice.text(),
              "Open a project first: recordings run through its model");
}

} // namespace
} // namespace zb::test
