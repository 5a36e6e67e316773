#include "support/capture_writer.h"
#include "unit/rehearsal/recorded.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zb::test {
namespace {

std::string frame(int stream, int function, bool wait, std::uint32_t system, std::string_view text) {
    secs2::Header header;
    header.session = 1;
    header.stream = static_cast<std::uint8_t>(stream);
    header.function = static_cast<std::uint8_t>(function);
    header.wait = wait;
    header.system = system;
    secs2::Items items;
    items.addText(secs2::Format::Ascii, text);
    std::string data;
    secs2::encodeItems(items, data);
    std::string bytes;
    secs2::appendFrame(bytes, header, data);
    return bytes;
}

std::vector<std::string> withoutTimes(std::vector<std::string> lines) {
    for (std::string& line : lines)
        line.erase(0, line.find(' ') + 1);
    return lines;
}

TEST(Capture, ReadsBothFormsAndBothNetworks) {
    using Form = CaptureWriter::Form;
    using Network = CaptureWriter::Network;
    for (const Form form : {Form::Pcap, Form::Pcapng})
        for (const Network network : {Network::V4, Network::V6}) {
            CaptureWriter capture(form, network);
            auto link = capture.open(40000, 5000);
            capture.send(link, 0, frame(1, 1, true, 7, "a"));
            capture.send(link, 1, frame(1, 2, false, 7, "b"));
            capture.close(link);
            const Recorded recorded = readFile(capture.bytes());
            EXPECT_THAT(recorded.messages, ElementsAre("2026-03-21T08:00:00.003Z H->E S1F1 W 7 <A [1] \"a\">",
                                                       "2026-03-21T08:00:00.004Z H<-E S1F2 7 <A [1] \"b\">"));
            EXPECT_THAT(recorded.faults, IsEmpty());
        }
}

/// The packets that carry one IPv6 packet in pieces of `size` bytes.
std::vector<std::string> fragmentsOf(const std::string& packet, std::size_t size) {
    constexpr std::size_t kLinkAndInternet = 14 + 40;
    const std::string data = packet.substr(kLinkAndInternet);
    std::vector<std::string> fragments;
    for (std::size_t at = 0; at < data.size(); at += size) {
        const std::string piece = data.substr(at, size);
        const std::size_t place = at | (at + size < data.size() ? 1U : 0U);
        std::string fragment = packet.substr(0, kLinkAndInternet);
        fragment[18] = static_cast<char>((piece.size() + 8) >> 8U);
        fragment[19] = static_cast<char>((piece.size() + 8) & 0xFFU);
        fragment[20] = 44;
        fragment.append({6, 0, static_cast<char>(place >> 8U), static_cast<char>(place & 0xFFU)});
        fragments.push_back(fragment.append({0, 0, 0, 9}).append(piece));
    }
    return fragments;
}

TEST(Capture, JoinsTheFragmentsOfIpv6) {
    CaptureWriter capture(CaptureWriter::Form::Pcap, CaptureWriter::Network::V6);
    auto link = capture.open(40000, 5000);
    std::vector<std::string> fragments =
        fragmentsOf(capture.packet(link, 0, frame(1, 1, true, 7, std::string(100, 'a'))), 48);
    std::swap(fragments.front(), fragments.back());
    for (const std::string& fragment : fragments)
        capture.add(fragment);
    capture.send(link, 1, frame(1, 2, false, 7, "b"));
    const Recorded recorded = readFile(capture.bytes());
    EXPECT_THAT(withoutTimes(recorded.messages),
                ElementsAre("H->E S1F1 W 7 <A [100] \"" + std::string(100, 'a') + "\">",
                            "H<-E S1F2 7 <A [1] \"b\">"));
    EXPECT_THAT(recorded.faults, IsEmpty());
}

TEST(Capture, JoinsAndCutsSegments) {
    CaptureWriter capture;
    auto link = capture.open(40000, 5000);
    const std::string three =
        frame(1, 1, true, 1, "a") + frame(1, 3, true, 2, "b") + frame(1, 5, true, 3, "c");
    for (std::size_t at = 0; at < three.size(); at += 5)
        capture.send(link, 0, std::string_view(three).substr(at, 5));
    EXPECT_THAT(readFile(capture.bytes()).messages, SizeIs(3));
}

TEST(Capture, RepeatedAndReorderedSegmentsCountOnce) {
    CaptureWriter capture;
    auto link = capture.open(40000, 5000);
    const std::string first = capture.packet(link, 0, frame(1, 1, true, 1, "a"));
    const std::string second = capture.packet(link, 0, frame(1, 3, true, 2, "b"));
    for (const std::string& packet : {second, first, first, second})
        capture.add(packet);
    const Recorded recorded = readFile(capture.bytes());
    EXPECT_THAT(withoutTimes(recorded.messages),
                ElementsAre("H->E S1F1 W 1 <A [1] \"a\">", "H->E S1F3 W 2 <A [1] \"b\">"));
    EXPECT_THAT(recorded.faults, IsEmpty());
}

TEST(Capture, GoesOnAfterALostSegment) {
    CaptureWriter capture;
    auto link = capture.open(40000, 5000);
    capture.send(link, 0, frame(1, 1, true, 1, "a"));
    capture.packet(link, 0, frame(1, 3, true, 2, "lost").substr(0, 9)); // not in the capture
    capture.send(link, 0, frame(1, 3, true, 2, "lost").substr(9) + frame(1, 5, true, 3, "c"));
    capture.send(link, 1, frame(1, 2, false, 1, "d"));
    const Recorded recorded = readFile(capture.bytes());
    EXPECT_THAT(withoutTimes(recorded.messages),
                ElementsAre("H->E S1F1 W 1 <A [1] \"a\">", "H->E S1F5 W 3 <A [1] \"c\">",
                            "H<-E S1F2 1 <A [1] \"d\">"));
    EXPECT_THAT(recorded.faults, SizeIs(2));
    EXPECT_EQ(recorded.faults.at(0), "packet 6: 9 bytes of a connection are not in the recording");
}

TEST(Capture, StartsInTheMiddleOfAConnection) {
    CaptureWriter capture;
    CaptureWriter::Link link;
    capture.send(link, 1, "tail of a message" + frame(1, 1, true, 1, "a"));
    capture.send(link, 0, frame(1, 2, false, 1, "b"));
    EXPECT_THAT(withoutTimes(readFile(capture.bytes()).messages),
                ElementsAre("H<-E S1F1 W 1 <A [1] \"a\">", "H->E S1F2 1 <A [1] \"b\">"));
}

TEST(Capture, TakesTheConnectionsOfAPort) {
    CaptureWriter capture;
    auto link = capture.open(40000, 5000);
    auto other = capture.open(40001, 6000);
    auto web = capture.open(40002, 80);
    capture.send(web, 0, "GET / HTTP/1.1\r\nHost: etcher\r\n\r\n");
    capture.send(link, 0, frame(1, 1, true, 1, "a"));
    capture.send(other, 0, frame(1, 1, true, 2, "b"));
    EXPECT_THAT(readFile(capture.bytes()).messages, SizeIs(2));
    EXPECT_THAT(readFile(capture.bytes()).faults, IsEmpty());
    EXPECT_THAT(withoutTimes(readFile(capture.bytes(), {6000, std::nullopt, Side::Host}).messages),
                ElementsAre("H->E S1F1 W 2 <A [1] \"b\">"));
}

TEST(Capture, TheEquipmentMayOpenTheLink) {
    CaptureWriter capture;
    auto link = capture.open(40000, 5000);
    capture.send(link, 0, frame(1, 1, true, 1, "a"));
    EXPECT_THAT(withoutTimes(readFile(capture.bytes(), {std::nullopt, Side::Equipment, Side::Host}).messages),
                ElementsAre("H<-E S1F1 W 1 <A [1] \"a\">"));
}

TEST(Capture, AFileThatIsCutIsReportedWithItsOffset) {
    CaptureWriter capture;
    auto link = capture.open(40000, 5000);
    capture.send(link, 0, frame(1, 1, true, 1, "a"));
    const std::string whole = capture.bytes();
    for (std::size_t length = 24; length < whole.size(); ++length) {
        const Recorded recorded = readFile(whole.substr(0, length));
        EXPECT_THAT(recorded.messages, IsEmpty());
        EXPECT_LE(recorded.faults.size(), 1U);
    }
    const Recorded recorded = readFile(whole.substr(0, whole.size() - 1));
    ASSERT_THAT(recorded.faults, SizeIs(1));
    EXPECT_EQ(recorded.faults.at(0).substr(0, 28), "offset 320: after packet 3: ");
    EXPECT_THAT(readFile(whole.substr(0, 10)).faults, SizeIs(1));
}

TEST(Capture, ATimeThatNoClockHasIsLeftOut) {
    CaptureWriter capture(CaptureWriter::Form::Pcapng);
    auto link = capture.open(40000, 5000);
    capture.setTime(-1); // in the file it is the highest number of 64 bits
    capture.send(link, 0, frame(1, 1, true, 7, "a"));
    EXPECT_THAT(readFile(capture.bytes()).messages, ElementsAre("- H->E S1F1 W 7 <A [1] \"a\">"));
}

TEST(Capture, DamagedBytesNeverEndTheProgram) {
    CaptureWriter capture(CaptureWriter::Form::Pcapng);
    auto link = capture.open(40000, 5000);
    for (std::uint32_t i = 0; i < 5; ++i)
        capture.send(link, static_cast<int>(i % 2), frame(1, 1, true, i, "some text"));
    std::uint32_t random = 1;
    for (int round = 0; round < 300; ++round) {
        std::string bytes = capture.bytes();
        for (int change = 0; change < 3; ++change) {
            random = random * 1664525U + 1013904223U;
            bytes[random / 7 % bytes.size()] = static_cast<char>(random >> 24U);
        }
        EXPECT_LE(readFile(bytes).messages.size(), 6U);
    }
}

} // namespace
} // namespace zb::test
