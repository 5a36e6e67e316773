#include "modeler/tr_message_record.h"

#include <algorithm>

namespace zb {

namespace {

auto findItem(const TRMessageRecord::Items& items, std::string_view name) {
    return std::find_if(items.begin(), items.end(), [&](const auto& item) { return item->Name() == name; });
}

} // namespace

bool TRMessageRecord::addTRItem(std::unique_ptr<TRItemRecord> item) {
    if (getTRItem(item->Name()) != nullptr)
        return false;
    items_.push_back(std::move(item));
    return true;
}

TRItemRecord* TRMessageRecord::getTRItem(std::string_view name) const {
    const auto found = findItem(items_, name);
    return found == items_.end() ? nullptr : found->get();
}

void TRMessageRecord::deleteTRItem(std::string_view name) {
    if (const auto found = findItem(items_, name); found != items_.end())
        items_.erase(found);
}

} // namespace zb
