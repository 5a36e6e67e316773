#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zb {

/// Up to so many versions are shown side by side.
inline constexpr std::size_t kMostVersions = 3;

/// Where an element is in each version; kNowhere where it is missing.
inline constexpr auto kNowhere = static_cast<std::size_t>(-1);
using UnitedPlaces = std::array<std::size_t, kMostVersions>;

/// A list of another version, whose elements are numbers, and how it is matched with the first version.
struct OtherList {
    const std::vector<std::size_t>& elements;
    const std::vector<std::size_t>& ofFirst; ///< for elements of the first version the partner, or kNowhere
    const std::vector<std::size_t>& toFirst; ///< for elements of this version the partner, or kNowhere
    /// Elements that two other versions add under one key are the same one.
    std::function<std::string(std::size_t element)> keyOf;
};

/// Lists of up to three versions as one: the elements of the first version in their order, and what the
/// others add after the element that it follows there. Elements that another version has elsewhere are left
/// out: they are listed where the first version has them.
std::vector<UnitedPlaces> uniteLists(const std::vector<std::size_t>& first,
                                     const std::vector<OtherList>& others);

} // namespace zb
