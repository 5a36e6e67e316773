#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string_view>

namespace zb {

/// The document, with the keys of each object in the order of the text; of several equal keys the last value
/// counts. Nothing for what is no JSON, and for one that nests deeper than `deepest`. Takes time in
/// proportion to the text: `nlohmann::ordered_json::parse` looks through all keys of an object for each new
/// one.
std::optional<nlohmann::ordered_json> readOrderedJson(std::string_view text, std::size_t deepest);

} // namespace zb
