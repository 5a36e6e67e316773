#include "messages/secs2/format.h"

#include <algorithm>
#include <array>

namespace zb::secs2 {

namespace {

constexpr std::array kFormats = {
    FormatTraits{Format::List, "L", 0, ValueKind::List},
    FormatTraits{Format::Binary, "B", 1, ValueKind::Binary},
    FormatTraits{Format::Boolean, "BOOLEAN", 1, ValueKind::Boolean},
    FormatTraits{Format::Ascii, "A", 1, ValueKind::Text},
    FormatTraits{Format::Jis8, "J", 1, ValueKind::Text},
    FormatTraits{Format::Char2, "W", 1, ValueKind::Text},
    FormatTraits{Format::I8, "I8", 8, ValueKind::Signed},
    FormatTraits{Format::I1, "I1", 1, ValueKind::Signed},
    FormatTraits{Format::I2, "I2", 2, ValueKind::Signed},
    FormatTraits{Format::I4, "I4", 4, ValueKind::Signed},
    FormatTraits{Format::F8, "F8", 8, ValueKind::Float},
    FormatTraits{Format::F4, "F4", 4, ValueKind::Float},
    FormatTraits{Format::U8, "U8", 8, ValueKind::Unsigned},
    FormatTraits{Format::U1, "U1", 1, ValueKind::Unsigned},
    FormatTraits{Format::U2, "U2", 2, ValueKind::Unsigned},
    FormatTraits{Format::U4, "U4", 4, ValueKind::Unsigned},
};

constexpr std::size_t kCodes = 64;
constexpr std::uint8_t kUnused = 0xFF;

/// The index in kFormats of each code.
constexpr auto kIndexes = [] {
    std::array<std::uint8_t, kCodes> indexes{};
    indexes.fill(kUnused);
    for (std::size_t i = 0; i < kFormats.size(); ++i)
        indexes[static_cast<std::size_t>(kFormats[i].format)] = static_cast<std::uint8_t>(i);
    return indexes;
}();

} // namespace

std::optional<FormatTraits> traitsOfCode(unsigned code) {
    if (code >= kCodes || kIndexes[code] == kUnused)
        return std::nullopt;
    return kFormats[kIndexes[code]];
}

const FormatTraits& traitsOf(Format format) {
    return kFormats[kIndexes[static_cast<std::size_t>(format)]];
}

std::optional<Format> formatOfWord(std::string_view word) {
    const auto* const found = std::find_if(
        kFormats.begin(), kFormats.end(), [word](const FormatTraits& traits) { return traits.word == word; });
    if (found == kFormats.end() || found->format == Format::Char2)
        return std::nullopt;
    return found->format;
}

} // namespace zb::secs2
