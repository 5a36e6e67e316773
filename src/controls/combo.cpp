#include "controls/combo.h"

#include <algorithm>
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
