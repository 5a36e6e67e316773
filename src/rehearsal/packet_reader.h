#pragma once

#include "rehearsal/recording.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb::rehearsal {

/// The link types of packets, as libpcap numbers them.
inline constexpr int kEthernetLink = 1;

/// Follows the TCP connections in packets and takes the HSMS messages out of them. A segment that comes again
/// counts once; one that the recording misses costs the messages that it was a part of.
class PacketReader {
public:
    explicit PacketReader(const RecordingOptions& options);
    ~PacketReader();
    PacketReader(const PacketReader&) = delete;
    PacketReader& operator=(const PacketReader&) = delete;

    /// Whether packets of the link type can be read.
    static bool knows(int linkType);
    /// `number` of the packet, from 1, for places.
    void add(int linkType, std::string_view bytes, const std::optional<RecordedTime>& time,
             std::size_t number);
    /// There are no more packets: what is left is read as far as possible.
    void finish();

    /// The next message that is complete; false when more packets are needed.
    bool take(RecordedMessage& message);
    std::vector<RecordingFault> takeFaults();

private:
    class Follower;
    std::unique_ptr<Follower> follower_;
};

} // namespace zb::rehearsal
