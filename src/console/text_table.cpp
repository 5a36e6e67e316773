#include "console/text_table.h"

#include "console/printable.h"
#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace zb {

void TextTable::add(std::vector<std::string> row) {
    for (std::string& text : row)
        text = printable(text);
    rows_.push_back(std::move(row));
}

std::vector<std::string> TextTable::lines() const {
    std::vector<std::size_t> widths;
    for (const auto& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], codePointCount(row[i]));
    }
    std::vector<std::string> lines;
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - codePointCount(row[i]) + 2, ' ');
        lines.push_back(trimRight(line));
    }
    return lines;
}

} // namespace zb
