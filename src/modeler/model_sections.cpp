#include "modeler/model_sections.h"

#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

namespace {

constexpr std::string_view kHeaderMarker = "###[PROJECT INFORMATION]";
constexpr std::string_view kMessagesMarker = "## [EDIT SMD]";
constexpr std::string_view kSequenceMarker = "###[SEQUENCE TABLE]";

enum class Section { Header, Messages, Model, Sequences };

bool opensSection(std::string_view line) {
    return trimmed(line.substr(0, 2)) == "##";
}

// Blank lines at the end belong to the marker that follows.
void dropBlankEnd(std::vector<std::string>& lines) {
    while (!lines.empty() && isBlank(lines.back()))
        lines.pop_back();
}

} // namespace

ModelSections ModelSections::parse(std::string_view projectText) {
    ModelSections sections;
    Section section = Section::Header;
    LineReader lines(projectText);
    while (const auto line = lines.next()) {
        if (*line == kSequenceMarker) {
            section = Section::Sequences;
            continue;
        }
        if (section != Section::Sequences && opensSection(*line)) {
            if (trimmed(*line) == kMessagesMarker)
                section = Section::Messages;
            else if (*line == kHeaderMarker)
                section = Section::Header;
            else
                section = Section::Model;
        }
        if (section == Section::Model)
            sections.model_.emplace_back(*line);
        else if (section == Section::Sequences)
            sections.sequences_.emplace_back(*line);
    }
    dropBlankEnd(sections.model_);
    dropBlankEnd(sections.sequences_);
    return sections;
}

void ModelSections::clear() {
    model_.clear();
    sequences_.clear();
}

std::string ModelSections::compose() const {
    std::string text;
    const auto append = [&](std::string_view line) {
        text += line;
        text += "\r\n";
    };
    for (const std::string& line : model_)
        append(line);
    for (int blank = 0; blank < 3; ++blank)
        append("");
    append(kSequenceMarker);
    for (const std::string& line : sequences_)
        append(line);
    return text;
}

} // namespace zb
