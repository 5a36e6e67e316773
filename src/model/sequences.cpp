#include "model/sequences.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zb {

std::size_t Sequences::addSequence(std::string name) {
    append({kSequenceHead, std::move(name), {}, {}});
    return rows_.size() - 1;
}

std::size_t Sequences::insertItem(std::size_t at, std::string direction, std::string message) {
    const std::size_t place = std::min(at + 1, rows_.size());
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(place),
                 {kSequenceItem, {}, std::move(direction), std::move(message)});
    const auto head = headOf(place);
    renumber(head ? *head + 1 : 0);
    return place;
}

std::size_t Sequences::remove(std::size_t at) {
    const bool isHead = rows_[at].isHead();
    const std::size_t end = isHead ? endOfItems(at) : at + 1;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(at),
                rows_.begin() + static_cast<std::ptrdiff_t>(end));
    // Items before all heads keep the numbers that their file gave them.
    if (!isHead && at > 0)
        if (const auto head = headOf(at - 1))
            renumber(*head + 1);
    return end - at;
}

void Sequences::replace(std::size_t at, std::size_t count, std::vector<SequenceRow> rows) {
    const auto place = rows_.begin() + static_cast<std::ptrdiff_t>(at);
    if (rows.size() == count) {
        std::move(rows.begin(), rows.end(), place);
        return;
    }
    const auto next = rows_.erase(place, place + static_cast<std::ptrdiff_t>(count));
    rows_.insert(next, std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
}

std::optional<std::size_t> Sequences::headOf(std::size_t at) const {
    for (std::size_t next = std::min(at + 1, rows_.size()); next > 0; --next) {
        if (rows_[next - 1].isHead())
            return next - 1;
    }
    return std::nullopt;
}

std::size_t Sequences::endOfItems(std::size_t at) const {
    std::size_t end = at + 1;
    while (end < rows_.size() && !rows_[end].isHead())
        ++end;
    return end;
}

void Sequences::renumber(std::size_t first) {
    for (std::size_t at = first; at < rows_.size() && !rows_[at].isHead(); ++at)
        rows_[at].text = std::to_string(at - first + 1);
}

} // namespace zb
