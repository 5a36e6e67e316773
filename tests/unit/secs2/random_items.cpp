#include "unit/secs2/random_items.h"

#include <array>

namespace zb::test {

namespace {

using secs2::Format;
using secs2::Items;
using secs2::ValueKind;

constexpr std::array kFormats = {Format::Binary, Format::Boolean, Format::Ascii, Format::Jis8, Format::Char2,
                                 Format::I8,     Format::I1,      Format::I2,    Format::I4,   Format::F8,
                                 Format::F4,     Format::U8,      Format::U1,    Format::U2,   Format::U4};

class Maker {
public:
    explicit Maker(std::mt19937& random) : random_(random) {}

    Items make() {
        if (below(8) > 0)
            addItem(0);
        return std::move(items_);
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    void addItem(std::size_t depth) {
        if (depth < 5 && below(3) == 0)
            addList(depth);
        else
            addValue(kFormats[below(kFormats.size())]);
    }

    void addList(std::size_t depth) {
        items_.openList();
        for (std::size_t members = below(6); members > 0; --members)
            addItem(depth + 1);
        items_.closeList();
    }

    void addValue(Format format) {
        const ValueKind kind = secs2::traitsOf(format).kind;
        const std::size_t count = below(40) == 0 ? below(70'000) : below(6);
        if (kind == ValueKind::Text)
            return addText(format, count);
        items_.addValues(format);
        for (std::size_t i = 0; i < count; ++i)
            if (kind == ValueKind::Float)
                items_.appendFloat(static_cast<double>(random_()) / 7.0 - 1e8);
            else if (kind == ValueKind::Boolean)
                items_.appendInteger(below(2));
            else
                items_.appendInteger(std::uint64_t{random_()} << 32U | random_());
    }

    void addText(Format format, std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i)
            text += static_cast<char>(below(256));
        items_.addText(format, text);
    }

    std::mt19937& random_;
    Items items_;
};

} // namespace

Items randomItems(std::mt19937& random) {
    return Maker(random).make();
}

} // namespace zb::test
