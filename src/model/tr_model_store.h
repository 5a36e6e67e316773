#pragma once

#include "model/tr_message_record.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

/// The values of `Direction`.
inline constexpr int kToHost = 1;
inline constexpr int kToEquip = 2;

/// Receives every change of a model together with what was there before. Positions start at 0.
class TRModelRecorder {
public:
    virtual ~TRModelRecorder() = default;
    /// The message is about to change.
    virtual void beforeChange(std::size_t position, const TRMessageRecord& message) = 0;
    virtual void afterAdd(std::size_t position) = 0;
    virtual void afterRemove(std::size_t position, std::unique_ptr<TRMessageRecord> message) = 0;
};

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
    void addTRMessage(std::unique_ptr<TRMessageRecord> record) {
        const std::string name = record->Name();
        if (!messages_.add(std::move(record)))
            return;
        if (recorder_ != nullptr)
            recorder_->afterAdd(TRMessages().size() - 1);
        notify(name);
    }
    /// Puts the record there. The caller has checked that the name is free.
    void addAt(std::size_t position, std::unique_ptr<TRMessageRecord> record) {
        insertAt(position, std::move(record));
        if (recorder_ != nullptr)
            recorder_->afterAdd(position);
    }
    /// Null when there is none; the name is compared exactly.
    TRMessageRecord* getTRMessage(std::string_view name) const { return messages_.find(name); }
    /// The same for a user who is going to change the message or its items.
    TRMessageRecord* changeTRMessage(std::string_view name) {
        TRMessageRecord* message = messages_.find(name);
        if (message != nullptr && recorder_ != nullptr)
            recorder_->beforeChange(messages_.positionOf(*message), *message);
        if (message != nullptr)
            notify(message->Name());
        return message;
    }
    /// No effect for an unknown name.
    void deleteTRMessage(std::string_view name) {
        const TRMessageRecord* message = messages_.find(name);
        if (message != nullptr)
            deleteAt(messages_.positionOf(*message));
    }
    void deleteAt(std::size_t position) {
        std::unique_ptr<TRMessageRecord> removed = messages_.takeAt(position);
        const std::string removedName = removed->Name();
        if (recorder_ != nullptr)
            recorder_->afterRemove(position, std::move(removed));
        notify(removedName);
    }
    void clearTRMessages() {
        std::vector<std::string> names;
        for (const auto& message : TRMessages())
            names.push_back(message->Name());
        messages_.clear();
        for (const std::string& cleared : names)
            notify(cleared);
    }

    /// Receives what the user changes; null for nobody.
    void setRecorder(TRModelRecorder* recorder) { recorder_ = recorder; }
    /// Takes a record out, or puts one back. Recorders are not notified.
    /// @{
    std::unique_ptr<TRMessageRecord> takeAt(std::size_t position) {
        std::unique_ptr<TRMessageRecord> taken = messages_.takeAt(position);
        notify(taken->Name());
        return taken;
    }
    void insertAt(std::size_t position, std::unique_ptr<TRMessageRecord> record) {
        const std::string name = record->Name();
        messages_.insertAt(position, std::move(record));
        notify(name);
    }
    /// @}

    /// A TR message with this name was added or removed, or is about to change; also by an undo.
    std::function<void(const std::string& name)> onTouched;

private:
    void notify(const std::string& name) const {
        if (onTouched)
            onTouched(name);
    }

    int projectType_ = 1;
    NamedRecords<TRMessageRecord> messages_;
    TRModelRecorder* recorder_ = nullptr;
};

} // namespace zb
