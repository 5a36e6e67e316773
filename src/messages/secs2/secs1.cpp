#include "messages/secs2/secs1.h"

#include <algorithm>

namespace zb::secs2 {

namespace {

constexpr unsigned kHighBit = 0x80;
constexpr std::size_t kLeastLength = 10;
constexpr std::size_t kMostLength = 254;
constexpr std::size_t kChecksumSize = 2;
constexpr std::size_t kMostOpenMessages = 16;
constexpr std::size_t kMostBlocks = 0x7FFF;

unsigned byteAt(std::string_view bytes, std::size_t offset) {
    return static_cast<unsigned char>(bytes[offset]);
}

unsigned checksum(std::string_view bytes) {
    unsigned sum = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        sum += byteAt(bytes, i);
    return sum & 0xFFFFU;
}

} // namespace

std::optional<Block> decodeBlock(std::string_view bytes) {
    const std::size_t length = bytes.empty() ? 0 : byteAt(bytes, 0);
    if (length < kLeastLength || length > kMostLength || bytes.size() < 1 + length + kChecksumSize)
        return std::nullopt;
    const std::string_view content = bytes.substr(1, length);
    if (checksum(content) != (byteAt(bytes, 1 + length) << 8U | byteAt(bytes, 2 + length)))
        return std::nullopt;
    Block block;
    block.header = decodeHeader(content);
    block.toHost = (byteAt(content, 0) & kHighBit) != 0;
    block.header.session &= 0x7FFF;
    block.header.pType = 0;
    block.header.sType = 0;
    block.isLast = (byteAt(content, 4) & kHighBit) != 0;
    block.number = (byteAt(content, 4) & ~kHighBit) << 8U | byteAt(content, 5);
    block.data = content.substr(kHsmsHeaderSize);
    block.size = 1 + length + kChecksumSize;
    return block;
}

void appendBlocks(std::string& bytes, const Header& header, bool toHost, std::string_view data) {
    unsigned number = 0;
    do {
        const std::string_view part = data.substr(0, kMostBlockData);
        data.remove_prefix(part.size());
        ++number;
        Header ofBlock = header;
        ofBlock.session = static_cast<std::uint16_t>(header.session | (toHost ? 0x8000U : 0U));
        ofBlock.pType = static_cast<std::uint8_t>(number >> 8U | (data.empty() ? kHighBit : 0U));
        ofBlock.sType = static_cast<std::uint8_t>(number & 0xFFU);
        std::string content;
        appendHeader(content, ofBlock);
        content += part;
        bytes += static_cast<char>(content.size());
        bytes += content;
        bytes += static_cast<char>(checksum(content) >> 8U);
        bytes += static_cast<char>(checksum(content) & 0xFFU);
    } while (!data.empty() && number < kMostBlocks);
}

std::optional<BlockMessage> BlockJoiner::add(const Block& block) {
    const auto found = std::find_if(open_.begin(), open_.end(), [&](const OpenMessage& open) {
        return open.message.header == block.header && open.message.toHost == block.toHost;
    });
    if (found == open_.end()) {
        if (block.number > 1) {
            ++dropped_;
            return std::nullopt;
        }
        BlockMessage message{block.header, block.toHost, std::string(block.data)};
        if (block.isLast)
            return message;
        open_.push_back({std::move(message), block.number + 1});
        if (open_.size() > kMostOpenMessages) {
            open_.pop_front();
            ++dropped_;
        }
        return std::nullopt;
    }
    if (block.number + 1 == found->nextNumber)
        return std::nullopt;
    if (block.number != found->nextNumber) {
        open_.erase(found);
        ++dropped_;
        return std::nullopt;
    }
    found->message.data += block.data;
    ++found->nextNumber;
    if (!block.isLast)
        return std::nullopt;
    std::optional<BlockMessage> message = std::move(found->message);
    open_.erase(found);
    return message;
}

} // namespace zb::secs2
