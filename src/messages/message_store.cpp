#include "messages/message_store.h"

#include "platform/text.h"

namespace zb {

namespace {

std::uint64_t streamFunctionKey(int stream, int function) {
    return (std::uint64_t{static_cast<std::uint32_t>(stream)} << 32U) | static_cast<std::uint32_t>(function);
}

} // namespace

SECSMessageStore::Records SECSMessageStore::getMessages() const {
    Records records;
    records.reserve(entries_.size());
    for (const Entry& entry : entries_) {
        if (entry.record)
            records.push_back(entry.record.get());
    }
    return records;
}

const SECSMessageRecord* SECSMessageStore::getByName(std::string_view name) const {
    const auto found = byName_.find(upper(name));
    return found == byName_.end() ? nullptr : found->second;
}

SECSMessageStore::Records SECSMessageStore::getByStreamFunction(std::string_view text) const {
    SECSMessageRecord asked;
    asked.parseNodeText("name: " + std::string(text), "");
    if (asked.getStream() < 0 || asked.getFunction() < 0)
        return {};
    const auto found = byStreamFunction_.find(streamFunctionKey(asked.getStream(), asked.getFunction()));
    return found == byStreamFunction_.end() ? Records() : found->second;
}

std::string SECSMessageStore::addMessageText(std::string_view smdText) {
    auto record = std::make_unique<SECSMessageRecord>();
    std::string status = record->takeSmd(smdText, SECSMessageRecord::BodyCheck::None);
    if (record->getStream() < 0 || record->getFunction() < 0) {
        entries_.push_back({nullptr, std::string(smdText)});
        return status;
    }
    byName_.emplace(upper(record->getName()), record.get());
    byStreamFunction_[streamFunctionKey(record->getStream(), record->getFunction())].push_back(record.get());
    entries_.push_back({std::move(record), {}});
    return status;
}

std::string SECSMessageStore::allTexts() const {
    std::string texts;
    std::size_t size = 0;
    for (const Entry& entry : entries_)
        size += entry.record ? entry.record->sourceText().size() : entry.otherText.size();
    texts.reserve(size);
    for (const Entry& entry : entries_)
        texts += entry.record ? entry.record->sourceText() : entry.otherText;
    return texts;
}

} // namespace zb
