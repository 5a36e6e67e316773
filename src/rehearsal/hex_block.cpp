#include "rehearsal/hex_block.h"

#include "messages/secs2/item_codec.h"
#include "rehearsal/frame_stream.h"

namespace zb::rehearsal {

namespace {

using secs2::kHsmsHeaderSize;
using secs2::kHsmsLengthSize;

constexpr std::size_t kFrameStart = kHsmsLengthSize + kHsmsHeaderSize;
constexpr std::string_view kHandshake = "\x05\x04\x06\x15"; // ENQ, EOT, ACK, NAK
constexpr std::size_t kTypeOfPacket = 12;

bool isHandshake(char byte) {
    return kHandshake.find(byte) != std::string_view::npos;
}

} // namespace

void HexBlock::takeComplete(const Take& take, const TakeBlockMessage& takeBlocks) {
    std::string_view rest = bytes_;
    while (!rest.empty()) {
        if (rest.size() >= kFrameStart && isFrameStart(rest)) {
            const std::size_t length = secs2::bigEndian32(rest);
            if (rest.size() - kHsmsLengthSize < length)
                break;
            take(rest.substr(kHsmsLengthSize, length));
            rest.remove_prefix(kHsmsLengthSize + length);
        } else if (const auto block = secs2::decodeBlock(rest)) {
            if (const auto message = joiner_.add(*block))
                takeBlocks(*message);
            rest.remove_prefix(block->size);
        } else if (isHandshake(rest.front()) && (rest.size() == 1 || secs2::decodeBlock(rest.substr(1)))) {
            rest.remove_prefix(1);
        } else {
            break;
        }
    }
    bytes_.erase(0, bytes_.size() - rest.size());
}

bool HexBlock::beginsFrame(std::string_view bytes) {
    return bytes.size() >= kFrameStart && isFrameStart(bytes);
}

bool HexBlock::isWithinFrame() const {
    return beginsFrame(bytes_) && bytes_.size() - kHsmsLengthSize < secs2::bigEndian32(bytes_);
}

bool HexBlock::takeRest(const std::optional<std::size_t>& size, const Take& take) {
    const std::string_view message = std::string_view(bytes_).substr(0, size.value_or(bytes_.size()));
    if (message.size() < kHsmsHeaderSize || (size && message.size() < *size) ||
        !secs2::isPlausibleHeader(message))
        return false;
    const secs2::Header header = secs2::decodeHeader(message);
    secs2::Items items;
    if (header.isControl()
            ? message.size() != kHsmsHeaderSize
            : header.stream == 0 || (!size && secs2::decodeItems(message.substr(kHsmsHeaderSize), items)))
        return false;
    take(message);
    bytes_.clear();
    return true;
}

bool HexBlock::isPacket() const {
    const std::string_view type = std::string_view(bytes_).substr(std::min(bytes_.size(), kTypeOfPacket), 2);
    return type == std::string_view("\x08\x00", 2) || type == "\x86\xDD" ||
           type == std::string_view("\x81\x00", 2);
}

} // namespace zb::rehearsal
