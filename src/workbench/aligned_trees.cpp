#include "workbench/aligned_trees.h"

#include "platform/tree/color.h"

#include <string>

namespace zb {

namespace {

// Dark enough for a light screen; a dark one lightens them.
constexpr Color kAddedColor{0, 100, 0};
constexpr Color kRemovedColor{170, 0, 0};
constexpr Color kChangedColor{120, 70, 0};

/// What the row of a version shows in front of its text.
char signOf(const std::vector<AlignedRow>& rows, std::size_t at, std::size_t version, std::size_t others) {
    const AlignedRow& row = rows[at];
    if (!row.texts[version] || row.role == AlignedRow::Role::Section)
        return ' ';
    // The project is later than what is on its left, and earlier than what is on its right.
    for (std::size_t other = 0; other < others; ++other) {
        if (version != 0 && version != other + 1)
            continue;
        if (row.texts[0].has_value() == row.texts[other + 1].has_value())
            continue;
        const bool isLater = (version == 0) == (other == 0);
        return isLater ? '+' : '-';
    }
    const std::size_t end = row.role == AlignedRow::Role::Part ? endOfRows(rows, at) : at + 1;
    for (std::size_t below = at; below < end; ++below) {
        for (std::size_t other = 0; other < others; ++other) {
            if ((version == 0 || version == other + 1) && rows[below].differsFrom(other))
                return '~';
        }
    }
    return ' ';
}

OptionalColor colorOf(char sign) {
    switch (sign) {
    case '+':
        return kAddedColor;
    case '-':
        return kRemovedColor;
    case '~':
        return kChangedColor;
    default:
        return {};
    }
}

} // namespace

std::size_t endOfRows(const std::vector<AlignedRow>& rows, std::size_t row) {
    std::size_t end = row + 1;
    while (end < rows.size() && rows[end].level > rows[row].level)
        ++end;
    return end;
}

bool differsHere(const AlignedRow& row, std::size_t others) {
    for (std::size_t other = 0; other < others; ++other) {
        if (!row.differences[other].empty())
            return true;
    }
    return false;
}

std::unique_ptr<NodeTree> treeOfVersion(const AlignedProjects& projects, std::size_t version,
                                        std::size_t others, const UrgentRows& urgent,
                                        const Progress& progress) {
    auto tree = std::make_unique<NodeTree>();
    const NodeTree::Filling filling(*tree);
    std::vector<Node*> last; // of each level
    for (std::size_t at = 0; at < projects.rows.size(); ++at) {
        progress.at(at, projects.rows.size());
        const AlignedRow& row = projects.rows[at];
        const char sign = signOf(projects.rows, at, version, others);
        std::string text;
        if (row.texts[version])
            text = std::string(sign == ' ' ? 0 : 1, sign) +
                   (urgent[at]    ? "! "
                    : sign == ' ' ? ""
                                  : " ") +
                   *row.texts[version];
        last.resize(row.level + 1, nullptr);
        Node* parent = row.level == 0 ? nullptr : last[row.level - 1];
        Node& node = tree->add(parent, parent == nullptr ? Relation::Last : Relation::Child, std::move(text));
        node.setExpanded(true);
        node.setBold(row.role == AlignedRow::Role::Section);
        node.setForeColor(colorOf(sign));
        last[row.level] = &node;
    }
    return tree;
}

} // namespace zb
