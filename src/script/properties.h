#pragma once

#include "script/program.h"

#include <span>
#include <string_view>

namespace zb {

struct Place;

/// How a property is read from the stores.
struct PropertyRule {
    std::string_view name;
    PropertyValue (*read)(const Place& place);
};

/// The properties of a window, control or member, by its kind; none for the program itself.
std::span<const PropertyRule> propertyRules(const Place& place);

/// All columns of a row, joined in the notation of scripts.
std::string joinedCells(const Place& row);

} // namespace zb
