#include "compare/difference_lines.h"

#include "platform/text.h"

#include <array>

namespace zb {

namespace {

constexpr std::array kKinds{PartKind::Project,   PartKind::Message, PartKind::Item,
                            PartKind::TrMessage, PartKind::TrItem,  PartKind::Sequence};
constexpr std::array kChanges{ChangeKind::Added, ChangeKind::Removed, ChangeKind::Changed,
                              ChangeKind::Renamed, ChangeKind::Moved};

/// The kind of the part that a difference is listed with.
PartKind ownerOf(PartKind kind) {
    if (kind == PartKind::Item)
        return PartKind::Message;
    return kind == PartKind::TrItem ? PartKind::TrMessage : kind;
}

bool isOfSamePart(const Difference& one, const Difference& other) {
    return ownerOf(one.kind) == ownerOf(other.kind) && one.place.name == other.place.name &&
           one.placeBefore.name == other.placeBefore.name;
}

bool isItem(const Difference& difference) {
    return !difference.place.path.empty();
}

bool isChange(const Difference& difference) {
    return difference.change == ChangeKind::Changed || difference.change == ChangeKind::Renamed;
}

/// Whether the field is a word of the line that the difference has.
bool isInLine(const Difference& difference) {
    if (difference.kind == PartKind::Message)
        return difference.field != "description" && difference.field != "other";
    return isItem(difference) && !(difference.lineBefore.empty() && difference.lineAfter.empty());
}

std::string marked(PartKind owner, const std::string& heading) {
    switch (owner) {
    case PartKind::TrMessage:
        return "[TR MESSAGE] " + heading;
    case PartKind::Sequence:
        return "[SEQUENCE] " + heading;
    case PartKind::Project:
        return "[PROJECT]" + (heading.empty() ? heading : " " + heading);
    default:
        return heading;
    }
}

class BlockWriter {
public:
    explicit BlockWriter(DifferenceBlock& block) : block_(block) {}

    void heading(const Difference& difference) {
        const std::string& text = difference.heading.empty() ? difference.place.name : difference.heading;
        add('~', marked(ownerOf(difference.kind), text));
    }

    void whole(const Difference& difference) {
        const bool isAdded = difference.change == ChangeKind::Added;
        const PartKind owner = ownerOf(difference.kind);
        const std::string text = (isAdded ? difference.after : difference.before).value_or(std::string());
        // The text of a message names it; the lines of the others do in ways that only files need.
        if (owner != PartKind::Message)
            add(isAdded ? '+' : '-', marked(owner, difference.place.name));
        lines(isAdded ? '+' : '-', owner == PartKind::Message ? "" : "    ", text);
    }

    void take(const Difference& difference, const Difference* previous) {
        const std::string at = isItem(difference) ? difference.place.path + ": " : std::string();
        const std::string atBefore = isItem(difference) ? difference.placeBefore.path + ": " : std::string();
        if (difference.change == ChangeKind::Added)
            return lines('+', at, difference.after.value_or(std::string()));
        if (difference.change == ChangeKind::Removed)
            return lines('-', atBefore, difference.before.value_or(std::string()));
        if (difference.change == ChangeKind::Moved)
            return add('~', at + difference.lineAfter + (difference.lineAfter.empty() ? "" : " ") +
                                "(moved from " + difference.before.value_or("") + " to " +
                                difference.after.value_or("") + ")");
        if (isInLine(difference)) {
            const bool isSameLine = previous != nullptr && isChange(*previous) && isInLine(*previous) &&
                                    previous->kind == difference.kind &&
                                    previous->placeBefore.path == difference.placeBefore.path;
            if (isSameLine)
                return;
            add('-', atBefore + difference.lineBefore);
            return add('+', at + difference.lineAfter);
        }
        const std::string label = difference.field == "description" ? "* " : difference.field + ": ";
        lines('-', atBefore + label, difference.before.value_or(""));
        lines('+', at + label, difference.after.value_or(""));
    }

private:
    void add(char sign, std::string text) { block_.push_back({sign, std::move(text)}); }

    void lines(char sign, const std::string& label, const std::string& text) {
        const std::vector<std::string> parts = split(text, "\n");
        if (parts.empty())
            add(sign, trimRight(label));
        for (const std::string& part : parts)
            add(sign, label + part);
    }

    DifferenceBlock& block_;
};

} // namespace

std::vector<DifferenceBlock> differenceBlocks(const Differences& differences) {
    std::vector<DifferenceBlock> blocks;
    for (std::size_t first = 0; first < differences.size();) {
        BlockWriter writer(blocks.emplace_back());
        const Difference& start = differences[first];
        const bool isWhole = !isItem(start) && start.field.empty();
        if (isWhole) {
            writer.whole(start);
            ++first;
            continue;
        }
        writer.heading(start);
        std::size_t at = first;
        for (; at < differences.size() && isOfSamePart(start, differences[at]); ++at) {
            if (!isItem(differences[at]) && differences[at].field.empty())
                break;
            writer.take(differences[at], at == first ? nullptr : &differences[at - 1]);
        }
        first = at;
    }
    return blocks;
}

std::vector<std::string> differenceCounts(const Differences& differences) {
    std::vector<std::string> lines;
    for (const PartKind kind : kKinds) {
        std::string line;
        for (const ChangeKind change : kChanges) {
            std::size_t count = 0;
            for (const Difference& difference : differences)
                count += difference.kind == kind && difference.change == change ? 1U : 0U;
            if (count > 0)
                line.append(line.empty() ? "" : ", ")
                    .append(std::to_string(count))
                    .append(" ")
                    .append(wordOf(change));
        }
        if (!line.empty())
            lines.push_back(std::string(wordOf(kind)) + ": " + line);
    }
    return lines;
}

} // namespace zb
