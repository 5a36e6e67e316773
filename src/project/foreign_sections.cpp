#include "project/foreign_sections.h"

#include "model/project_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

ForeignSections ForeignSections::parse(std::string_view projectText) {
    ForeignSections sections;
    ProjectLines sorter;
    LineReader lines(projectText);
    while (const auto line = lines.next()) {
        if (sorter.take(*line) == ProjectLines::Section::Foreign)
            sections.lines_.emplace_back(*line);
    }
    // Blank lines at the end belong to the marker that follows.
    while (!sections.lines_.empty() && isBlank(sections.lines_.back()))
        sections.lines_.pop_back();
    return sections;
}

std::string ForeignSections::text() const {
    std::string text;
    for (const std::string& line : lines_) {
        text += line;
        text += "\r\n";
    }
    return text;
}

} // namespace zb
