#include "messages/library_store.h"
#include "messages/sml_text.h"
#include "rehearsal/learner.h"
#include "unit/rehearsal/recorded.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace zb::test {
namespace {

/// The node Text and the items of each definition that is derived from a log.
std::vector<std::string> learned(const std::string& log) {
    rehearsal::Learner learner;
    const auto recording = rehearsal::openLogText(log, {});
    rehearsal::RecordedMessage message;
    while (recording->next(message))
        learner.add(message);
    std::vector<std::string> texts;
    for (const SECSMessageRecord& record : learner.records()) {
        texts.emplace_back(record.getNodeText());
        for (const SECSItemRecord& item : record.getItems())
            texts.back() += "|" + std::to_string(item.getLevel()) + " " + composeItemText(item);
    }
    return texts;
}

TEST(Learner, NamesComeFromThePublishedLayouts) {
    EXPECT_THAT(
        learned("SEND S1F13 W <L <A 'E1'> <A 'V1'>>.\nRECV S1F13 W <L>.\n"),
        ElementsAre("EstablishCommunicationsRequest: S1 F13 W H->E|1 L 2|2 A 2 MDLN 'E1'|2 A 2 SOFTREV 'V1'",
                    "EstablishCommunicationsRequest2: S1 F13 W H<-E|1 L 0"));
}

TEST(Learner, CountsThatVaryBecomeVariable) {
    EXPECT_THAT(learned("SEND S1F3 W <L <U4 1> <U4 2>>.\nSEND S1F3 W <L <U4 1>>.\nSEND S1F3 W <L>.\n"),
                ElementsAre("SelectedEquipmentStatusRequest: S1 F3 W H->E|1 L 4V SVIDCOUNT|2 U4 1 SVID 1"));
    EXPECT_THAT(
        learned("RECV S5F1 W <L <B 1> <U4 1> <A 'ab'>>.\nRECV S5F1 W <L <B 1> <U4 1> <A 'abcd'>>.\n"),
        ElementsAre("AlarmReportSend: S5 F1 W H<-E|1 L 3|2 B 1 ALCD 1|2 U4 1 ALID 1|2 A 8V ALTX 'ab'"));
}

TEST(Learner, DistinctStructuresAreSeparateMessages) {
    EXPECT_THAT(learned("RECV S99F1 <L <A 'x'> <U1 2>>.\nRECV S99F1 <A 'x'>.\nSEND S99F1 <A 'y'>.\n"),
                ElementsAre("S99F1: S99 F1 H<-E|1 L 2|2 A 1 'x'|2 U1 1 2", "S99F12: S99 F1 H<->E|1 A 1 'x'"));
}

TEST(Learner, WhatIsLearnedOpensAsALibrary) {
    rehearsal::Learner learner;
    const auto recording = rehearsal::openLogText(
        "SEND S2F41 W <L <A 'START'> <L <L <A 'PPID'> <A \"it's\" 0x0A>> <L <A 'LOT'> <A ''>>>>.\n"
        "RECV S2F42 <L <B 0> <L>>.\n<-- S6F11 W <L <U4 1> <U4> <L <L <U4 1> <L <F8 1e300> <BOOLEAN T F> <W 'x'>>>>>.\n",
        {});
    rehearsal::RecordedMessage message;
    while (recording->next(message))
        learner.add(message);
    const auto records = learner.records();
    std::vector<const SECSMessageRecord*> pointers;
    pointers.reserve(records.size());
    for (const auto& record : records)
        pointers.push_back(&record);
    const TemporaryFolder folder;
    const std::string path = (folder / "learned.sml").string();
    std::ofstream(path, std::ios::binary) << composeSml(pointers);
    SECSLibraryStore store{CodePage(1252)};
    EXPECT_EQ(store.load(path, kFormatSml), "");
    EXPECT_EQ(store.getMessages().size(), 3U);
    for (const Finding& finding : store.findings())
        EXPECT_NE(finding.severity, Severity::Error) << finding.text;
}

} // namespace
} // namespace zb::test
