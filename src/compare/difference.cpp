#include "compare/difference.h"

#include <utility>

namespace zb {

Difference inverted(Difference difference) {
    if (difference.change == ChangeKind::Added)
        difference.change = ChangeKind::Removed;
    else if (difference.change == ChangeKind::Removed)
        difference.change = ChangeKind::Added;
    std::swap(difference.placeBefore, difference.place);
    std::swap(difference.before, difference.after);
    std::swap(difference.lineBefore, difference.lineAfter);
    return difference;
}

std::string_view wordOf(PartKind kind) {
    switch (kind) {
    case PartKind::Message:
        return "message";
    case PartKind::Item:
        return "item";
    case PartKind::TrMessage:
        return "tr-message";
    case PartKind::TrItem:
        return "tr-item";
    case PartKind::Sequence:
        return "sequence";
    case PartKind::Project:
        break;
    }
    return "project";
}

std::string_view wordOf(ChangeKind change) {
    switch (change) {
    case ChangeKind::Added:
        return "added";
    case ChangeKind::Removed:
        return "removed";
    case ChangeKind::Renamed:
        return "renamed";
    case ChangeKind::Moved:
        return "moved";
    case ChangeKind::Changed:
        break;
    }
    return "changed";
}

} // namespace zb
