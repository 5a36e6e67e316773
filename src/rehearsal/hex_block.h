#pragma once

#include "messages/secs2/secs1.h"
#include "rehearsal/packet_reader.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb::rehearsal {

/// Bytes that a log shows in hexadecimal: HSMS frames, messages without their length, SECS-I blocks, or
/// packets of a network.
class HexBlock {
public:
    /// Gets the header and the data of each message.
    using Take = std::function<void(std::string_view message)>;
    using TakeBlockMessage = std::function<void(const secs2::BlockMessage&)>;

    bool empty() const { return bytes_.empty(); }
    std::string& bytes() { return bytes_; }
    void clear() { bytes_.clear(); }

    /// Takes the complete frames and blocks from the front.
    void takeComplete(const Take& take, const TakeBlockMessage& takeBlocks);
    /// Whether a frame begins here.
    static bool beginsFrame(std::string_view bytes);
    /// Whether the bytes at the front begin a frame that is not complete.
    bool isWithinFrame() const;
    /// Takes what is left when no more bytes follow: a message without its length of `size` bytes, or of all
    /// bytes. False, with the bytes still there, when they are no message.
    bool takeRest(const std::optional<std::size_t>& size, const Take& take);
    /// The bytes have the form of an Ethernet packet.
    bool isPacket() const;
    std::size_t openBlocks() const { return joiner_.incomplete(); }

private:
    std::string bytes_;
    secs2::BlockJoiner joiner_;
};

} // namespace zb::rehearsal
