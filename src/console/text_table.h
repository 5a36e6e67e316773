#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zb {

/// Rows of text in columns that are as wide as their longest text, two blanks apart; nothing stands behind
/// the last one.
class TextTable {
public:
    void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
    /// The rows as lines, without their line ends.
    std::vector<std::string> lines() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

} // namespace zb
