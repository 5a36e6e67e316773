#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// What a difference is about.
enum class PartKind {
    Message,   ///< a SECS message: its head, or the message as a whole
    Item,      ///< an item of a SECS message
    TrMessage, ///< a TR message
    TrItem,    ///< an item of a TR message, or an item of its data block
    Sequence,  ///< a sequence, or a row of it
    Project,   ///< the side, or a section of another program
};

enum class ChangeKind { Added, Removed, Changed, Renamed, Moved };

/// A place in one of two compared projects.
struct DifferencePlace {
    /// The name of a message, of a TR message, of a sequence, or the first line of a foreign section; empty
    /// for the project.
    std::string name;
    /// Within it: the positions on the way to an item or a row, from 1, joined by "/"; the name of a TR item;
    /// empty for the part as a whole.
    std::string path;

    bool operator==(const DifferencePlace&) const = default;
};

/// One difference between two projects. A part that was added or removed as a whole is one difference,
/// whatever is in it.
struct Difference {
    PartKind kind = PartKind::Message;
    ChangeKind change = ChangeKind::Changed;
    /// Where it is in the first and in the second project. For a part that only one of them has, both are the
    /// place in that one.
    /// @{
    DifferencePlace placeBefore;
    DifferencePlace place;
    /// @}
    /// What of the part differs: "stream", "description", "count", "value", ...; "position" of a moved part;
    /// empty for a part as a whole.
    std::string field;
    /// The values in both projects, as text; none where the part is missing. A part as a whole has its
    /// notation in a project file, with LF.
    /// @{
    std::optional<std::string> before;
    std::optional<std::string> after;
    /// @}
    /// The line that the part begins with in the second project, as the head of a message; empty for a part
    /// that was added or removed as a whole.
    std::string heading;
    /// The whole line that the field is part of, in both projects: the head of a message, the Text of an
    /// item. Empty for parts that are no line.
    /// @{
    std::string lineBefore;
    std::string lineAfter;
    /// @}

    bool operator==(const Difference&) const = default;
};

using Differences = std::vector<Difference>;

/// The same difference from the second project to the first one.
Difference inverted(Difference difference);

/// "message", "item", "tr-message", "tr-item", "sequence", "project".
std::string_view wordOf(PartKind kind);
/// "added", "removed", "changed", "renamed", "moved".
std::string_view wordOf(ChangeKind change);

} // namespace zb
