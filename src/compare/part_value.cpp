#include "compare/part_value.h"

#include "compare/item_lines.h"
#include "compare/project_parts.h"
#include "model/fact_text.h"
#include "model/model_reader.h"
#include "model/sequence_lines.h"
#include "platform/text.h"
#include "project/project_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zb {

namespace {

using Text = std::optional<std::string>;

ProjectParts::Section sectionOf(PartKind kind) {
    switch (kind) {
    case PartKind::Message:
    case PartKind::Item:
        return ProjectParts::Messages;
    case PartKind::TrMessage:
    case PartKind::TrItem:
        return ProjectParts::Model;
    case PartKind::Sequence:
        return ProjectParts::SequenceTable;
    case PartKind::Project:
        break;
    }
    return ProjectParts::Foreign;
}

bool isSide(const ValuePlace& at) {
    return at.kind == PartKind::Project && at.place.name.empty() && at.field == "side";
}

/// An item of the message's tree, and not one of a TR message, whose path is its name.
bool isTreePath(const ValuePlace& at) {
    return !at.place.path.empty() && at.place.path.find_first_not_of("0123456789/") == std::string::npos;
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

/// Lines of a file.
std::string withLineEnds(const std::string& text) {
    return text.empty() ? text : replaceAll(replaceAll(text, "\r", ""), "\n", "\r\n") + "\r\n";
}

/// The row of a sequence that people see as direction and name.
std::string rowOfShown(const std::string& shown) {
    std::string direction;
    std::string name = shown;
    for (const char* word : {"ToHost", "ToEquip"}) {
        const std::string start = std::string(word) + " ";
        if (name.starts_with(start)) {
            direction = word;
            name.erase(0, start.size());
        }
    }
    constexpr const char* kSeparator = "\u00FF";
    return std::string(kSequenceItem) + kSeparator + kSeparator + direction + kSeparator + name;
}

/// Sets a value of one part.
class PartValue {
public:
    PartValue(const PartForm& form, const ValuePlace& at) : form_(form), at_(at) {}

    Text read(std::string_view block) const {
        if (at_.field.empty() && at_.place.path.empty())
            return shownBlock(block);
        const Entry entry = form_.read(block);
        if (at_.place.path.empty())
            return fieldOf(entry);
        if (const Entry* part = partOf(entry); part != nullptr)
            return at_.field.empty() ? Text(shownPart(*part)) : fieldOf(*part);
        const auto node = ItemLines::find(entry.items, at_.place.path);
        if (!node || *node == ItemTree::kRoot)
            return std::nullopt;
        const bool isWhole = at_.field.empty() && form_.itemsHaveNames();
        return isWhole ? entry.items.subtreeText(*node) : form_.shownItem(entry.items.at(*node).text);
    }

    /// The lines of the part; nothing, and `fault`, when the value cannot be set.
    std::optional<std::string> set(std::string_view block, const Text& value) {
        Entry entry = form_.read(block);
        if (at_.place.path.empty())
            setField(entry, value);
        else if (const Entry* part = partOf(entry); part != nullptr)
            setPart(entry, *part, value);
        else
            setItem(entry, value);
        return fault.empty() ? std::optional(form_.write(entry)) : std::nullopt;
    }

    std::string fault;

private:
    Text fieldOf(const Entry& entry) const {
        if (at_.field == "name")
            return entry.name;
        if (at_.field == "items")
            return shownItems(entry.items);
        const EntryField* field = entry.find(at_.field);
        return field == nullptr ? Text() : Text(field->value);
    }

    const Entry* partOf(const Entry& entry) const {
        if (at_.kind != PartKind::TrItem)
            return nullptr;
        const auto part = std::find_if(entry.parts.begin(), entry.parts.end(),
                                       [this](const Entry& item) { return item.name == at_.place.path; });
        return part == entry.parts.end() ? nullptr : &*part;
    }

    void setField(Entry& entry, const Text& value) {
        if (at_.field == "name" && value)
            entry.name = *value;
        else if (at_.field == "items")
            setItems(entry, value.value_or(std::string()));
        else
            setEntryField(entry, value.value_or(std::string()));
    }

    void setItems(Entry& entry, const std::string& text) const {
        ItemLines lines(entry.items);
        lines.replaceAll(text);
        entry.items = lines.tree();
    }

    void setEntryField(Entry& entry, const std::string& value) {
        const bool isOfModel = form_.kind() == PartKind::TrMessage;
        if (isOfModel && (at_.field == "statements" || at_.field == "data")) {
            fault = "it is changed in the modeler";
            return;
        }
        std::string stored = value;
        if (isOfModel) {
            stored.clear();
            appendFactText(stored, value);
        } else if (at_.field == "other" || at_.field == "section") {
            stored = withLineEnds(value);
        }
        for (EntryField& field : entry.fields) {
            if (field.key != at_.field)
                continue;
            field.value = value;
            field.stored = stored;
            return;
        }
        fault = "there is no field " + at_.field;
    }

    void setPart(Entry& entry, const Entry& part, const Text& value) {
        Entry& item = entry.parts[static_cast<std::size_t>(&part - entry.parts.data())];
        if (!at_.field.empty())
            return at_.field == "name" && value ? void(item.name = *value)
                                                : setEntryField(item, value.value_or(std::string()));
        if (value)
            fault = "it is changed in the modeler";
        else
            entry.parts.erase(entry.parts.begin() + (&part - entry.parts.data()));
    }

    void setItem(Entry& entry, const Text& value) {
        if (!isTreePath(at_) || (!at_.field.empty() && at_.field != "text")) {
            fault = at_.field == "position" ? "its place is changed in the editor" : "it is missing";
            return;
        }
        ItemLines lines(entry.items);
        const Text text = value && !form_.itemsHaveNames() ? Text(rowOfShown(*value)) : value;
        if (at_.field == "text" && text)
            lines.setText(at_.place.path, *text);
        else if (!lines.replace(at_.place.path, text))
            fault = "the list that it belongs to is missing";
        entry.items = lines.tree();
    }

    const PartForm& form_;
    const ValuePlace& at_;
};

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

} // namespace

std::optional<std::string> valueAt(const Project& project, const ValuePlace& place) {
    if (isSide(place))
        return wordOf(project.side);
    const ProjectParts parts(project);
    const auto section = sectionOf(place.kind);
    const PartForm& form = ProjectParts::form(section);
    const Blocks& blocks = parts.blocks(section);
    const std::size_t at = findBlock(form, blocks, place.place.name);
    if (at >= blocks.size())
        return std::nullopt;
    if (place.field == "position" && place.place.path.empty())
        return std::to_string(at + 1);
    return PartValue(form, place).read(blocks[at].text);
}

Result<Project, std::string> withValue(const Project& project, const ValuePlace& place,
                                       const std::optional<std::string>& value) {
    if (isSide(place)) {
        Project changed = parseProject(composeProject(project));
        changed.side = value == wordOf(Side::Host) ? Side::Host : Side::Equipment;
        changed.model->setProjectType(projectTypeOf(changed.side));
        return changed;
    }
    const ProjectParts parts(project);
    const auto section = sectionOf(place.kind);
    const PartForm& form = ProjectParts::form(section);
    const Blocks& blocks = parts.blocks(section);
    const std::size_t at = findBlock(form, blocks, place.place.name);
    if (place.field.empty() && place.place.path.empty()) {
        const Text text = value ? Text(withLineEnds(*value)) : Text();
        return withSection(parts, section, joined(blocks, at, text));
    }
    if (place.field == "position" && place.place.path.empty())
        return std::string("its place is changed in the editor");
    if (at >= blocks.size())
        return place.place.name + " is missing";
    PartValue setter(form, place);
    const std::optional<std::string> text = setter.set(blocks[at].text, value);
    if (!text)
        return setter.fault;
    return withSection(parts, section, joined(blocks, at, *text));
}

} // namespace zb
