#include "rehearsal/timeline.h"

#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_files.h"
#include "project/project_text.h"
#include "rehearsal/kept_recording.h"
#include "rehearsal/sequence_progress.h"
#include "rehearsal/typed_message.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <fstream>

using testing::IsEmpty;
using testing::SizeIs;

namespace zb::test {
namespace {

const std::string kEtcher = ZB_SOURCE_FOLDER "/examples/etcher/";

std::string projectText() {
    return decodeProject(readBytes(kEtcher + "Etcher.zbp").value()).text;
}

rehearsal::KeptRecording kept(const std::string& name, const rehearsal::KeptLimits& limits = {}) {
    auto recording =
        rehearsal::keepRecording(kEtcher + "recordings/" + name, {{}, {}, Side::Equipment, {}}, limits);
    EXPECT_TRUE(recording);
    return std::move(recording).value();
}

struct TimelineTest : ::testing::Test {
    void open(const std::string& name) { timeline.open(kept(name).messages); }
    /// The messages whose verdict changed.
    std::vector<std::size_t> judgeBy(const std::string& text) {
        timeline.judgeBy(parseProject(text), CodePage(1252));
        return judgeAll();
    }
    std::vector<std::size_t> judgeAll() {
        std::vector<std::size_t> changed;
        while (!timeline.isDone())
            for (const std::size_t at : timeline.judgeNext())
                changed.push_back(at);
        return changed;
    }
    void type(const std::string& sml) {
        timeline.addTyped(std::get<rehearsal::RecordedMessage>(rehearsal::readTypedMessage(sml)));
    }
    /// "S6F11 EventReport ChamberIdle ProcessLot 3 structure"
    std::string line(std::size_t at) const {
        const rehearsal::TimelineVerdict& verdict = timeline.verdict(at);
        std::string text = timeline.message(at).label();
        for (const std::string* name : {verdict.definition, verdict.transaction})
            text += name == nullptr ? " -" : " " + *name;
        if (verdict.sequence)
            text += " " + verdict.sequence->name + " " + std::to_string(verdict.sequence->step);
        for (const auto& finding : verdict.findings)
            text.append(" ").append(finding.id);
        return text;
    }

    rehearsal::Timeline timeline;
};

TEST_F(TimelineTest, JudgesLikeARehearsalOfTheWholeRecording) {
    open("odd.log");
    judgeBy(projectText());
    const Project project = parseProject(projectText());
    rehearsal::Rehearsal whole(project, CodePage(1252));
    for (rehearsal::RecordedMessage& message : kept("odd.log").messages)
        whole.add(std::move(message));
    whole.finish();
    std::size_t at = 0;
    std::size_t deviations = 0;
    for (; const auto verdict = whole.take(); ++at) {
        ASSERT_LT(at, timeline.size());
        const rehearsal::TimelineVerdict& found = timeline.verdict(at);
        EXPECT_EQ(found.definition == nullptr, verdict->interpretation.definition == nullptr) << at;
        EXPECT_EQ(found.findings.size(), verdict->findings.size()) << line(at);
        EXPECT_EQ(found.direction, verdict->message.direction) << at;
        deviations += verdict->findings.empty() ? 0 : 1;
    }
    EXPECT_EQ(at, timeline.size());
    EXPECT_EQ(timeline.deviations(), deviations);
    EXPECT_GT(deviations, 0U);
}

TEST_F(TimelineTest, AnotherProjectChangesOnlyTheVerdictsThatDiffer) {
    open("regular.log");
    EXPECT_THAT(judgeBy(projectText()), SizeIs(timeline.size()));
    EXPECT_EQ(timeline.deviations(), 0U);
    EXPECT_THAT(judgeBy(projectText()), IsEmpty());
    const auto changed = judgeBy(
        replaceAll(projectText(), "NewEquipmentConstantSend: S2 F15 W", "NewEquipmentConstantSend: S2 F15"));
    ASSERT_THAT(changed, SizeIs(1));
    EXPECT_THAT(line(changed.front()), testing::EndsWith("wait-bit"));
    EXPECT_EQ(timeline.deviations(), 1U);
    EXPECT_EQ(judgeBy(projectText()), changed);
    EXPECT_EQ(timeline.deviations(), 0U);
}

TEST_F(TimelineTest, ATypedMessageIsJudgedAfterTheOthers) {
    open("regular.log");
    judgeBy(projectText());
    const std::size_t recorded = timeline.size();
    type("S9F99 W <A 'x'>.");
    EXPECT_FALSE(timeline.isDone());
    EXPECT_EQ(judgeAll(), std::vector<std::size_t>{recorded});
    EXPECT_TRUE(timeline.isTyped(recorded));
    EXPECT_EQ(line(recorded), "S9F99 - - unknown-message");
    EXPECT_EQ(timeline.verdict(recorded).direction, rehearsal::Direction::ToEquip);
    type("S1F13 W <L>.");
    judgeAll();
    // It waits for no reply that could be missing.
    EXPECT_THAT(line(recorded + 1), testing::Not(testing::HasSubstr("missing-reply")));
    timeline.removeTyped();
    EXPECT_EQ(timeline.size(), recorded);
    judgeAll();
    EXPECT_EQ(timeline.deviations(), 0U);
}

TEST_F(TimelineTest, TheChartFillsAsTheTimelineAdvances) {
    using State = rehearsal::SequenceProgress::State;
    open("regular.log");
    judgeBy(projectText());
    std::vector<std::size_t> steps;
    for (std::size_t at = 0; at < timeline.size(); ++at)
        if (timeline.verdict(at).sequence && timeline.verdict(at).sequence->name == "StartUp")
            steps.push_back(at);
    ASSERT_GE(steps.size(), 3U);
    const auto second = rehearsal::sequenceAt(timeline, steps[1]);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->name, "StartUp");
    EXPECT_EQ(second->done, 2U);
    EXPECT_EQ(second->steps[0].state, State::Done);
    EXPECT_EQ(second->steps[0].message, steps[0]);
    EXPECT_EQ(second->steps[1].state, State::Here);
    EXPECT_EQ(second->steps[2].state, State::Expected);
    const auto third = rehearsal::sequenceAt(timeline, steps[2]);
    ASSERT_TRUE(third);
    EXPECT_EQ(third->steps[1].state, State::Done);
    EXPECT_EQ(third->steps[2].state, State::Here);
}

TEST_F(TimelineTest, BeforeTheFirstStepThereIsNoSequence) {
    open("regular.log");
    judgeBy(projectText());
    EXPECT_FALSE(rehearsal::sequenceAt(timeline, 0));
}

TEST(KeptRecording, IsCutAtItsLimit) {
    const std::size_t all = kept("regular.log").messages.size();
    EXPECT_FALSE(kept("regular.log").isCut);
    const auto some = kept("regular.log", {all - 1, 1'000'000, 10});
    EXPECT_TRUE(some.isCut);
    EXPECT_THAT(some.messages, SizeIs(all - 1));
    EXPECT_FALSE(kept("regular.log", {all, 1'000'000, 10}).isCut);
    const auto small = kept("regular.log", {all, 4'000, 10});
    EXPECT_TRUE(small.isCut);
    EXPECT_LT(small.messages.size(), all);
}

TEST(KeptRecording, ReadingCanBeCancelledAndReportsHowFarItIs) {
    for (const char* name : {"regular.log", "regular.pcap"}) {
        LongWork work;
        rehearsal::RecordingOptions options;
        options.progress = Progress(work);
        ASSERT_TRUE(rehearsal::keepRecording(kEtcher + "recordings/" + name, options));
        EXPECT_GT(work.done(), 0.5) << name;
        work.cancel();
        EXPECT_THROW((void)rehearsal::keepRecording(kEtcher + "recordings/" + name, options), Cancelled)
            << name;
    }
}

TEST(KeptRecording, CountsTheFaultsThatItDoesNotKeep) {
    const TemporaryFolder folder;
    std::ofstream log(folder / "bad.log");
    for (int i = 0; i < 5; ++i)
        log << "10:00:0" << i << " RECV 00 00 00 14 00 0A 81 0D 00 00 00 00 00 01\n";
    log.close();
    const auto recording = rehearsal::keepRecording(folder / "bad.log", {}, {10, 1'000'000, 2});
    ASSERT_TRUE(recording);
    EXPECT_THAT(recording->faults, SizeIs(2));
    EXPECT_EQ(recording->faultCount, 5U);
}

TEST(KeptRecording, AFileThatIsNotThereIsAnError) {
    const auto recording = rehearsal::keepRecording("/none/none.log", {});
    ASSERT_FALSE(recording);
    EXPECT_NE(recording.error().number, 0);
}

} // namespace
} // namespace zb::test
