#include "controls/combo.h"

#include <algorithm>

namespace zb {

void Combo::setText(std::string_view text) {
    if (text_ == text)
        return;
    text_ = text;
    ring(Change::Value);
}

void Combo::add(std::string entry) {
    entries_.push_back(std::move(entry));
    ring(Change::Rows);
}

void Combo::removeAt(std::size_t position) {
    if (position >= entries_.size())
        return;
    if (entries_[position] == text_)
        text_.clear();
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position));
    ring(Change::Rows);
}

void Combo::clear() {
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
