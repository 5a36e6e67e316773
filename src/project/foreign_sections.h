#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The sections of a project file, between the SECS messages and the sequence table, that this program does
/// not know. Their lines are kept as they stand, so that a save writes back what was read.
class ForeignSections {
public:
    /// Takes the sections out of a project file's whole text.
    static ForeignSections parse(std::string_view projectText);

    const std::vector<std::string>& lines() const { return lines_; }
    void clear() { lines_.clear(); }
    /// The lines with CR LF.
    std::string text() const;

private:
    std::vector<std::string> lines_;
};

} // namespace zb
