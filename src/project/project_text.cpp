#include "project/project_text.h"

#include "model/model_reader.h"
#include "model/model_writer.h"
#include "model/sequence_lines.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <vector>

namespace zb {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kModelVersion = "1";

ProjectMessages messagesOf(const ProjectSections& sections) {
    if (!sections.hasMessages)
        return {};
    constexpr std::string_view kBlanks = " \r\n";
    // Blank lines at the end belong to the next marker, and so does a last section of nothing else.
    std::size_t count = sections.messages.size();
    while (count > 0 && sections.messages[count - 1].find_first_not_of(kBlanks) == std::string_view::npos)
        --count;
    std::string text;
    for (std::size_t at = 0; at < count; ++at) {
        if (at > 0)
            text.append(kMessagesMarker).append(kLineEnd);
        text += sections.messages[at];
    }
    const std::size_t last = text.find_last_not_of(kBlanks);
    const std::size_t end = last == std::string::npos ? 0 : text.find('\n', last);
    if (end == std::string::npos)
        text += kLineEnd;
    else
        text.resize(last == std::string::npos ? 0 : end + 1);
    return ProjectMessages(std::move(text));
}

/// Where the section of messages goes in a project without one: after the header, before all that follows
/// with its blank lines.
std::size_t placeOfSection(std::string_view text) {
    LineReader lines(text);
    std::size_t place = 0;
    bool afterBlank = false;
    while (const auto line = lines.next()) {
        if (!afterBlank)
            place = static_cast<std::size_t>(line->data() - text.data());
        afterBlank = isBlank(*line);
        if (line->starts_with("##") && *line != kHeaderMarker)
            return place;
    }
    return text.size();
}

} // namespace

bool hasProjectLine(std::string_view text) {
    LineReader lines(text);
    while (const auto line = lines.next()) {
        if (!line->starts_with("##"))
            continue;
        const std::string marker = trimRight(*line);
        if (marker == kHeaderMarker || marker == kMessagesMarker)
            return true;
    }
    return false;
}

Project parseProject(std::string_view text, const Progress& progress) {
    constexpr double kSplit = 0.4;
    constexpr double kModelRead = 0.9;
    const ProjectSections sections = splitProject(text);
    progress.part(0, kSplit).at(1, 1);
    Project project;
    project.side = readSide(text);
    project.messages = messagesOf(sections);
    project.model->setProjectType(projectTypeOf(project.side));
    readModel(sections.model, *project.model, progress.part(kSplit, kModelRead));
    project.sequences = readSequences(sections.sequences);
    project.foreign = ForeignSections::parse(sections.foreign);
    return project;
}

Side readSide(std::string_view projectText) {
    LineReader lines(projectText);
    auto line = lines.next();
    while (line && *line != kHeaderMarker)
        line = lines.next();
    const auto typeLine = line ? lines.next() : std::nullopt;
    if (!typeLine || lines.atEnd())
        return Side::Host;
    const auto pieces = split(*typeLine, "=");
    const bool saysType = pieces.size() > 1 && trim(pieces[0]) == "ProjectType";
    return saysType && valueOf(pieces[1]) == projectTypeOf(Side::Equipment) ? Side::Equipment : Side::Host;
}

std::string composeProject(const Project& project) {
    return composeStart(project.side, project.messages) +
           composeModelSections(project.foreign, *project.model, project.sequences);
}

std::string composeStart(Side side, const ProjectMessages& messages) {
    std::string text;
    text.reserve(messages.text().size() + 100);
    text.append(kLineEnd).append(kHeaderMarker).append(kLineEnd);
    text.append("ProjectType=").append(std::to_string(projectTypeOf(side))).append(kLineEnd);
    if (messages.hasSection())
        text.append(kMessagesMarker).append(kLineEnd).append(messages.text());
    return text;
}

std::string composeModelSections(const ForeignSections& foreign, const TRModelStore& model,
                                 const Sequences& sequences) {
    std::string text = foreign.text();
    if (!model.TRMessages().empty()) {
        text.append(kModelMarker).append(" ").append(kModelVersion).append(kLineEnd);
        text += composeModel(model);
    }
    // The sequences are the last section of the file.
    text.append("\r\n\r\n\r\n").append(kSequenceMarker).append(kLineEnd);
    appendSequences(text, sequences);
    return text;
}

std::string insertMessages(std::string_view projectText, std::string_view messages) {
    const auto inserted = [&](std::size_t place, std::string_view before) {
        return std::string(projectText.substr(0, place))
            .append(before)
            .append(messages)
            .append(projectText.substr(place));
    };
    LineReader lines(projectText);
    bool inSection = false;
    while (const auto line = lines.next()) {
        const std::string_view content = trimmed(*line);
        if (inSection && content.substr(0, 2) == "##")
            return inserted(static_cast<std::size_t>(line->data() - projectText.data()), {});
        inSection = inSection || content == kMessagesMarker;
    }
    const std::size_t place = inSection ? projectText.size() : placeOfSection(projectText);
    std::string before(place == 0 || projectText[place - 1] == '\n' ? "" : kLineEnd);
    if (!inSection)
        before.append(kMessagesMarker).append(kLineEnd);
    return inserted(place, before);
}

} // namespace zb
