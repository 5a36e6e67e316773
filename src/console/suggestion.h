#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace zb {

/// The word that takes the fewest single-character edits (insert, remove, replace, swap two neighbours) to
/// become the given one. Nothing when even that takes more than a third of the characters. The first of
/// equals wins.
std::optional<std::string> nearestWord(std::string_view word, const std::vector<std::string>& words);

/// After a failed parse: the unknown verb or option, and the known one nearest to it. Nothing when something
/// else was wrong.
std::optional<std::string> describeUnknownWord(const CLI::App& app);

} // namespace zb
