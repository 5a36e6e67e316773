#pragma once

#include <string>
#include <vector>

namespace zb {

/// Rows of text in columns as wide as their longest text, separated by two blanks, without trailing blanks.
class TextTable {
public:
    /// Each text is made printable.
    void add(std::vector<std::string> row);
    /// The rows as lines, without line ends.
    std::vector<std::string> lines() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

} // namespace zb
