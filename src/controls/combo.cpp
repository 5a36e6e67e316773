#include "controls/combo.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace zb {

void Combo::setText(std::string_view text) {
    if (text_ == text)
        return;
    text_ = text;
    ring(Change::Value);
}

void Combo::add(std::string entry) {
    insertAt(entries_.size(), std::move(entry));
}

void Combo::insertAt(std::size_t position, std::string entry) {
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(position), std::move(entry));
    if (recorder_ != nullptr)
        recorder_->afterInsert(position);
    ring(Change::Rows);
}

void Combo::removeAt(std::size_t position) {
    if (position >= entries_.size())
        return;
    if (entries_[position] == text_)
        text_.clear();
    eraseAt(position);
}

std::string Combo::eraseAt(std::size_t position) {
    const auto place = entries_.begin() + static_cast<std::ptrdiff_t>(position);
    std::string entry = std::move(*place);
    entries_.erase(place);
    if (recorder_ != nullptr)
        recorder_->afterErase(position, entry);
    ring(Change::Rows);
    return entry;
}

void Combo::removeAll(const std::vector<std::string>& texts) {
    std::unordered_map<std::string_view, std::size_t> left;
    for (const std::string& text : texts)
        ++left[text];
    std::vector<std::size_t> positions;
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        const auto found = left.find(entries_[at]);
        if (found == left.end() || found->second == 0)
            continue;
        --found->second;
        positions.push_back(at);
    }
    const bool losesText = std::any_of(positions.begin(), positions.end(),
                                       [this](std::size_t position) { return entries_[position] == text_; });
    if (losesText)
        text_.clear();
    eraseAll(positions);
}

void Combo::insertAll(std::vector<Entry> added) {
    if (added.empty())
        return;
    const auto first = entries_.begin() + static_cast<std::ptrdiff_t>(added.front().first);
    std::vector<std::string> after(std::make_move_iterator(first), std::make_move_iterator(entries_.end()));
    entries_.erase(first, entries_.end());
    auto next = after.begin();
    for (Entry& entry : added) {
        while (entries_.size() < entry.first)
            entries_.push_back(std::move(*next++));
        entries_.push_back(std::move(entry.second));
        if (recorder_ != nullptr)
            recorder_->afterInsert(entry.first);
    }
    std::move(next, after.end(), std::back_inserter(entries_));
    ring(Change::Rows);
}

std::vector<std::string> Combo::eraseAll(const std::vector<std::size_t>& positions) {
    std::vector<std::string> erased;
    if (positions.empty())
        return erased;
    std::size_t kept = positions.front();
    for (std::size_t at = kept; at < entries_.size(); ++at) {
        if (erased.size() == positions.size() || positions[erased.size()] != at) {
            entries_[kept++] = std::move(entries_[at]);
            continue;
        }
        erased.push_back(std::move(entries_[at]));
        // As if those before it were erased first.
        if (recorder_ != nullptr)
            recorder_->afterErase(kept, erased.back());
    }
    entries_.resize(kept);
    ring(Change::Rows);
    return erased;
}

void Combo::clear() {
    for (std::size_t at = entries_.size(); recorder_ != nullptr && at > 0; --at)
        recorder_->afterErase(at - 1, std::move(entries_[at - 1]));
    entries_.clear();
    text_.clear();
    ring(Change::Rows);
}

bool Combo::contains(std::string_view entry) const {
    return std::find(entries_.begin(), entries_.end(), entry) != entries_.end();
}

void Combo::choose(std::size_t position) {
    if (position >= entries_.size())
        return;
    setText(std::string(entries_[position]));
    fire(onChoose);
}

void FolderField::setText(std::string_view folder) {
    if (text_ == folder)
        return;
    text_ = folder;
    ring(Change::Value);
    fire(onChange);
}

} // namespace zb
