#pragma once

#include "messages/item_grammar.h"
#include "messages/message_record.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the items of a message become in a programming language, whichever it is.
namespace zb::generate {

/// A data item with the items below it.
struct ItemTree {
    std::string type; ///< "L", "A", "U4", ...
    std::string name; ///< may be empty
    ItemKind kind = ItemKind::Unknown;
    std::size_t count = 0;
    bool isFixed = true;
    bool isKey = false;
    std::string value; ///< as the definition writes it
    std::vector<ItemTree> members;

    bool isList() const { return kind == ItemKind::List; }
    /// Whether it is one value, and not several.
    bool isSingle() const { return isFixed && count == 1; }
};

/// The items of a message, in order. The text of a fault when they cannot be those of a message.
struct ItemForest {
    std::vector<ItemTree> roots;
    std::string fault;
};
ItemForest itemsOf(const SECSMessageRecord& message);

/// A field of a record type.
struct Field {
    enum class Kind {
        Value,   ///< a text, one number, several numbers, or an item of any format
        Record,  ///< a list with a name, as a record of its own
        Values,  ///< a list of variable count whose members are values
        Records, ///< a list of variable count whose members are records
        AnyItems ///< a list of variable count whose members are not defined
    };
    Kind kind = Kind::Value;
    const ItemTree* item = nullptr; ///< the value, or the list
    std::size_t record = 0;         ///< of Record and Records: the index of its type
    std::string wish;               ///< the name that it should have in the language

    bool takesIndex() const { return kind == Kind::Values || kind == Kind::Records; }
    /// The item of one value: of `Values` that of the members.
    const ItemTree& valueItem() const { return kind == Kind::Values ? item->members.front() : *item; }
};

/// What reads or writes a record, in the order of the message.
struct Step {
    enum class Kind { OpenList, CloseList, Field };
    Kind kind = Kind::Field;
    std::size_t number = 0; ///< the members of the list, or the index of the field
};

/// A class with fields.
struct RecordShape {
    std::string wish;               ///< the name that its type should have
    const ItemTree* list = nullptr; ///< whose members its fields are; null for the message
    std::vector<Field> fields;
    std::vector<Step> steps;
};

/// The types of a message. Lists without a name and with a fixed count are no types of their own: their items
/// are fields of the type around them.
class MessageShape {
public:
    /// The items must outlive the shape.
    explicit MessageShape(const std::vector<ItemTree>& roots);

    /// Each record after those that it uses; the last one is the message itself.
    const std::vector<RecordShape>& records() const { return records_; }
    std::size_t root() const { return records_.size() - 1; }

    /// A field of a record.
    struct Place {
        std::size_t record = 0;
        std::size_t field = 0;
    };
    const Field& fieldAt(Place place) const { return records_[place.record].fields[place.field]; }

    /// The way from the message to a data item.
    struct Path {
        std::vector<Place> places; ///< the fields that lead to it; none when it is no field itself
        bool isFound = false;
        bool isList = false; ///< it has no value
    };
    /// Of several items of one name the last one counts; lists have names as well.
    Path pathTo(std::string_view itemName) const;

private:
    void addItem(const ItemTree& item, RecordShape& record);
    std::size_t addRecord(std::string wish, const std::vector<ItemTree>& items);
    std::size_t addListRecord(const ItemTree& list);

    const std::vector<ItemTree>* roots_;
    std::vector<RecordShape> records_;
};

} // namespace zb::generate
