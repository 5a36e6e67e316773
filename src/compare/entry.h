#pragma once

#include "compare/item_tree.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// A value of a part, such as the stream of a message.
struct EntryField {
    std::string key;
    std::string value;  ///< as it is shown
    std::string stored; ///< as it is compared and written
};

/// A part of a project in the form in which all kinds of parts are compared: a message, a TR message, a
/// sequence or a foreign section.
struct Entry {
    std::string name;
    std::vector<EntryField> fields; ///< in a fixed order; a missing one is empty
    ItemTree items;
    std::vector<Entry> parts; ///< the items of a TR message

    void set(std::string key, const std::string& value) { setStored(std::move(key), value, value); }
    void setStored(std::string key, std::string value, std::string stored) {
        fields.push_back({std::move(key), std::move(value), std::move(stored)});
    }
    /// Null when it is missing.
    const EntryField* find(std::string_view key) const {
        for (const EntryField& field : fields) {
            if (field.key == key)
                return &field;
        }
        return nullptr;
    }
    /// Empty when it is missing.
    std::string_view stored(std::string_view key) const {
        const EntryField* field = find(key);
        return field == nullptr ? std::string_view() : std::string_view(field->stored);
    }
};

} // namespace zb
