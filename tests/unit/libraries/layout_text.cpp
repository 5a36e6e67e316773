#include "unit/libraries/layout_text.h"

#include <fstream>
#include <map>
#include <regex>
#include <stdexcept>

namespace zb::test {

std::vector<std::string> readNames(const std::string& file) {
    std::ifstream in(std::string(ZB_LIBRARY_DATA) + "/" + file);
    if (!in)
        throw std::runtime_error("cannot read " + file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::string numberRepeatedItems(std::string_view layout) {
    // A list's "L" is followed by its bracket, an item's name never is.
    static const std::regex kItemName(R"([A-Z][A-Z0-9]*(?![A-Z0-9*\[]))");
    const std::string text(layout);
    std::map<std::string, int> seen;
    std::string numbered;
    auto position = text.cbegin();
    for (std::sregex_iterator it(text.begin(), text.end(), kItemName), end; it != end; ++it) {
        numbered.append(position, (*it)[0].second);
        position = (*it)[0].second;
        if (const int place = ++seen[it->str()]; place > 1)
            numbered += std::to_string(place);
    }
    return numbered.append(position, text.cend());
}

} // namespace zb::test
