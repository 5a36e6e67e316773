#include "unit/libraries/layout_table.h"

#include <fstream>
#include <regex>
#include <stdexcept>

namespace zb::test {

namespace {

std::vector<std::string> readLines(const std::string& file) {
    std::ifstream in(std::string(ZB_LIBRARY_DATA) + "/" + file);
    if (!in)
        throw std::runtime_error("cannot read " + file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// The rows of a table without its headings; every row must have `columns` columns.
std::vector<std::vector<std::string>> readTable(const std::string& file, std::size_t columns) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& line : readLines(file)) {
        rows.push_back(splitAt(line, "\t"));
        if (rows.back().size() != columns)
            throw std::runtime_error(file + ": bad row: " + line);
    }
    rows.erase(rows.begin());
    return rows;
}

} // namespace

std::vector<std::string> splitAt(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    auto end = text.find(separator);
    while (end != std::string_view::npos) {
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
        end = text.find(separator);
    }
    parts.emplace_back(text);
    return parts;
}

LayoutTable readLayouts() {
    LayoutTable table;
    for (const auto& row : readTable("layouts.tsv", 7)) {
        const Layout layout{std::stoi(row[0]),     std::stoi(row[1]), row[2], row[3], row[4],
                            splitAt(row[6], " | ")};
        table.emplace(std::pair{layout.stream, layout.function}, layout);
    }
    return table;
}

ItemFormats readItemFormats() {
    ItemFormats formats;
    for (const auto& row : readTable("items.tsv", 2))
        formats.emplace(row[0], splitAt(row[1], "/"));
    return formats;
}

std::vector<std::string> readNames(const std::string& file) {
    return readLines(file);
}

std::string numberRepeatedItems(const std::string& layout) {
    // A list's "L" is followed by its bracket, an item's name never is.
    static const std::regex itemName(R"([A-Z][A-Z0-9]*(?![A-Z0-9*\[]))");
    std::map<std::string, int> seen;
    std::string numbered;
    auto position = layout.cbegin();
    for (std::sregex_iterator it(layout.begin(), layout.end(), itemName), end; it != end; ++it) {
        numbered.append(position, (*it)[0].second);
        position = (*it)[0].second;
        if (const int place = ++seen[it->str()]; place > 1)
            numbered += std::to_string(place);
    }
    return numbered.append(position, layout.cend());
}

} // namespace zb::test
