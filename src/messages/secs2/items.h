#pragma once

#include "messages/secs2/format.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zb::secs2 {

/// One data item of a message. Its position in `Items` follows that of the list that contains it.
struct Item {
    Format format = Format::List;
    std::uint32_t size = 0;  ///< the members of a list; otherwise the bytes of its data
    std::uint32_t begin = 0; ///< of its data, among the bytes of the message
    std::uint32_t end = 0;   ///< the index after its subtree
};

/// The data of one message: at most one root item with everything below it, each item before its members.
/// Values are kept as the bytes of the message, so that a message is read without converting what nobody asks
/// for.
class Items {
public:
    bool empty() const { return items_.empty(); }
    std::size_t size() const { return items_.size(); }
    const Item& operator[](std::size_t index) const { return items_[index]; }
    /// The bytes of an item that is no list.
    std::string_view data(const Item& item) const {
        return std::string_view(bytes_).substr(item.begin, item.format == Format::List ? 0 : item.size);
    }
    /// The memory that the items take beside the object itself, in bytes.
    std::size_t memory() const {
        return items_.capacity() * sizeof(Item) + bytes_.capacity() +
               open_.capacity() * sizeof(std::uint32_t);
    }
    /// The number of members, characters (bytes of a text) or values.
    static std::size_t count(const Item& item);

    /// A value of an item of one of the formats I, U, B or BOOLEAN. `position` is below its count. A number
    /// of U8 above the largest signed number is given by `unsignedValue` alone.
    std::int64_t signedValue(const Item& item, std::size_t position) const;
    std::uint64_t unsignedValue(const Item& item, std::size_t position) const;
    /// A value of F4 or F8.
    double floatValue(const Item& item, std::size_t position) const;
    /// One value as SML and definitions write it: "12", "-3.5", "True"; numbers read back as the same value.
    void appendValue(std::string& text, const Item& item, std::size_t position) const;

    /// @name Building
    /// Items are added below the innermost open list; without one, the item is the root.
    /// @{
    void clear();
    void openList();
    void closeList();
    void addText(Format format, std::string_view bytes) { add(format, bytes); }
    /// Starts an item of numbers, bytes or truth values; `append...` adds to it.
    void addValues(Format format) { add(format, {}); }
    /// Cut to the width of the format.
    void appendInteger(std::uint64_t value);
    void appendFloat(double value);
    bool hasOpenList() const { return !open_.empty(); }
    /// @}

    /// Equal formats, structure and data.
    bool operator==(const Items& other) const;

private:
    friend class ItemDecoder;
    void add(Format format, std::string_view bytes);
    std::uint64_t bits(const Item& item, std::size_t position) const;

    std::vector<Item> items_;
    std::string bytes_;
    std::vector<std::uint32_t> open_; ///< the lists under construction
};

} // namespace zb::secs2
