#pragma once

#include "messages/secs2/item_codec.h"
#include "rehearsal/frame_stream.h"
#include "rehearsal/recording.h"

#include <cstdint>
#include <deque>
#include <string>
#include <tins/tcp_ip/data_tracker.h>
#include <vector>

namespace zb::rehearsal {

/// What one TCP segment brings to its connection.
struct Segment {
    std::uint32_t sequence = 0;
    std::uint32_t acknowledged = 0;
    bool hasAcknowledgement = false;
    bool starts = false; ///< SYN
    bool ends = false;   ///< FIN or RST
    std::vector<std::uint8_t> data;
    std::optional<RecordedTime> time;
    std::size_t packet = 0;
};

/// Where the messages and faults of all connections go.
struct PacketResults {
    std::deque<RecordedMessage> messages;
    std::vector<RecordingFault> faults;
};

/// One TCP connection. Its two ends are numbered 0 and 1.
class Connection {
public:
    Connection(std::size_t link, PacketResults& results) : link_(link), results_(results) {}

    /// The end that is the host's. Decided once, before the first segment with data.
    void setHost(int end) { hostEnd_ = end; }
    /// A segment that end `from` has sent.
    void add(int from, Segment segment);
    /// Reads what is left, across gaps.
    void finish();
    bool hasEnded() const { return ends_[0].ended && ends_[1].ended; }
    /// Whether a segment that starts a connection starts another one than this.
    bool isRestartedBy(int from, const Segment& segment) const;
    bool hasFrames() const { return ends_[0].frames.hasFrames() || ends_[1].frames.hasFrames(); }

private:
    struct End {
        Tins::TCPIP::DataTracker tracker;
        FrameStream frames;
        bool known = false; ///< the sequence number of the next byte is
        bool ended = false;
        std::uint32_t first = 0; ///< the sequence number of SYN
        bool hasFirst = false;
    };
    void skipLostBytes(int from, const Segment* acknowledging);
    void readFrames(int from, const std::optional<RecordedTime>& time, std::size_t packet);
    void emit(int from, std::string_view frame, const std::optional<RecordedTime>& time, std::size_t packet);

    End ends_[2];
    std::size_t link_;
    PacketResults& results_;
    secs2::ItemDecoder decoder_;
    int hostEnd_ = 0;
    std::optional<RecordedTime> lastTime_;
    std::size_t lastPacket_ = 0;
};

/// Fills the items from the bytes of a message, or says why they cannot be read.
void decodeData(std::string_view data, secs2::ItemDecoder& decoder, RecordedMessage& message);

} // namespace zb::rehearsal
