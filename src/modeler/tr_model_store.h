#pragma once

#include "modeler/tr_message_record.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

/// The values of `Direction`.
inline constexpr int kToHost = 1;
inline constexpr int kToEquip = 2;

/// The transaction model of a project: all TR messages, received and sent, in the order of adding. Records
/// are the model: who changes a fetched record changes it.
class TRModelStore {
public:
    using Messages = std::vector<std::unique_ptr<TRMessageRecord>>;

    const Messages& TRMessages() const { return messages_; }
    /// 1 models the host, any other number the equipment.
    void setProjectType(int type) { projectType_ = type; }
    int ProjectType() const { return projectType_; }
    /// The Direction of messages that the modeled side receives, and of those that it sends.
    int ReceivedDirection() const { return projectType_ == 1 ? kToHost : kToEquip; }
    int SentDirection() const { return projectType_ == 1 ? kToEquip : kToHost; }

    /// Appends the record. The caller has seen to it that the name is free; a second record of a name is not
    /// taken.
    void addTRMessage(std::unique_ptr<TRMessageRecord> record);
    /// Null when there is none; the name is compared exactly.
    TRMessageRecord* getTRMessage(std::string_view name) const;
    /// Without effect for a name that is not there.
    void deleteTRMessage(std::string_view name);
    void clearTRMessages();
    /// Reads the messages from the model's section of the project file. A file without one leaves the store
    /// empty.
    void loadModel(const std::string& path);
    /// The model's section, to stand between the SECS messages and the sequence table; empty for an empty
    /// model.
    std::string saveModel() const;

private:
    int projectType_ = 1;
    Messages messages_;
    std::unordered_map<std::string, TRMessageRecord*> byName_;
};

} // namespace zb
