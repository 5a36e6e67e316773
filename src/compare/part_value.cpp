#include "compare/part_value.h"

#include "compare/project_parts.h"
#include "compare/single_part_value.h"
#include "model/model_reader.h"
#include "model/sequence_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zb {

namespace {

using Text = std::optional<std::string>;

bool isSide(const ValuePlace& at) {
    return at.kind == PartKind::Project && at.place.name.empty() && at.field == "side";
}

std::size_t findBlock(const PartForm& form, const Blocks& blocks, const std::string& name) {
    const auto exactly =
        std::find_if(blocks.begin(), blocks.end(), [&](const Block& block) { return block.name == name; });
    if (exactly != blocks.end())
        return static_cast<std::size_t>(exactly - blocks.begin());
    const std::string key = form.nameKey(name);
    const auto alike = std::find_if(blocks.begin(), blocks.end(),
                                    [&](const Block& block) { return form.nameKey(block.name) == key; });
    return static_cast<std::size_t>(alike - blocks.begin());
}

std::string linesOf(const std::string& text) {
    return replaceAll(replaceAll(text, "\r", ""), "\n", "\r\n") + "\r\n";
}

/// The texts of all blocks, without one, or with another text for it; past the end it is added.
std::string joined(const Blocks& blocks, std::size_t replaced, const Text& text) {
    std::string section;
    for (std::size_t at = 0; at < blocks.size(); ++at)
        section += at == replaced ? text.value_or(std::string()) : std::string(blocks[at].text);
    return replaced < blocks.size() ? section : section + text.value_or(std::string());
}

/// The project with another text for one section.
Project withSection(const ProjectParts& parts, ProjectParts::Section section, const std::string& text) {
    const auto textOf = [&](ProjectParts::Section which) {
        return which == section ? text : joined(parts.blocks(which), parts.blocks(which).size(), {});
    };
    Project project;
    project.side = parts.project().side;
    if (parts.project().messages.hasSection() || section == ProjectParts::Messages)
        project.messages = ProjectMessages(textOf(ProjectParts::Messages));
    project.model->setProjectType(projectTypeOf(project.side));
    readModel({textOf(ProjectParts::Model)}, *project.model);
    project.sequences = readSequences(textOf(ProjectParts::SequenceTable));
    project.foreign = ForeignSections::parse({textOf(ProjectParts::Foreign)});
    return parseProject(composeProject(project));
}

/// How many parts have a name that another one has before them.
std::size_t namesTaken(const Project& project, ProjectParts::Section section) {
    const PartForm& form = ProjectParts::form(section);
    const ProjectParts parts(project);
    std::set<std::string> names;
    for (const Block& block : parts.blocks(section))
        names.insert(form.nameKey(block.name));
    return parts.blocks(section).size() - names.size();
}

std::size_t countOfParts(const Project& project) {
    const ProjectParts parts(project);
    std::size_t count = 0;
    for (std::size_t section = 0; section < ProjectParts::kSections; ++section)
        count += parts.blocks(section).size();
    return count;
}

/// Without blanks around lines, and without counts of lists, which may follow their items.
std::string comparable(const Text& value) {
    std::string text;
    LineReader lines(*value);
    while (const auto line = lines.next()) {
        std::string_view rest = trimmed(*line);
        if (rest.starts_with("L ")) {
            takeWord(rest);
            takeWord(rest);
        }
        text.append(rest).append("\n");
    }
    return text;
}

/// Where a value is after it has been set.
ValuePlace afterwards(ValuePlace place, const std::string& value) {
    place.isMissing = false;
    if (place.field == "name" && place.place.path.empty())
        place.place.name = value;
    else if (place.field == "name")
        place.place.path = value;
    return place;
}

/// What is written may be something else when it is read: a line that ends the message, or begins another.
Result<Project, std::string> checked(Project changed, const Project& before, const ValuePlace& place,
                                     const Text& value) {
    const auto section = ProjectParts::sectionOf(place.kind);
    if (namesTaken(changed, section) > namesTaken(before, section))
        return std::string("another one has this name");
    if (!value || place.field == "position")
        return changed;
    const Text now = valueAt(changed, afterwards(place, *value));
    const bool isWhole = place.field.empty() && place.place.path.empty();
    const bool isSame = now && comparable(now) == comparable(value);
    const bool isInOnePlace = countOfParts(changed) == countOfParts(before);
    if (isWhole ? countOfParts(changed) <= countOfParts(before) + 1 : isSame && isInOnePlace)
        return changed;
    return std::string("this value has another form");
}

/// The section with one part at another position, from 1.
std::string moved(const Blocks& blocks, std::size_t at, std::size_t position) {
    Blocks order = blocks;
    const Block part = order[at];
    order.erase(order.begin() + static_cast<std::ptrdiff_t>(at));
    const std::size_t place = std::min(position - 1, order.size());
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), part);
    return joined(order, order.size(), {});
}

Result<Project, std::string> changed(const Project& project, const ValuePlace& place, const Text& value) {
    if (isSide(place)) {
        Project changed = parseProject(composeProject(project));
        changed.side = value == wordOf(Side::Host) ? Side::Host : Side::Equipment;
        changed.model->setProjectType(projectTypeOf(changed.side));
        return changed;
    }
    const ProjectParts parts(project);
    const auto section = ProjectParts::sectionOf(place.kind);
    const PartForm& form = ProjectParts::form(section);
    const Blocks& blocks = parts.blocks(section);
    const std::size_t at = findBlock(form, blocks, place.place.name);
    const bool isOfPart = place.place.path.empty();
    if (isOfPart && (place.field.empty() || (place.field == "name" && !value))) {
        const Text text = value ? Text(linesOf(*value)) : Text();
        return withSection(parts, section, joined(blocks, at, text));
    }
    if (at >= blocks.size())
        return place.place.name + " is missing";
    if (isOfPart && place.field == "position") {
        const std::size_t position = numberOfPosition(value);
        if (position == 0)
            return std::string("a position is a number");
        return withSection(parts, section, moved(blocks, at, position));
    }
    const auto text = SinglePartValue(form, place).set(blocks[at].text, value);
    if (!text)
        return text.error().text;
    return withSection(parts, section, joined(blocks, at, *text));
}

Text valueIn(const ProjectParts& parts, const ValuePlace& place) {
    const auto section = ProjectParts::sectionOf(place.kind);
    const PartForm& form = ProjectParts::form(section);
    const Blocks& blocks = parts.blocks(section);
    const std::size_t at = findBlock(form, blocks, place.place.name);
    if (at >= blocks.size())
        return std::nullopt;
    if (place.field == "position" && place.place.path.empty())
        return std::to_string(at + 1);
    return SinglePartValue(form, place).read(blocks[at].text);
}

} // namespace

ValuePlace placeOfConflict(const MergeConflict& conflict) {
    const bool isMissing = !conflict.ours && conflict.field.empty() && !conflict.place.path.empty();
    return {conflict.kind, conflict.place, conflict.field, isMissing};
}

std::optional<std::string> valueAt(const Project& project, const ValuePlace& place) {
    return valuesAt(project, {place}).front();
}

std::vector<std::optional<std::string>> valuesAt(const Project& project,
                                                 const std::vector<ValuePlace>& places) {
    const ProjectParts parts(project);
    std::vector<Text> values;
    values.reserve(places.size());
    for (const ValuePlace& place : places)
        values.push_back(isSide(place) ? Text(wordOf(project.side)) : valueIn(parts, place));
    return values;
}

Result<Project, std::string> withValue(const Project& project, const ValuePlace& place,
                                       const std::optional<std::string>& value) {
    Result<Project, std::string> result = changed(project, place, value);
    if (!result)
        return result;
    return checked(std::move(result).value(), project, place, value);
}

} // namespace zb
