#include "compare/project_merge.h"

#include "compare/project_parts.h"
#include "compare/rename_following.h"
#include "compare/section_merge.h"
#include "model/model_reader.h"
#include "model/sequence_lines.h"
#include "project/project_text.h"

#include <string>
#include <unordered_set>
#include <utility>

namespace zb {

namespace {

Side mergeSides(const ProjectParts& base, const ProjectParts& ours, const ProjectParts& theirs,
                const MergeContext& context) {
    const Side side = ours.project().side;
    if (side != base.project().side || theirs.project().side == base.project().side)
        return side;
    return context.takesStep({PartKind::Project, ChangeKind::Changed, {}, {}, "side"}) ? theirs.project().side
                                                                                       : side;
}

/// The blank lines before the first message, which belong to no part.
std::string_view linesBeforeMessages(const ProjectParts& parts) {
    const std::string_view text = parts.project().messages.text();
    const Blocks& messages = parts.blocks(ProjectParts::Messages);
    if (messages.empty())
        return {};
    return text.substr(0, static_cast<std::size_t>(messages.front().text.data() - text.data()));
}

Project mergeParts(const ProjectParts& base, const ProjectParts& ours, const ProjectParts& theirs,
                   MergeContext& context) {
    std::array<std::string, ProjectParts::kSections> sections;
    for (std::size_t section = 0; section < ProjectParts::kSections; ++section)
        sections[section] =
            mergeSections(ProjectParts::form(section),
                          {base.blocks(section), ours.blocks(section), theirs.blocks(section)}, context);
    Project merged;
    merged.side = mergeSides(base, ours, theirs, context);
    const bool hasSection =
        base.project().messages.hasSection()
            ? ours.project().messages.hasSection() && theirs.project().messages.hasSection()
            : ours.project().messages.hasSection() || theirs.project().messages.hasSection();
    if (!sections[ProjectParts::Messages].empty()) {
        const std::string_view before = linesBeforeMessages(ours);
        const bool isTheirs = !context.takes && before == linesBeforeMessages(base);
        sections[ProjectParts::Messages].insert(0, isTheirs ? linesBeforeMessages(theirs) : before);
    }
    if (hasSection || !sections[ProjectParts::Messages].empty())
        merged.messages = ProjectMessages(std::move(sections[ProjectParts::Messages]));
    merged.model->setProjectType(projectTypeOf(merged.side));
    readModel({sections[ProjectParts::Model]}, *merged.model);
    if (!context.takes)
        followRenames(merged, base, ours, theirs);
    merged.sequences = readSequences(sections[ProjectParts::SequenceTable]);
    merged.foreign = ForeignSections::parse({sections[ProjectParts::Foreign]});
    // What only becomes one section, one line or one message when it is read again must be so at once.
    return parseProject(composeProject(merged));
}

std::string keyOf(PartKind kind, const DifferencePlace& place, ChangeKind change, std::string_view field) {
    // Items are taken as a whole.
    const bool isItem = kind == PartKind::Item ||
                        ((kind == PartKind::TrItem || kind == PartKind::Sequence) && !place.path.empty());
    std::string key(wordOf(kind));
    key.append(1, '\0').append(place.name).append(1, '\0').append(place.path).append(1, '\0');
    if (change == ChangeKind::Renamed)
        change = ChangeKind::Changed;
    key.append(wordOf(change)).append(1, '\0');
    return isItem && kind != PartKind::TrItem ? key : key.append(field);
}

} // namespace

ProjectMerge mergeProjects(const Project& base, const Project& ours, const Project& theirs,
                           Preferred preferred) {
    const ProjectParts baseParts(base);
    const ProjectParts ourParts(ours);
    const ProjectParts theirParts(theirs);
    MergeContext context;
    context.preferred = preferred;
    ProjectMerge merge{mergeParts(baseParts, ourParts, theirParts, context), {}};
    merge.conflicts = std::move(context.conflicts);
    return merge;
}

Project takeDifferences(const Project& project, const Project& other, const Differences& differences) {
    std::unordered_set<std::string> taken;
    for (const Difference& difference : differences) {
        const bool isAdded = difference.change == ChangeKind::Added;
        const DifferencePlace& place = isAdded ? difference.place : difference.placeBefore;
        taken.insert(keyOf(difference.kind, place, difference.change, difference.field));
        // The same words name the items of TR messages and those of their data blocks.
        if (difference.kind == PartKind::TrItem)
            taken.insert(keyOf(difference.kind, place, difference.change, {}));
        if (difference.change == ChangeKind::Moved && !place.path.empty()) {
            taken.insert(keyOf(difference.kind, difference.placeBefore, ChangeKind::Removed, {}));
            taken.insert(keyOf(difference.kind, difference.place, ChangeKind::Added, {}));
        }
    }
    MergeContext context;
    context.takes = [&taken](const MergeStep& step) {
        const bool isAdded = step.change == ChangeKind::Added;
        return taken.contains(
            keyOf(step.kind, isAdded ? step.place : step.placeBefore, step.change, step.field));
    };
    const ProjectParts ours(project);
    const ProjectParts theirs(other);
    return mergeParts(ours, ours, theirs, context);
}

} // namespace zb
