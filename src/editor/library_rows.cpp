#include "editor/library_rows.h"

#include "controls/list.h"
#include "controls/tree.h"
#include "messages/message_record.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace zb {

namespace {

constexpr Color kInProjectColor{0, 110, 40};
// A tool tip that is higher than this covers what it explains.
constexpr std::size_t kMostItems = 24;

std::string directionInWords(std::string_view direction) {
    if (direction == "H->E")
        return "to the equipment";
    return direction == "H<-E" ? "to the host" : "in both directions";
}

} // namespace

void markRowsInProject(List& list, const NodeTree& project) {
    for (const auto& row : list.rows()) {
        const bool isThere = project.find(row->key()) != nullptr;
        if (isThere == (row->image() == kInProjectPicture))
            continue;
        row->setImage(isThere ? kInProjectPicture : "");
        row->setForeColor(isThere ? OptionalColor(kInProjectColor) : std::nullopt);
    }
}

MessageNamesWatch::MessageNamesWatch(Tree& tree) : tree_(tree) {
    tree_.addWatcher(*this);
}

MessageNamesWatch::~MessageNamesWatch() {
    tree_.removeWatcher(*this);
}

std::string describeStructure(const SECSMessageRecord& message) {
    std::string text = message.getNumbersText() + ", " + directionInWords(message.getDirection());
    text += message.getWait() ? ", with a reply" : "";
    if (!message.getDescription().empty())
        text.append("\n").append(message.getDescription());
    const std::vector<SECSItemRecord> items = message.getItems();
    for (std::size_t i = 0; i < items.size() && i < kMostItems; ++i) {
        text += "\n" + std::string(2 * static_cast<std::size_t>(items[i].getLevel()), ' ');
        text += composeItemText(items[i]);
    }
    if (items.empty())
        text += "\nno items";
    else if (items.size() > kMostItems)
        text += "\n  ... " + std::to_string(items.size() - kMostItems) + " more items";
    return text;
}

} // namespace zb
