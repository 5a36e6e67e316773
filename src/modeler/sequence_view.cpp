#include "modeler/sequence_view.h"

#include "controls/list.h"

#include <utility>

namespace zb {

void SequenceView::show(Sequences sequences) {
    list_.clear();
    sequences_ = std::move(sequences);
    for (std::size_t at = 0; at < sequences_.rows().size(); ++at)
        insertRow(at);
}

void SequenceView::clear() {
    sequences_.clear();
    list_.clear();
}

void SequenceView::addSequence(std::string name) {
    list_.select(&insertRow(sequences_.addSequence(std::move(name))));
}

void SequenceView::insertItem(const ListRow& row, std::string direction, std::string message) {
    const std::size_t at = sequences_.insertItem(indexOf(row), std::move(direction), std::move(message));
    list_.select(&insertRow(at));
    showOrdinals(at);
}

void SequenceView::remove(const ListRow& row) {
    const std::size_t at = indexOf(row);
    // The head goes last, so that a selected head stays so until then.
    for (std::size_t removed = sequences_.remove(at); removed > 0; --removed)
        list_.remove(*list_.rows()[at + (removed > 1 ? 1 : 0)]);
    if (at > 0)
        showOrdinals(at - 1);
}

std::size_t SequenceView::indexOf(const ListRow& row) const {
    return static_cast<std::size_t>(list_.positionOf(&row)) - 1;
}

ListRow& SequenceView::insertRow(std::size_t at) {
    const SequenceRow& shown = sequences_.rows()[at];
    ListRow& row = list_.insert(at, shown.text);
    row.setImage(shown.picture);
    row.setCell(1, shown.direction);
    row.setCell(2, shown.transactionName);
    if (shown.isHead() && shown.isWhole)
        row.setBold(true);
    return row;
}

void SequenceView::showOrdinals(std::size_t at) {
    const auto head = sequences_.headOf(at);
    const std::size_t first = head ? *head + 1 : 0;
    for (std::size_t item = first; item < sequences_.rows().size(); ++item) {
        if (sequences_.rows()[item].isHead())
            return;
        list_.rows()[item]->setCell(0, sequences_.rows()[item].text);
    }
}

} // namespace zb
