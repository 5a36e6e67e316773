#include "messages/secs2/item_codec.h"

#include <string>

namespace zb::secs2 {

namespace {

constexpr unsigned kLengthBits = 3; // of the format byte
constexpr unsigned kFormatShift = 2;

unsigned byteAt(std::string_view bytes, std::size_t offset) {
    return static_cast<unsigned char>(bytes[offset]);
}

std::string describeOverrun(const FormatTraits& traits, std::size_t claimed, std::size_t left) {
    return "an item of format " + std::string(traits.word) + " claims " + std::to_string(claimed) +
           " bytes, " + std::to_string(left) + " are left";
}

void appendHead(std::string& bytes, Format format, std::uint32_t length) {
    const unsigned lengthBytes = length > 0xFFFF ? 3 : length > 0xFF ? 2 : 1;
    bytes += static_cast<char>(static_cast<unsigned>(format) << kFormatShift | lengthBytes);
    for (unsigned i = lengthBytes; i-- > 0;)
        bytes += static_cast<char>(length >> (8 * i) & 0xFFU);
}

} // namespace

std::optional<DecodeFault> ItemDecoder::readItem(std::string_view bytes, std::size_t& offset, Items& items) {
    const std::size_t start = offset;
    const unsigned lengthBytes = byteAt(bytes, start) & kLengthBits;
    const std::optional<FormatTraits> traits = traitsOfCode(byteAt(bytes, start) >> kFormatShift);
    if (!traits)
        return DecodeFault{start, "the format byte has no known format code"};
    if (lengthBytes == 0)
        return DecodeFault{start, "the format byte announces no length byte"};
    if (bytes.size() - start <= lengthBytes)
        return DecodeFault{start, "the data ends within the length bytes of an item"};
    std::uint32_t length = 0;
    for (unsigned i = 1; i <= lengthBytes; ++i)
        length = length << 8U | byteAt(bytes, start + i);
    offset = start + 1 + lengthBytes;
    const std::size_t left = bytes.size() - offset;
    if (traits->kind == ValueKind::List) {
        // Each member takes at least two bytes.
        if (length > left / 2)
            return DecodeFault{start, "a list claims " + std::to_string(length) + " members, " +
                                          std::to_string(left) + " bytes are left"};
    } else if (length > left) {
        return DecodeFault{start, describeOverrun(*traits, length, left)};
    } else if (length % traits->width != 0) {
        return DecodeFault{start, "an item of format " + std::string(traits->word) + " has " +
                                      std::to_string(length) + " bytes, which are no whole values"};
    }
    const auto index = static_cast<std::uint32_t>(items.items_.size());
    items.items_.push_back({traits->format, length, static_cast<std::uint32_t>(offset), index + 1});
    if (!open_.empty())
        --open_.back().missing;
    if (traits->kind != ValueKind::List)
        offset += length;
    else if (open_.size() == kDeepestList)
        return DecodeFault{start, "more than " + std::to_string(kDeepestList) + " lists within each other"};
    else
        open_.push_back({index, length});
    return std::nullopt;
}

void ItemDecoder::closeFullLists(Items& items) {
    while (!open_.empty() && open_.back().missing == 0) {
        items.items_[open_.back().index].end = static_cast<std::uint32_t>(items.items_.size());
        open_.pop_back();
    }
}

std::optional<DecodeFault> ItemDecoder::decode(std::string_view bytes, Items& items) {
    items.clear();
    open_.clear();
    std::size_t offset = 0;
    std::optional<DecodeFault> fault;
    while (!fault && offset < bytes.size()) {
        if (open_.empty() && !items.empty()) {
            fault = DecodeFault{offset, std::to_string(bytes.size() - offset) + " bytes follow the item"};
            break;
        }
        fault = readItem(bytes, offset, items);
        if (!fault)
            closeFullLists(items);
    }
    if (!fault && !open_.empty())
        fault = DecodeFault{offset, "the data ends within a list; " + std::to_string(open_.back().missing) +
                                        " more members are announced"};
    if (fault)
        items.clear();
    else
        items.bytes_.assign(bytes);
    return fault;
}

std::optional<DecodeFault> decodeItems(std::string_view bytes, Items& items) {
    return ItemDecoder().decode(bytes, items);
}

bool encodeItems(const Items& items, std::string& bytes) {
    const std::size_t start = bytes.size();
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].size > kLargestItem) {
            bytes.resize(start);
            return false;
        }
        appendHead(bytes, items[i].format, items[i].size);
        bytes += items.data(items[i]);
    }
    return true;
}

} // namespace zb::secs2
