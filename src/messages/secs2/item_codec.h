#pragma once

#include "messages/secs2/items.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The bytes of SECS-II data items: a format byte, 1 to 3 length bytes, data.
namespace zb::secs2 {

/// The most bytes of data, or members of a list, that three length bytes can express.
inline constexpr std::size_t kLargestItem = 0xFFFFFF;
/// Lists within lists beyond this depth are refused; no definition is nested deeper.
inline constexpr std::size_t kDeepestList = 1000;

/// Why bytes are no message.
struct DecodeFault {
    std::size_t offset = 0; ///< of the format byte of the item at fault, from the start of the data
    std::string text;       ///< a sentence on one line, without the offset
};

/// Reads the data of messages. It keeps its memory from message to message.
class ItemDecoder {
public:
    /// Replaces `items` by the items of the bytes, which are all the data of one message: nothing, or one
    /// item. After a fault `items` is empty. More length bytes than needed are accepted. Time and memory are
    /// in proportion to the bytes, whatever lengths they claim.
    std::optional<DecodeFault> decode(std::string_view bytes, Items& items);

private:
    struct OpenList {
        std::uint32_t index;
        std::uint32_t missing; // members
    };
    std::optional<DecodeFault> readItem(std::string_view bytes, std::size_t& offset, Items& items);
    void closeFullLists(Items& items);

    std::vector<OpenList> open_;
};

/// The same with a decoder of its own.
std::optional<DecodeFault> decodeItems(std::string_view bytes, Items& items);

/// Appends the bytes of the items, with the fewest length bytes. False, with `bytes` as they were, when an
/// item is larger than kLargestItem.
bool encodeItems(const Items& items, std::string& bytes);

} // namespace zb::secs2
