#pragma once

#include <span>
#include <string_view>

// The texts of this folder as they were when the build was configured, one element a message: its comment
// line, its head and its items, lines separated by LF, none at the end. `kGem` holds one element with the
// names of its messages, a name a line. The tables `kLayouts` and `kItems` are one element each, a row a
// line.
namespace zb::libraries {

extern const std::span<const std::string_view> kSemi1To6;
extern const std::span<const std::string_view> kSemi7To14;
extern const std::span<const std::string_view> kSemi15To17;
extern const std::span<const std::string_view> kGem;
extern const std::span<const std::string_view> kLayouts;
extern const std::span<const std::string_view> kItems;

} // namespace zb::libraries
