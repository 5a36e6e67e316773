#pragma once

#include "messages/secs2/hsms.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>

// Messages on a serial line, in blocks: length byte, 10 bytes header, up to 244 bytes of data, checksum.
namespace zb::secs2 {

inline constexpr std::size_t kMostBlockData = 244;

/// One block, taken apart.
struct Block {
    Header header;       ///< of its message; the session is the device id
    bool toHost = false; ///< the R bit
    bool isLast = true;  ///< the E bit
    unsigned number = 1; ///< of the block in its message; a message of one block may count from 0
    std::string_view data;
    std::size_t size = 0; ///< of the whole block, with length and checksum
};

/// The block at the start of the bytes; nothing when the length, the checksum or the number of bytes is
/// wrong.
std::optional<Block> decodeBlock(std::string_view bytes);

/// Appends the blocks of a message.
void appendBlocks(std::string& bytes, const Header& header, bool toHost, std::string_view data);

/// A message from its blocks.
struct BlockMessage {
    Header header;
    bool toHost = false;
    std::string data;
};

/// Joins the blocks of messages, also when those of several messages alternate.
class BlockJoiner {
public:
    /// The message that the block completes. A repeated block is dropped; a block out of order ends its
    /// message.
    std::optional<BlockMessage> add(const Block& block);
    /// Messages whose blocks did not go on.
    std::size_t incomplete() const { return open_.size() + dropped_; }

private:
    struct OpenMessage {
        BlockMessage message;
        unsigned nextNumber = 0;
    };
    std::list<OpenMessage> open_; // the oldest first
    std::size_t dropped_ = 0;
};

} // namespace zb::secs2
