#pragma once

#include "messages/message_record.h"
#include "model/tr_item_record.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zb {

/// One named use of a SECS message on the modeled side.
class TRMessageRecord final : public NamedRecord {
public:
    using Items = NamedRecords<TRItemRecord>::Records;

    /// Name of the SECS message; empty or "NONE" when none is selected.
    const std::string& SECSMessage() const { return secsMessage_; }
    void setSECSMessage(std::string name) { secsMessage_ = std::move(name); }
    /// Of received messages: the condition by which an incoming message is this one; empty or "NONE" for the
    /// default.
    const std::string& Condition() const { return condition_; }
    void setCondition(std::string condition) { condition_ = std::move(condition); }
    bool Report() const { return report_; }
    void setReport(bool report) { report_ = report; }
    /// In the order of adding.
    const Items& TRItems() const { return items_.records(); }
    /// 1 towards the host, 2 towards the equipment.
    int Direction() const { return direction_; }
    void setDirection(int direction) { direction_ = direction; }
    /// Of sent messages: the SECS message with the values filled in.
    const std::optional<SECSMessageRecord>& DataBlock() const { return dataBlock_; }
    void setDataBlock(std::optional<SECSMessageRecord> block) { dataBlock_ = std::move(block); }

    /// False, and nothing is added, when an item with that name exists already.
    bool addTRItem(std::unique_ptr<TRItemRecord> item) { return items_.add(std::move(item)); }
    /// Null when there is none; the name is compared exactly.
    TRItemRecord* getTRItem(std::string_view name) const { return items_.find(name); }
    /// No effect for an unknown name.
    void deleteTRItem(std::string_view name) { items_.remove(name); }
    /// Creates the data of a sent message.
    void newDataBlock() { dataBlock_.reset(); }
    /// The data block as an element "DataBlock"; none when there is no data block.
    std::optional<XmlElement> DataBlockNode() const;

    /// The record with all its items.
    std::unique_ptr<TRMessageRecord> copy() const;
    /// The memory that it takes, roughly.
    std::size_t bytes() const;

private:
    std::string secsMessage_;
    std::string condition_;
    bool report_ = false;
    int direction_ = 0;
    NamedRecords<TRItemRecord> items_;
    std::optional<SECSMessageRecord> dataBlock_;
};

} // namespace zb
