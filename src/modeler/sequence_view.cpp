#include "modeler/sequence_view.h"

#include "controls/list.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zb {

SequenceView::Range SequenceView::sequenceOf(std::size_t at) const {
    return {sequences_.headOf(at).value_or(0), sequences_.endOfItems(at)};
}

void SequenceView::change(Range range, const std::function<void()>& command) {
    if (recorder_ == nullptr) {
        command();
        return;
    }
    // Only the rows that may change are compared, so that recording takes no longer in a long list.
    const SequenceRows before = rows(range.first, range.end - range.first);
    const std::size_t after = list_.count() - range.end;
    command();
    const SequenceRows now = rows(range.first, list_.count() - after - range.first);
    const std::size_t shorter = std::min(before.size(), now.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == now[head])
        ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == now[now.size() - 1 - tail])
        ++tail;
    const auto place = [&](std::size_t at) { return before.begin() + static_cast<std::ptrdiff_t>(at); };
    SequenceRows old(place(head), place(before.size() - tail));
    if (!old.empty() || now.size() > head + tail)
        recorder_->afterChange(range.first + head, now.size() - head - tail, std::move(old));
}

void SequenceView::setRecorder(SequenceRecorder* recorder) {
    recorder_ = recorder;
    list_.beforeForeColor = nullptr;
    if (recorder_ != nullptr)
        list_.beforeForeColor = [this](const ListRow& row) { recorder_->beforeMark(indexOf(row)); };
}

SequenceRows SequenceView::rows(std::size_t at, std::size_t count) const {
    SequenceRows marked;
    marked.reserve(count);
    for (std::size_t row = at; row < at + count; ++row)
        marked.push_back({sequences_.rows()[row], list_.rows()[row]->foreColor()});
    return marked;
}

SequenceRows SequenceView::replace(std::size_t at, std::size_t count, SequenceRows rows) {
    SequenceRows old = this->rows(at, count);
    if (count > 0)
        list_.remove(at, count);
    std::vector<SequenceRow> plain;
    for (const MarkedRow& marked : rows)
        plain.push_back(marked.row);
    sequences_.replace(at, count, std::move(plain));
    for (std::size_t row = 0; row < rows.size(); ++row)
        insertRow(at + row).setForeColor(rows[row].color);
    return old;
}

void SequenceView::exchange(std::size_t at, std::size_t count, SequenceRows rows) {
    const std::size_t added = rows.size();
    // The colours of the new rows are part of the exchange.
    SequenceRecorder* recorder = recorder_;
    setRecorder(nullptr);
    SequenceRows old = replace(at, count, std::move(rows));
    setRecorder(recorder);
    if (recorder != nullptr)
        recorder->afterChange(at, added, std::move(old));
}

void SequenceView::show(Sequences sequences) {
    list_.clear();
    sequences_ = std::move(sequences);
    for (std::size_t at = 0; at < sequences_.rows().size(); ++at)
        insertRow(at);
}

void SequenceView::change(const Sequences& wanted) {
    const auto& before = sequences_.rows();
    const auto& after = wanted.rows();
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head])
        ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    SequenceRows rows;
    for (std::size_t at = head; at < after.size() - tail; ++at)
        rows.push_back({after[at], std::nullopt});
    const std::size_t count = rows.size();
    SequenceRows old = replace(head, before.size() - tail - head, std::move(rows));
    if (recorder_ != nullptr && (count > 0 || !old.empty()))
        recorder_->afterChange(head, count, std::move(old));
}

void SequenceView::clear() {
    change({0, list_.count()}, [this] {
        sequences_.clear();
        list_.clear();
    });
}

void SequenceView::addSequence(std::string name) {
    const Range end{list_.count(), list_.count()};
    change(end, [&] { list_.select(&insertRow(sequences_.addSequence(std::move(name)))); });
}

void SequenceView::insertItem(const ListRow& row, std::string direction, std::string message) {
    const std::size_t before = indexOf(row);
    change(sequenceOf(before), [&] {
        const std::size_t at = sequences_.insertItem(before, std::move(direction), std::move(message));
        list_.select(&insertRow(at));
        showOrdinals(at);
    });
}

void SequenceView::remove(const ListRow& row) {
    const std::size_t at = indexOf(row);
    change(sequenceOf(at), [&] { removeFrom(at); });
}

void SequenceView::removeFrom(std::size_t at) {
    list_.remove(at, sequences_.remove(at));
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
