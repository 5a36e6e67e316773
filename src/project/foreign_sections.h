#pragma once

#include "project/project_sections.h"

#include <string>
#include <vector>

namespace zb {

/// The sections of a project file, between the SECS messages and the sequence table, that this program does
/// not know. Their lines are kept as they are, so that a save writes back what was read.
class ForeignSections {
public:
    /// Takes the lines of the sections.
    static ForeignSections parse(const TextParts& parts);

    const std::vector<std::string>& lines() const { return lines_; }
    void clear() { lines_.clear(); }
    /// The lines with CR LF.
    std::string text() const;

    bool operator==(const ForeignSections&) const = default;

private:
    std::vector<std::string> lines_;
};

} // namespace zb
