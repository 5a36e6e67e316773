#pragma once

#include "messages/item_record.h"
#include "platform/finding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class Node;
class SECSMessageRecord;

/// Who may send a message.
struct DirectionSet {
    bool toEquipment = false; ///< the host sends it
    bool toHost = false;      ///< the equipment sends it

    /// Of "H->E", "H<-E" or "H<->E"; any other text is both.
    static DirectionSet of(std::string_view direction);
    bool overlaps(const DirectionSet& other) const {
        return (toEquipment && other.toEquipment) || (toHost && other.toHost);
    }
    bool holds(const DirectionSet& other) const {
        return (toEquipment || !other.toEquipment) && (toHost || !other.toHost);
    }
};

/// An item of a message with its position.
struct CheckedItem {
    SECSItemRecord record;
    std::string path;                  ///< "2/1"
    int nodeIndex = 0;                 ///< 0 for an item of a data block
    std::vector<std::size_t> children; ///< positions in `CheckedMessage::items`

    bool isList() const { return record.getType() == "L"; }
};

/// A message, parsed once for all rules.
struct CheckedMessage {
    static CheckedMessage of(const Node& messageNode);
    /// A data block: its items have no nodes.
    static CheckedMessage of(const SECSMessageRecord& record);

    FindingPlace place() const;
    FindingPlace place(const CheckedItem& item) const;
    /// "S2F41".
    std::string streamFunction() const;
    bool isPrimary() const { return function % 2 == 1; }
    /// Whether stream and function are numbers that a message can have.
    bool isNumbered() const { return stream >= 0 && stream < 128 && function >= 0 && function < 256; }
    /// The key item; nothing when there is none.
    const CheckedItem* key() const;

    /// How many variable lists are around the item.
    std::size_t variableListsAround(const CheckedItem& item) const;

    std::string name;
    int stream = -1;
    int function = -1;
    std::string direction; ///< as in the head; empty for a head without one
    bool wait = false;
    int nodeIndex = 0;
    std::vector<CheckedItem> items;    ///< in tree order
    std::vector<std::size_t> topLevel; ///< those that are in no list
};

} // namespace zb
