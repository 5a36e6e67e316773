#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb {

template<typename Record>
class NamedRecords;

/// The key of a record of the model.
class NamedRecord {
public:
    NamedRecord() = default;
    NamedRecord(const NamedRecord&) = delete;
    NamedRecord& operator=(const NamedRecord&) = delete;

    const std::string& Name() const { return name_; }
    void setName(std::string name) {
        name_ = std::move(name);
        if (namesChanged_ != nullptr)
            *namesChanged_ = true;
    }

protected:
    ~NamedRecord() = default;

private:
    template<typename Record>
    friend class NamedRecords;
    std::string name_;
    bool* namesChanged_ = nullptr; ///< of the collection that owns the record
};

/// An ordered collection that owns its records and finds them by name in constant time, also after a record
/// was renamed in place.
template<typename Record>
class NamedRecords {
public:
    using Records = std::vector<std::unique_ptr<Record>>;

    NamedRecords() = default;
    NamedRecords(const NamedRecords&) = delete;
    NamedRecords& operator=(const NamedRecords&) = delete;

    const Records& records() const { return records_; }

    /// False, and nothing is added, when a record with that name exists already.
    bool add(std::unique_ptr<Record> record) {
        if (find(record->Name()) != nullptr)
            return false;
        record->namesChanged_ = &namesChanged_;
        if (!namesChanged_)
            byName_.emplace(record->Name(), record.get());
        records_.push_back(std::move(record));
        return true;
    }

    /// Null when there is none; names are compared exactly.
    Record* find(std::string_view name) const {
        if (records_.size() <= kFew) {
            const auto found = std::find_if(records_.begin(), records_.end(),
                                            [&](const auto& record) { return record->Name() == name; });
            return found == records_.end() ? nullptr : found->get();
        }
        indexNames();
        const auto found = byName_.find(name);
        return found == byName_.end() ? nullptr : found->second;
    }

    void remove(std::string_view name) {
        if (Record* record = find(name); record != nullptr)
            static_cast<void>(takeAt(positionOf(*record)));
    }

    /// From 0; the record must be in the collection. The search begins where the last one ended: who changes
    /// many records goes through them in order.
    std::size_t positionOf(const Record& record) const {
        std::size_t after = std::min(lastPosition_, records_.size());
        std::size_t before = after;
        for (; before > 0 || after < records_.size(); ++after) {
            if (before > 0 && records_[--before].get() == &record)
                return lastPosition_ = before;
            if (after < records_.size() && records_[after].get() == &record)
                return lastPosition_ = after;
        }
        return records_.size();
    }
    std::unique_ptr<Record> takeAt(std::size_t position) {
        const auto place = records_.begin() + static_cast<std::ptrdiff_t>(position);
        std::unique_ptr<Record> record = std::move(*place);
        if (const auto indexed = byName_.find(record->Name()); indexed != byName_.end())
            byName_.erase(indexed);
        records_.erase(place);
        // A record with the same name may follow it.
        namesChanged_ = namesChanged_ || records_.size() != byName_.size();
        record->namesChanged_ = nullptr;
        return record;
    }
    /// Puts a record back; its name is not checked.
    void insertAt(std::size_t position, std::unique_ptr<Record> record) {
        record->namesChanged_ = &namesChanged_;
        records_.insert(records_.begin() + static_cast<std::ptrdiff_t>(position), std::move(record));
        namesChanged_ = true;
    }

    void clear() {
        byName_.clear();
        records_.clear();
        namesChanged_ = true;
    }

private:
    /// So few names are compared one by one, which is faster and saves the index.
    static constexpr std::size_t kFew = 16;

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
    };

    void indexNames() const {
        if (!namesChanged_)
            return;
        byName_.clear();
        for (const auto& record : records_)
            byName_.emplace(record->Name(), record.get());
        namesChanged_ = false;
    }

    Records records_;
    mutable std::unordered_map<std::string, Record*, Hash, std::equal_to<>> byName_;
    mutable bool namesChanged_ = true; ///< the index must be rebuilt
    mutable std::size_t lastPosition_ = 0;
};

} // namespace zb
