#pragma once

#include <string>
#include <vector>

namespace zb {

/// Rows of text in columns that are as wide as their longest text, two blanks apart; nothing stands behind
/// the last one.
class TextTable {
public:
    /// Each text is made printable.
    void add(std::vector<std::string> row);
    /// The rows as lines, without their line ends.
    std::vector<std::string> lines() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

} // namespace zb
