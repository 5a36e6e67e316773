#include "messages/secs2/secs1.h"
#include "unit/rehearsal/recorded.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace zb::test {
namespace {

constexpr const char* kNames = "<L [2] <A [6] \"ZE3000\"> <A [6] \"V04R21\"> >";

TEST(LogRecording, ReadsArrowsWithTextsWithoutQuotes) {
    const Recorded log = readLog("2022-12-15 15:36:24.6668|Trace|<-- [0x0000000B] EstablishComm:'S1F13'W\n"
                                 "    <L [2]\n        <A [6] ZE3000>\n        <A [6] V04R21>\n    >\n.\n"
                                 "2022-12-15 15:36:24.7|Info|a line in between\n"
                                 "2022-12-15 15:36:24.8|Trace|--> [0x0000000B] 'S1F14'\n    <L [2]\n"
                                 "        <B [1] 0x00>\n        <L [0]\n        >\n    >\n.\n");
    EXPECT_THAT(log.messages,
                ElementsAre(std::string("2022-12-15T15:36:24.6668 H<-E S1F13 W 11 ") + kNames,
                            "2022-12-15T15:36:24.800 H->E S1F14 11 <L [2] <B [1] 0x00> <L [0] > >"));
    EXPECT_THAT(log.faults, IsEmpty());
}

TEST(LogRecording, ReadsSubjectLinesWithHeaderBytes) {
    const Recorded log =
        readLog("2021-03-04T10:11:12.345  Receive SECS-Message\n[00 0A|81 0D|00 00|00 00 00 01]\n"
                "S1F13 W\n<L [2]\n  <A [6] \"ZE3000\" >\n  <A [6] \"V04R21\" >\n>.\n"
                "2021-03-04T10:11:12.400  Try-Send SECS-Message\n[00 0A|01 0E|00 00|00 00 00 01]\n"
                "S1F14\n<L [0]\n>.\n"
                "2021-03-04T10:11:12.401  Sended SECS-Message\n[00 0A|01 0E|00 00|00 00 00 01]\n"
                "S1F14\n<L [0]\n>.\n"
                "2021-03-04T10:11:13.000  Receive SECS-Message\n[FF FF|00 00|00 05|00 00 00 09]\n"
                "LINKTEST.REQ\n"
                "2021-03-04T10:11:14.000  Receive SECS-Message\n[00 0A|81 01|00 00|00 00 00 0A]\nS1F1 W.\n");
    EXPECT_THAT(log.messages, ElementsAre(std::string("2021-03-04T10:11:12.345 H<-E S1F13 W 1 ") + kNames,
                                          "2021-03-04T10:11:12.400 H->E S1F14 1 <L [0] >",
                                          "2021-03-04T10:11:13.000 H<-E Linktest.req 9",
                                          "2021-03-04T10:11:14.000 H<-E S1F1 W 10"));
    EXPECT_THAT(log.faults, IsEmpty());
}

TEST(LogRecording, ReadsHeadersAsText) {
    const Recorded log = readLog(
        "2024-09-24 10:00:00,100 - communication - INFO - > 'header': {device_id:0xffff, stream:00, function:00, "
        "p_type:0x00, s_type:0x01, system:0x00000007, require_response:False}\nSelect.req\n"
        "2024-09-24 10:00:00,123 - communication - INFO - > 'header': {device_id:0x000a, stream:01, function:13, "
        "p_type:0x00, s_type:0x00, system:0x00000001, require_response:True}\nS1F13 W\n  <L [2]\n    <A \"ZE3000\">\n"
        "    <A \"V04R21\">\n  > .\n"
        "2024-09-24 10:00:00,200 - communication - INFO - < 'header': {device_id:0x000a, stream:01, function:17, "
        "p_type:0x00, s_type:0x00, system:0x00000002, require_response:True}\nS1F17 W\n"
        "2024-09-24 10:00:00,300 - timer - INFO - tick\n");
    EXPECT_THAT(log.messages, ElementsAre("2024-09-24T10:00:00.100 H->E Select.req 7",
                                          std::string("2024-09-24T10:00:00.123 H->E S1F13 W 1 ") + kNames,
                                          "2024-09-24T10:00:00.200 H<-E S1F17 W 2"));
    EXPECT_THAT(log.faults, IsEmpty());
}

TEST(LogRecording, ReadsLinesOfSimulators) {
    const Recorded log = readLog("[EQ1] Received Message: DeviceId=10, SystemBytes=1, Data=\nS1F13 W\n<L[2]\n"
                                 "<A[6] \"ZE3000\">\n<A[6] \"V04R21\">\n>.\n"
                                 "[EQ1] Reply Message: DeviceId=10, SystemBytes=1, Data=S1F14 <B[1] 0x00>.\n"
                                 "[EQ1] Send Message: DeviceId=10, SystemBytes=2, Data=\nS1F1 W\n.\n",
                                 {std::nullopt, Side::Equipment, Side::Host});
    EXPECT_THAT(log.messages, ElementsAre(std::string("- H->E S1F13 W 1 ") + kNames,
                                          "- H<-E S1F14 1 <B [1] 0x00>", "- H<-E S1F1 W 2"));
}

TEST(LogRecording, ADumpDecidesOverTheText) {
    const Recorded log =
        readLog("# Recv [ 192.168.1.51:2493 -> 192.168.1.31:5000 ] 2009/03/05 10:11:12.345\n"
                "#  size = 25 (0x19)\n"
                "#  0  1  2  3  4  5  6  7  8  9  A  B  C  D  E  F     0123456789ABCDEF\n"
                "#  00 00 81 0d 00 00 00 00 01 38 01 02 41 06 42 47    .........8..A.BG\n"
                "#  48 53 4d 53 41 03 31 2e 30                         HSMSA.1.0\n"
                "S01F13\n<L[2]\n<A[6] \"other\">\n<A[3] \"1.0\">\n>.\n"
                "# Send [ 192.168.1.31:5000 -> 192.168.1.51:2493 ] 2009/03/05 10:11:12.400\n"
                "#  size = 12 (0xC)\n#  00 00 01 0e 00 00 00 00 01 38 01 00    .\nS01F14\n<L[0]\n>.\n");
    EXPECT_THAT(
        log.messages,
        ElementsAre("2009-03-05T10:11:12.345 H->E S1F13 W 312 <L [2] <A [6] \"BGHSMS\"> <A [3] \"1.0\"> >",
                    "2009-03-05T10:11:12.400 H<-E S1F14 312 <L [0] >"));
    EXPECT_THAT(log.faults, IsEmpty());
}

TEST(LogRecording, ReadsHexadecimalLines) {
    const Recorded log =
        readLog("Recieve socket data len=14 00 00 00 0A FF FF 00 00 00 01 80 00 00 0B\n"
                "2020-01-02 03:04:05 SEND 0000000A FFFF0000000280 00 00 0B\n"
                "0000000A 0001 81 11 0000 00000005\n"
                "10:00:01 RECV: 0x00 0x00 0x00 0x0D 0x00 0x01 0x01 0x12 0x00 0x00 0x00 0x00 0x00\n"
                "  0x05 0x21 0x01 0x00\n");
    EXPECT_THAT(log.messages, ElementsAre("- H->E Select.req 2147483659",
                                          "2020-01-02T03:04:05.000 H<-E Select.rsp 2147483659",
                                          "- - S1F17 W 5", "10:00:01.000 H->E S1F18 5 <B [1] 0x00>"));
    EXPECT_THAT(log.faults, IsEmpty());
}

TEST(LogRecording, ReadsExportsOfPacketTools) {
    const Recorded log =
        readLog("0000  00 00 00 0a 00 01 81 01 00 00 00 00 00 07         ..............\n\n"
                "0000  00 00 00 0e 00 01 01 02 00 00 00 00 00 07 01 00   ................\n"
                "0010  41 00                                             A.\n\n"
                "0000  00 00 00 0c 00 01 01 02 00 00 00 00 00 07 01 00   ................\n");
    EXPECT_THAT(log.messages,
                ElementsAre("- - S1F1 W 7", "- - S1F2 7 ! offset 2 of the data: 2 bytes follow the item",
                            "- - S1F2 7 <L [0] >"));
}

TEST(LogRecording, ReadsBlocksOfASerialLine) {
    secs2::Header header;
    header.stream = 5;
    header.function = 1;
    header.wait = true;
    header.system = 3;
    secs2::Items items;
    items.addText(secs2::Format::Ascii, std::string(300, 'x'));
    std::string data;
    secs2::encodeItems(items, data);
    std::string blocks;
    secs2::appendBlocks(blocks, header, true, data);
    std::string log;
    for (std::string_view rest = blocks; !rest.empty();) {
        const std::size_t size = secs2::decodeBlock(rest)->size;
        log += "RX";
        for (const char byte : rest.substr(0, size)) {
            char digits[4];
            std::snprintf(digits, sizeof digits, " %02X", static_cast<unsigned char>(byte));
            log += digits;
        }
        log += "\nTX 06\nRX 05\n";
        rest.remove_prefix(size);
    }
    EXPECT_THAT(readLog(log).messages,
                ElementsAre("- H<-E S5F1 W 3 <A [300] \"" + std::string(300, 'x') + "\">"));
}

TEST(LogRecording, ReadsPlainSml) {
    const Recorded log =
        readLog("S1F1 W.\nS1F2 <L\n<A 'a'>\n<A 'b'>\n>.\nMyName: S2F17 W H->E\n.\nreplied to S1F1 in 5 ms\n");
    EXPECT_THAT(log.messages, ElementsAre("- - S1F1 W -", "- - S1F2 - <L [2] <A [1] \"a\"> <A [1] \"b\"> >",
                                          "- - S2F17 W -"));
}

TEST(LogRecording, ALineOfAnotherPartWithinAMessageIsPassed) {
    const Recorded log = readLog("10:00:00.1 RECV S1F2\n<L [1]\n10:00:00.2 disk is 80 % full\n<A 'a'>\n>.\n");
    EXPECT_THAT(log.messages, ElementsAre("10:00:00.100 H<-E S1F2 - <L [1] <A [1] \"a\"> >"));
}

TEST(LogRecording, AMessageThatIsCutIsReportedAndTheNextOneRead) {
    const Recorded log = readLog("10:00:00.1 RECV S1F2\n<L [2]\n<A 'a'>\n10:00:00.2 RECV S1F1 W.\n");
    EXPECT_THAT(log.messages, ElementsAre("10:00:00.100 H<-E S1F2 - ! the message ends within a list",
                                          "10:00:00.200 H<-E S1F1 W -"));
}

TEST(LogRecording, AFrameThatIsCutIsReported) {
    const Recorded log = readLog(
        "RX 00 00 00 0C 00 01 81 01 00 00 00 00 00 07\nRX 00 00 00 0A 00 01 81 01 00 00 00 00 00 08\n");
    EXPECT_THAT(log.messages, ElementsAre("- H<-E S1F1 W 8"));
    EXPECT_THAT(log.faults, ElementsAre("line 1: the message has 12 bytes, 10 of them are in the log"));
}

TEST(LogRecording, BytesThatFollowAFrameDoNotHideTheNextOne) {
    const Recorded log = readLog("0000000A 0001 8111 0000 00000005 0000\n0000000A 0001 8111 0000 00000006\n");
    EXPECT_THAT(log.messages, ElementsAre("- - S1F17 W 5", "- - S1F17 W 6"));
    EXPECT_THAT(log.faults, ElementsAre("line 1: 2 bytes are no message"));
}

TEST(LogRecording, TheSideThatOpensTheLinkIsTheHost) {
    const Recorded log = readLog(
        "RX 00 00 00 0A FF FF 00 00 00 01 00 00 00 0B\nTX 00 00 00 0A 00 01 81 01 00 00 00 00 00 07\n");
    EXPECT_THAT(log.messages, ElementsAre("- H->E Select.req 11", "- H<-E S1F1 W 7"));
}

TEST(LogRecording, ReadsUtf16) {
    std::string bytes = "\xFF\xFE";
    for (const char c : std::string("--> S1F1 W.\r\n"))
        bytes.append(1, c).append(1, '\0');
    EXPECT_THAT(readFile(bytes).messages, ElementsAre("- H->E S1F1 W -"));
}

} // namespace
} // namespace zb::test
