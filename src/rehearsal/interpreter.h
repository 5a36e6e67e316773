#pragma once

#include "model/statement.h"
#include "project/project.h"
#include "rehearsal/condition_value.h"
#include "rehearsal/recorded_message.h"

#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

namespace zb::rehearsal {

/// The messages and the transaction model of a project, prepared to interpret messages. It keeps its own copy
/// of the definitions; the TR messages stay those of the project, which must live as long. After a change of
/// the project a new interpreter is made; messages can be interpreted in any order and any number of times.
class Interpreter {
public:
    Interpreter(const Project& project, CodePage codePage);

    /// The direction that a message has which the recording does not give: the one that all definitions of
    /// its stream and function agree on.
    Direction directionOf(const secs2::Header& header) const;
    /// Whether messages of the direction are received by the modeled side.
    bool isReceived(Direction direction) const { return direction == received_; }

    Direction receivedDirection() const { return received_; }

    Interpretation interpret(const RecordedMessage& message) const;

private:
    /// A TR item with its conditions parsed.
    struct Item {
        const TRItemRecord* record = nullptr;
        DataItemAddress source;
        std::vector<Statement> statements;
    };
    struct Branch {
        const TRMessageRecord* record = nullptr;
        Condition condition;
        bool isDefault = false;
        std::vector<Item> items;
    };
    struct Sent {
        const TRMessageRecord* record = nullptr;
        std::vector<std::string> values; ///< of all items in order; of a list the number of its members
    };
    struct Definition {
        SECSMessageRecord record;
        MessagePattern pattern;
        std::vector<Branch> received; ///< the default last
        std::vector<Sent> sent;
    };

    void addTransactions(const TRModelStore& model);
    void addReceived(Definition& definition, const TRMessageRecord& record);
    const std::vector<const Definition*>* candidates(const secs2::Header& header) const;
    static bool fits(const Definition& definition, Direction direction);
    const Definition* match(const RecordedMessage& message, Interpretation& result) const;
    void reportMismatch(const RecordedMessage& message, Interpretation& result) const;
    void chooseReceived(const Definition& definition, const ReceivedData& data, Interpretation& result) const;
    void chooseSent(const Definition& definition, const ReceivedData& data, Interpretation& result) const;
    void addItems(const Branch& branch, const ReceivedData& data, Interpretation& result) const;

    CodePage codePage_;
    Direction received_;
    std::deque<Definition> definitions_;
    std::unordered_map<unsigned, std::vector<const Definition*>> byStreamFunction_;
};

} // namespace zb::rehearsal
