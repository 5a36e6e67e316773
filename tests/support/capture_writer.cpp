#include "support/capture_writer.h"

namespace zb::test {

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
constexpr std::uint32_t kLongestPacket = 262144;

/// Numbers of a network, the highest byte first.
void appendBig(std::string& bytes, std::uint64_t value, unsigned width) {
    for (unsigned i = width; i-- > 0;)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

/// Numbers of the file, the lowest byte first.
void appendLittle(std::string& bytes, std::uint64_t value, unsigned width) {
    for (unsigned i = 0; i < width; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

void appendBlock(std::string& bytes, std::uint32_t type, std::string content) {
    content.resize((content.size() + 3) / 4 * 4);
    const auto length = content.size() + 12;
    appendLittle(bytes, type, 4);
    appendLittle(bytes, length, 4);
    bytes += content;
    appendLittle(bytes, length, 4);
}

} // namespace

CaptureWriter::CaptureWriter(Form form, Network network) : form_(form), network_(network) {
    if (form == Form::Pcap) {
        appendLittle(bytes_, 0xA1B23C4D, 4); // times in nanoseconds
        appendLittle(bytes_, 2, 2);
        appendLittle(bytes_, 4, 2);
        appendLittle(bytes_, 0, 8);
        appendLittle(bytes_, kLongestPacket, 4);
        appendLittle(bytes_, 1, 4);
        return;
    }
    std::string section;
    appendLittle(section, 0x1A2B3C4D, 4);
    appendLittle(section, 1, 2);
    appendLittle(section, 0, 2);
    section.append(8, '\xFF');
    appendBlock(bytes_, 0x0A0D0D0A, section);
    std::string interface;
    appendLittle(interface, 1, 2);
    appendLittle(interface, 0, 2);
    appendLittle(interface, kLongestPacket, 4);
    appendLittle(interface, 9, 2); // times in nanoseconds
    appendLittle(interface, 1, 2);
    appendLittle(interface, 9, 4);
    appendLittle(interface, 0, 4);
    appendBlock(bytes_, 1, interface);
}

CaptureWriter::Link CaptureWriter::open(std::uint16_t clientPort, std::uint16_t serverPort) {
    Link link;
    link.clientPort = clientPort;
    link.serverPort = serverPort;
    add(packet(link, 0, {}, kStarts));
    add(packet(link, 1, {}, kStarts | kAcknowledges));
    add(packet(link, 0, {}, kAcknowledges));
    return link;
}

void CaptureWriter::close(Link& link) {
    add(packet(link, 0, {}, kEnds | kAcknowledges));
    add(packet(link, 1, {}, kEnds | kAcknowledges));
}

std::string CaptureWriter::internetHeader(int from, std::size_t length) const {
    std::string header;
    if (network_ == Network::V4) {
        appendBig(header, 0x4500, 2);
        appendBig(header, 20 + length, 2);
        appendBig(header, 0, 4);
        appendBig(header, 0x4006, 2);
        appendBig(header, 0, 2);
        appendBig(header, from == 0 ? 0xC0A80133 : 0xC0A8011F, 4);
        appendBig(header, from == 0 ? 0xC0A8011F : 0xC0A80133, 4);
        return header;
    }
    appendBig(header, 0x60000000, 4);
    appendBig(header, length, 2);
    appendBig(header, 0x0640, 2);
    for (const int end : {from, 1 - from}) {
        appendBig(header, 0xFD00000000000000, 8);
        appendBig(header, end == 0 ? 0x33 : 0x1F, 8);
    }
    return header;
}

std::string CaptureWriter::packet(Link& link, int from, std::string_view data, unsigned flags) {
    std::string bytes(12, '\2');
    appendBig(bytes, network_ == Network::V4 ? 0x0800 : 0x86DD, 2);
    bytes += internetHeader(from, 20 + data.size());
    appendBig(bytes, from == 0 ? link.clientPort : link.serverPort, 2);
    appendBig(bytes, from == 0 ? link.serverPort : link.clientPort, 2);
    auto& next = link.next[static_cast<std::size_t>(from)];
    appendBig(bytes, next, 4);
    appendBig(bytes, (flags & kAcknowledges) != 0 ? link.next[static_cast<std::size_t>(1 - from)] : 0, 4);
    appendBig(bytes, 0x5000 | flags, 2);
    appendBig(bytes, 0xFFFF, 2);
    appendBig(bytes, 0, 4);
    bytes += data;
    next += static_cast<std::uint32_t>(data.size()) + ((flags & (kStarts | kEnds)) != 0 ? 1 : 0);
    return bytes;
}

void CaptureWriter::add(std::string_view packet) {
    if (form_ == Form::Pcap) {
        appendLittle(bytes_, static_cast<std::uint64_t>(time_ / 1'000'000'000), 4);
        appendLittle(bytes_, static_cast<std::uint64_t>(time_ % 1'000'000'000), 4);
        appendLittle(bytes_, packet.size(), 4);
        appendLittle(bytes_, packet.size(), 4);
        bytes_ += packet;
    } else {
        std::string block;
        appendLittle(block, 0, 4);
        appendLittle(block, static_cast<std::uint64_t>(time_) >> 32U, 4);
        appendLittle(block, static_cast<std::uint64_t>(time_), 4);
        appendLittle(block, packet.size(), 4);
        appendLittle(block, packet.size(), 4);
        block += packet;
        appendBlock(bytes_, 6, block);
    }
    time_ += kMillisecond;
}

} // namespace zb::test
