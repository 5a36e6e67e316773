#include "rehearsal/connection.h"

namespace zb::rehearsal {

namespace {

/// A receiver does not accept more bytes out of order than its window has.
constexpr std::size_t kMostBufferedBytes = std::size_t{1} << 20U;
constexpr std::size_t kMostBufferedSegments = 1024;

/// Sequence numbers count in a circle.
bool isAtOrAfter(std::uint32_t left, std::uint32_t right) {
    return static_cast<std::int32_t>(left - right) >= 0;
}

std::string packetPlace(std::size_t packet) {
    return "packet " + std::to_string(packet);
}

/// The segment that comes next in the circle, of those that wait.
std::uint32_t firstBuffered(const Tins::TCPIP::DataTracker& tracker) {
    const std::uint32_t next = tracker.sequence_number();
    std::uint32_t first = tracker.buffered_payload().begin()->first;
    for (const auto& [sequence, data] : tracker.buffered_payload())
        if (sequence - next < first - next)
            first = sequence;
    return first;
}

} // namespace

void decodeData(std::string_view data, secs2::ItemDecoder& decoder, RecordedMessage& message) {
    message.fault.clear();
    if (const auto fault = decoder.decode(data, message.items))
        message.fault = "offset " + std::to_string(fault->offset) + " of the data: " + fault->text;
}

bool Connection::isRestartedBy(int from, const Segment& segment) const {
    const End& end = ends_[from];
    return segment.starts && (hasEnded() || (end.hasFirst ? end.first != segment.sequence : end.known));
}

void Connection::add(int from, Segment segment) {
    End& end = ends_[from];
    lastTime_ = segment.time;
    lastPacket_ = segment.packet;
    if (segment.starts && !end.known) {
        end.tracker.sequence_number(segment.sequence + 1);
        end.first = segment.sequence;
        end.known = end.hasFirst = true;
    }
    if (segment.starts)
        ++segment.sequence;
    if (!end.known) {
        end.tracker.sequence_number(segment.sequence);
        end.known = true;
    }
    if (segment.hasAcknowledgement)
        skipLostBytes(1 - from, &segment);
    if (!segment.data.empty())
        end.tracker.process_payload(segment.sequence, std::move(segment.data));
    if (end.tracker.total_buffered_bytes() > kMostBufferedBytes ||
        end.tracker.buffered_payload().size() > kMostBufferedSegments)
        skipLostBytes(from, nullptr);
    end.ended = end.ended || segment.ends;
    readFrames(from, segment.time, segment.packet);
}

/// Goes on after bytes that the recording does not contain: the other end has acknowledged bytes after them,
/// or too many wait for them.
void Connection::skipLostBytes(int from, const Segment* acknowledging) {
    End& end = ends_[from];
    if (end.tracker.buffered_payload().empty())
        return;
    const std::uint32_t first = firstBuffered(end.tracker);
    if (acknowledging != nullptr && !isAtOrAfter(acknowledging->acknowledged, first))
        return;
    readFrames(from, lastTime_, lastPacket_);
    const std::uint32_t missing = first - end.tracker.sequence_number();
    results_.faults.push_back({packetPlace(lastPacket_),
                               std::to_string(missing) + " bytes of a connection are not in the recording"});
    end.frames.markGap();
    end.frames.takeSkipped();
    // The tracker forgets the segment at which it goes on, so that one is given to it again.
    std::vector<std::uint8_t> waiting = end.tracker.buffered_payload().find(first)->second;
    end.tracker.advance_sequence(first);
    end.tracker.process_payload(first, std::move(waiting));
    readFrames(from, lastTime_, lastPacket_);
}

void Connection::readFrames(int from, const std::optional<RecordedTime>& time, std::size_t packet) {
    End& end = ends_[from];
    auto& data = end.tracker.payload();
    if (data.empty())
        return;
    end.frames.append({reinterpret_cast<const char*>(data.data()), data.size()});
    data.clear();
    while (const auto frame = end.frames.next())
        emit(from, *frame, time, packet);
    const std::size_t skipped = end.frames.takeSkipped();
    if (skipped > 0 && end.frames.hasFrames())
        results_.faults.push_back(
            {packetPlace(packet), std::to_string(skipped) + " bytes of a connection are no HSMS message"});
}

void Connection::emit(int from, std::string_view frame, const std::optional<RecordedTime>& time,
                      std::size_t packet) {
    RecordedMessage message;
    message.time = time;
    message.direction = from == hostEnd_ ? Direction::ToEquip : Direction::ToHost;
    message.link = link_;
    message.header = secs2::decodeHeader(frame);
    message.hasSystem = true;
    message.place = packetPlace(packet);
    decodeData(frame.substr(secs2::kHsmsHeaderSize), decoder_, message);
    results_.messages.push_back(std::move(message));
}

void Connection::finish() {
    for (const int from : {0, 1}) {
        while (!ends_[from].tracker.buffered_payload().empty())
            skipLostBytes(from, nullptr);
        if (ends_[from].frames.hasFrames() && ends_[from].frames.pending() > 0)
            results_.faults.push_back(
                {packetPlace(lastPacket_), "the recording of a connection ends within a message"});
    }
}

} // namespace zb::rehearsal
