#pragma once

#include "platform/finding.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

struct ProjectSections;

/// Where the messages, TR messages and sequences of a project are in the text of its file. Making one reads
/// the whole text, so it is made only when lines are asked for.
class ProjectLines {
public:
    /// `projectText` is decoded; lines count as in the file.
    explicit ProjectLines(std::string_view projectText);

    /// Fills in line and column. A place that is not in the text, as of a message that was added since, gets
    /// the line of what is around it, or none.
    void locate(FindingPlace& place) const;

private:
    struct Position {
        std::size_t line = 0;
        std::size_t column = 0;
    };

    std::size_t lineOf(const char* place) const;
    Position positionOf(std::string_view line) const;
    void readMessages(const ProjectSections& sections);
    void readModel(const ProjectSections& sections);
    void readSequences(const ProjectSections& sections);

    std::string_view text_;
    std::vector<std::size_t> starts_; ///< of the lines of the text
    std::vector<Position> nodes_;     ///< by flat Index of a message tree, from 1
    std::vector<Position> sequences_; ///< by row, from 1
    std::map<std::pair<std::string, std::string>, Position> model_; ///< by TR message and item
};

} // namespace zb
