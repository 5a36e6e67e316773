#pragma once

#include "model/tr_message_record.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace zb {

/// The values of `Direction`.
inline constexpr int kToHost = 1;
inline constexpr int kToEquip = 2;

/// The transaction model of a project: all TR messages, received and sent, in the order of adding. The
/// records are the model: changes to a fetched record change it.
class TRModelStore {
public:
    using Messages = NamedRecords<TRMessageRecord>::Records;

    const Messages& TRMessages() const { return messages_.records(); }
    /// 1 models the host, any other number the equipment.
    void setProjectType(int type) { projectType_ = type; }
    int ProjectType() const { return projectType_; }
    /// The Direction of messages that the modeled side receives, and of those that it sends.
    int ReceivedDirection() const { return projectType_ == 1 ? kToHost : kToEquip; }
    int SentDirection() const { return projectType_ == 1 ? kToEquip : kToHost; }

    /// Appends the record. The caller has checked that the name is free; a second record with the same name
    /// is not added.
    void addTRMessage(std::unique_ptr<TRMessageRecord> record) { messages_.add(std::move(record)); }
    /// Null when there is none; the name is compared exactly.
    TRMessageRecord* getTRMessage(std::string_view name) const { return messages_.find(name); }
    /// No effect for an unknown name.
    void deleteTRMessage(std::string_view name) { messages_.remove(name); }
    void clearTRMessages() { messages_.clear(); }

private:
    int projectType_ = 1;
    NamedRecords<TRMessageRecord> messages_;
};

} // namespace zb
