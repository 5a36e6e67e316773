#pragma once

#include "generate/message_shape.h"
#include "model/condition.h"
#include "project/project.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb::generate {

/// A SECS message that the plug-in knows.
struct KnownMessage {
    SECSMessageRecord record;
    ItemForest items;
    MessageShape shape;
    std::size_t keys = 0; ///< the number of its key items

    KnownMessage(const SECSMessageRecord& ownRecord, ItemForest ownItems);
    // The shape points to the items.
    KnownMessage(const KnownMessage&) = delete;
    KnownMessage& operator=(const KnownMessage&) = delete;
};

/// A received TR message.
struct ReceivedTransaction {
    const TRMessageRecord* record = nullptr;
    std::size_t message = 0;            ///< its index
    std::optional<Condition> condition; ///< none for the default
};

/// A sent TR message.
struct SentTransaction {
    const TRMessageRecord* record = nullptr;
    std::size_t message = 0;
    /// The items of its data block; none when it has no data block of its own.
    std::optional<ItemForest> data;
};

/// A project as a plug-in sees it: what can be turned into code, whatever the language.
class PlugInModel {
public:
    explicit PlugInModel(const Project& project);

    const Project& project() const { return project_; }
    const std::vector<std::unique_ptr<KnownMessage>>& messages() const { return messages_; }
    /// In the order of the model.
    const std::vector<ReceivedTransaction>& received() const { return received_; }
    const std::vector<SentTransaction>& sent() const { return sent_; }
    /// The received transactions of a message, in the order in which their conditions are asked.
    const std::vector<std::size_t>& chainOf(std::size_t message) const { return chains_[message]; }
    /// The messages that an incoming header can mean, by stream and function: the first one that fits is
    /// meant.
    using Candidates = std::map<std::pair<int, int>, std::vector<std::size_t>>;
    const Candidates& candidates() const { return candidates_; }
    /// The message that answers a primary message by itself; nothing when there is none.
    std::optional<std::size_t> automaticReply(std::size_t message) const;
    /// What cannot be turned into code, a sentence each.
    const std::vector<std::string>& notes() const { return notes_; }

private:
    void takeMessages();
    void takeTransactions();
    void orderChains();
    void takeSent(const TRMessageRecord& record, std::size_t message);
    std::optional<std::size_t> addMessage(const SECSMessageRecord& record, std::string_view place);

    const Project& project_;
    std::vector<std::unique_ptr<KnownMessage>> messages_;
    std::vector<ReceivedTransaction> received_;
    std::vector<SentTransaction> sent_;
    std::vector<std::vector<std::size_t>> chains_;
    Candidates candidates_;
    Candidates replies_; ///< the messages that may be sent, by stream and function
    std::unordered_map<std::string, std::size_t> byName_; ///< upper-cased
    std::vector<std::string> notes_;
};

/// Whether the items of a data block are values of a message: the same items, with the lists of variable
/// count written out.
bool isValueOf(const std::vector<ItemTree>& data, const std::vector<ItemTree>& items);

} // namespace zb::generate
