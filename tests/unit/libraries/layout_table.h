#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The published message layouts, as read from data/layouts.tsv and data/items.tsv.
namespace zb::test {

struct Layout {
    int stream = 0;
    int function = 0;
    std::string title;
    std::string direction;
    std::string reply; // "yes", "optional", "no"
    std::vector<std::string> forms;
};

using LayoutTable = std::map<std::pair<int, int>, Layout>;
using ItemFormats = std::map<std::string, std::vector<std::string>>;

LayoutTable readLayouts();
ItemFormats readItemFormats();
std::vector<std::string> readNames(const std::string& file);

// The parts of `text` between each two `separator`s; one part when there is none.
std::vector<std::string> splitAt(std::string_view text, std::string_view separator);

// The layout with each repeated item numbered from its second place on: "L[A, A]" gives "L[A, A2]".
std::string numberRepeatedItems(const std::string& layout);

} // namespace zb::test
