#include "compare/project_parts.h"

#include "model/model_writer.h"
#include "model/sequence_lines.h"

namespace zb {

ProjectParts::ProjectParts(const Project& project)
    : project_(project), foreign_(project.foreign.text()), model_(composeModel(*project.model)) {
    appendSequences(sequences_, project.sequences);
    blocks_[Foreign] = foreignForm().split(foreign_);
    blocks_[Messages] = messageForm().split(project.messages.text());
    blocks_[Model] = trMessageForm().split(model_);
    blocks_[SequenceTable] = sequenceForm().split(sequences_);
}

const PartForm& ProjectParts::form(std::size_t section) {
    switch (section) {
    case Messages:
        return messageForm();
    case Model:
        return trMessageForm();
    case SequenceTable:
        return sequenceForm();
    default:
        return foreignForm();
    }
}

ProjectParts::Section ProjectParts::sectionOf(PartKind kind) {
    switch (kind) {
    case PartKind::Message:
    case PartKind::Item:
        return Messages;
    case PartKind::TrMessage:
    case PartKind::TrItem:
        return Model;
    case PartKind::Sequence:
        return SequenceTable;
    case PartKind::Project:
        break;
    }
    return Foreign;
}

std::string wordOf(Side side) {
    return side == Side::Host ? "host" : "equipment";
}

} // namespace zb
