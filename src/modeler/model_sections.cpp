#include "modeler/model_sections.h"

#include "modeler/project_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

namespace {

// Blank lines at the end belong to the marker that follows.
void dropBlankEnd(std::vector<std::string>& lines) {
    while (!lines.empty() && isBlank(lines.back()))
        lines.pop_back();
}

} // namespace

ModelSections ModelSections::parse(std::string_view projectText) {
    ModelSections sections;
    ProjectLines sorter;
    LineReader lines(projectText);
    while (const auto line = lines.next()) {
        const auto section = sorter.take(*line);
        if (section == ProjectLines::Section::Foreign)
            sections.foreign_.emplace_back(*line);
        else if (section == ProjectLines::Section::Sequences)
            sections.sequences_.emplace_back(*line);
    }
    dropBlankEnd(sections.foreign_);
    dropBlankEnd(sections.sequences_);
    return sections;
}

void ModelSections::clear() {
    foreign_.clear();
    sequences_.clear();
}

std::string ModelSections::compose(std::string_view modelText) const {
    std::string text;
    const auto append = [&](std::string_view line) {
        text += line;
        text += "\r\n";
    };
    for (const std::string& line : foreign_)
        append(line);
    text += modelText;
    for (int blank = 0; blank < 3; ++blank)
        append("");
    append(kSequenceMarker);
    for (const std::string& line : sequences_)
        append(line);
    return text;
}

} // namespace zb
