#pragma once

#include "messages/message_record.h"
#include "platform/result.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

class FileLayer;

/// The messages of a project, as the last walk over its tree left them. The store owns its records.
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
    /// no record, yet it keeps its place among what is written: a save must not drop it. Lesser faults of a
    /// head, as a missing direction, leave a record, since a walk lets them pass.
    std::string addMessageText(std::string_view smdText);
    /// Writes what the mode asks for: a build to `path`, a save's section to the end of `projectSections`,
    /// and nothing for the other modes. The error is the system's.
    Result<void> writeFile(FileLayer& files, const std::string& path, std::string_view mode,
                           std::string* projectSections) const;

private:
    /// Of a text that is a message the record holds the text.
    struct Entry {
        std::unique_ptr<SECSMessageRecord> record;
        std::string otherText;
    };
    std::string allTexts() const;

    std::vector<Entry> entries_;
    std::unordered_map<std::string, const SECSMessageRecord*> byName_; // upper-cased
    std::unordered_map<std::uint64_t, Records> byStreamFunction_;
};

} // namespace zb
