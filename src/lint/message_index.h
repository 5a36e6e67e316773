#pragma once

#include "lint/checked_message.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb {

/// What the rules have to know of a message to check another one.
struct MessageSummary {
    /// The item by whose value a driver recognises the message.
    struct Key {
        std::string path;
        std::string name;
        std::string value; ///< in a form in which equal values are equal texts
    };

    static MessageSummary of(const CheckedMessage& message);
    /// A value of an item in that form: a text without the blanks at its end, numbers as numbers.
    static std::string comparable(const SECSItemRecord& item);

    std::string name;
    int stream = -1;
    int function = -1;
    DirectionSet direction;
    bool wait = false;
    int nodeIndex = 0;
    std::optional<Key> key;
};

/// The messages of a project by stream and function. A change of one message costs as much as the messages of
/// its stream and function.
class MessageIndex {
public:
    /// In the order of their node indexes.
    using Summaries = std::vector<const MessageSummary*>;

    /// The messages of a stream and function.
    struct Group {
        Summaries all;
        Summaries unkeyed;
        /// By path and value of the key.
        std::map<std::pair<std::string, std::string>, Summaries> byKeyValue;
        /// By path and name of the key: mostly one for the group.
        std::map<std::pair<std::string, std::string>, Summaries> byKeyPlace;
    };

    /// Adds the message of a node, or replaces what is known of it.
    void put(const Node& messageNode, MessageSummary summary);
    void remove(const Node& messageNode);
    void clear();

    /// Empty for a stream and function without a message.
    const Group& group(int stream, int function) const;
    /// The nodes whose link rules may have another result after this message was added, changed or removed:
    /// those of its function and of the paired one.
    std::vector<const Node*> nodesBeside(int stream, int function) const;

private:
    std::unordered_map<const Node*, std::unique_ptr<MessageSummary>> summaries_;
    std::map<std::pair<int, int>, Group> groups_;
    std::unordered_map<const MessageSummary*, const Node*> nodes_;
};

} // namespace zb
