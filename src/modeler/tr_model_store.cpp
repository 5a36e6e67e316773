#include "modeler/tr_model_store.h"

#include <algorithm>

namespace zb {

void TRModelStore::addTRMessage(std::unique_ptr<TRMessageRecord> record) {
    if (byName_.emplace(record->Name(), record.get()).second)
        messages_.push_back(std::move(record));
}

TRMessageRecord* TRModelStore::getTRMessage(std::string_view name) const {
    const auto found = byName_.find(std::string(name));
    return found == byName_.end() ? nullptr : found->second;
}

void TRModelStore::deleteTRMessage(std::string_view name) {
    const auto found = byName_.find(std::string(name));
    if (found == byName_.end())
        return;
    const TRMessageRecord* record = found->second;
    byName_.erase(found);
    messages_.erase(std::find_if(messages_.begin(), messages_.end(),
                                 [&](const auto& message) { return message.get() == record; }));
}

void TRModelStore::clearTRMessages() {
    byName_.clear();
    messages_.clear();
}

void TRModelStore::loadModel(const std::string& /*path*/) {}

std::string TRModelStore::saveModel() const {
    return {};
}

} // namespace zb
