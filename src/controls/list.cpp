#include "controls/list.h"

#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace zb {

const std::string& ListRow::cell(std::size_t column) const {
    static const std::string kNone;
    return column < cells_.size() ? cells_[column] : kNone;
}

void ListRow::setCell(std::size_t column, std::string text) {
    if (column >= cells_.size())
        cells_.resize(column + 1);
    cells_[column] = std::move(text);
    list_->touched();
}

void ListRow::setImage(std::string image) {
    image_ = std::move(image);
    list_->ring(Change::Rows);
}

void ListRow::setBold(bool bold) {
    bold_ = bold;
    list_->ring(Change::Rows);
}

void ListRow::setForeColor(OptionalColor color) {
    if (list_->beforeForeColor && foreColor_ != color)
        list_->beforeForeColor(*this);
    foreColor_ = color;
    list_->ring(Change::Rows);
}

void List::addColumn(std::string text, int width, std::string key) {
    columns_.push_back({std::move(text), std::move(key), width});
    ring(Change::Rows);
}

void List::clearColumns() {
    columns_.clear();
    ring(Change::Rows);
}

ListRow& List::add(std::string text, std::string key) {
    return insert(rows_.size(), std::move(text), std::move(key));
}

ListRow& List::insert(std::size_t position, std::string text, std::string key) {
    position = std::min(position, rows_.size());
    // make_unique cannot call the constructor, which is private to lists.
    const auto place = rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(position),
                                    std::unique_ptr<ListRow>(new ListRow(*this)));
    ListRow& row = **place;
    row.cells_.front() = std::move(text);
    if (!key.empty() && byKey_.emplace(upper(key), &row).second)
        row.key_ = std::move(key);
    touched();
    return row;
}

void List::forget(const ListRow& row) {
    if (!row.key_.empty())
        byKey_.erase(upper(row.key_));
    if (selected_ == &row)
        selected_ = nullptr;
    if (rangeEnd_ == &row)
        rangeEnd_ = nullptr;
}

void List::remove(std::size_t position, std::size_t count) {
    const auto first = rows_.begin() + static_cast<std::ptrdiff_t>(position);
    const auto last = first + static_cast<std::ptrdiff_t>(count);
    std::for_each(first, last, [this](const auto& row) { forget(*row); });
    rows_.erase(first, last);
    touched();
}

void List::remove(ListRow& row) {
    forget(row);
    std::erase_if(rows_, [&](const auto& candidate) { return candidate.get() == &row; });
    touched();
}

void List::clear() {
    selected_ = nullptr;
    rangeEnd_ = nullptr;
    byKey_.clear();
    rows_.clear();
    touched();
}

ListRow* List::find(std::string_view key) const {
    if (key.empty())
        return nullptr;
    const auto found = byKey_.find(upper(key));
    return found == byKey_.end() ? nullptr : found->second;
}

const std::vector<ListRow*>& List::shown() const {
    if (!shownIsOld_)
        return shown_;
    shownIsOld_ = false;
    shown_.clear();
    shown_.reserve(rows_.size());
    for (const auto& row : rows_)
        shown_.push_back(row.get());
    if (!sorted_)
        return shown_;
    std::vector<std::pair<std::string, ListRow*>> keyed;
    keyed.reserve(shown_.size());
    for (ListRow* row : shown_)
        keyed.emplace_back(upper(row->cell(static_cast<std::size_t>(sortKey_))), row);
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::transform(keyed.begin(), keyed.end(), shown_.begin(), [](const auto& pair) { return pair.second; });
    return shown_;
}

int List::positionOf(const ListRow* row) const {
    const auto& all = shown();
    const auto found = std::find(all.begin(), all.end(), row);
    return row == nullptr || found == all.end() ? 0 : static_cast<int>(found - all.begin()) + 1;
}

void List::setSorted(bool sorted, int sortKey) {
    sorted_ = sorted;
    sortKey_ = sortKey;
    touched();
}

std::vector<ListRow*> List::selectedRows() const {
    std::vector<ListRow*> chosen;
    std::copy_if(shown().begin(), shown().end(), std::back_inserter(chosen),
                 [](const ListRow* row) { return row->selected_; });
    return chosen;
}

void List::select(ListRow* row) {
    for (const auto& other : rows_)
        other->selected_ = other.get() == row;
    selected_ = row;
    rangeEnd_ = nullptr;
    ring(Change::Selection);
}

void List::selectAll(const std::vector<ListRow*>& rows) {
    select(rows.empty() ? nullptr : rows.back());
    if (selection_ == Selection::One)
        return;
    for (ListRow* row : rows)
        row->selected_ = true;
    ring(Change::Selection);
}

void List::toggle(ListRow& row) {
    if (selection_ == Selection::One) {
        select(&row);
        return;
    }
    row.selected_ = !row.selected_;
    const auto others = selectedRows();
    selected_ = row.selected_ ? &row : (others.empty() ? nullptr : others.back());
    rangeEnd_ = nullptr;
    ring(Change::Selection);
}

void List::selectRange(ListRow& from, ListRow& to) {
    if (selection_ == Selection::One) {
        select(&to);
        return;
    }
    const auto [first, last] = std::minmax({positionOf(&from), positionOf(&to)});
    int position = 0;
    for (ListRow* row : shown()) {
        ++position;
        row->selected_ = position >= first && position <= last;
    }
    selected_ = &from;
    rangeEnd_ = &to;
    ring(Change::Selection);
}

void List::touched() {
    shownIsOld_ = true;
    ring(Change::Rows);
}

} // namespace zb
