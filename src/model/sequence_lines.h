#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// What stands between the fields of a row.
inline constexpr std::string_view kSequenceSeparator = "\u00FF";

/// A row of the sequence table as it stands in a project file.
struct SequenceLine {
    /// The rows of a project file's text, behind the marker of the table. The first line with fewer than four
    /// fields ends the reading; it still gives a row when it has two.
    static std::vector<SequenceLine> readAll(std::string_view projectText);
    /// Takes the fields apart, each without the blanks around it.
    static SequenceLine parse(std::string_view line);

    bool whole() const { return fieldCount >= 4; }
    bool isHead() const { return picture == "SeqName"; }

    std::string picture;
    std::string text; ///< the sequence's name, or the item's ordinal
    std::string direction;
    std::string transactionName;
    std::size_t fieldCount = 0; ///< what is missing is empty
};

} // namespace zb
