#include "project/foreign_sections.h"

#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

ForeignSections ForeignSections::parse(const TextParts& parts) {
    ForeignSections sections;
    for (const std::string_view part : parts) {
        LineReader lines(part);
        while (const auto line = lines.next())
            sections.lines_.emplace_back(*line);
    }
    // Blank lines at the end belong to the next marker.
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
