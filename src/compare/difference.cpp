#include "compare/difference.h"

namespace zb {

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

std::string_view wordOf(Change change) {
    switch (change) {
    case Change::Added:
        return "added";
    case Change::Removed:
        return "removed";
    case Change::Renamed:
        return "renamed";
    case Change::Moved:
        return "moved";
    case Change::Changed:
        break;
    }
    return "changed";
}

} // namespace zb
