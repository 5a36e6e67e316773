#pragma once

#include "messages/message_record.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

/// The messages of a project after the last walk over its tree. The store owns its records.
class SECSMessageStore {
public:
    using Records = std::vector<const SECSMessageRecord*>;

    /// In order of insertion.
    Records getMessages() const;
    /// Compared upper-cased; null when there is none.
    const SECSMessageRecord* getByName(std::string_view name) const;
    /// `text` has the form "S1 F2"; empty when there is none.
    Records getByStreamFunction(std::string_view text) const;
    /// Parses and adds one message; the status is empty on success. A text without stream and function gives
    /// no record, but it keeps its position in the written text: a save must not drop it. Smaller faults of a
    /// head, such as a missing direction, give a record, since a walk accepts them.
    std::string addMessageText(std::string_view smdText);
    /// The texts of all messages in order, as they were added.
    std::string allTexts() const;

private:
    /// The record of a message contains its text.
    struct Entry {
        std::unique_ptr<SECSMessageRecord> record;
        std::string otherText;
    };

    std::vector<Entry> entries_;
    std::unordered_map<std::string, const SECSMessageRecord*> byName_; // upper-cased
    std::unordered_map<std::uint64_t, Records> byStreamFunction_;
};

} // namespace zb
