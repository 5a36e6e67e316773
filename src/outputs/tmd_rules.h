#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zb {

class SECSMessageStore;
class TRMessageRecord;

// What a transaction model has to keep before a TMD file is built from it, and what is said of a breach.

inline constexpr std::string_view kUnknownSECSMessageText = "Select a valid SECSMessage!";
inline constexpr std::string_view kNoSECSMessageText = "SECSMessage was not selected!";
inline constexpr std::string_view kSecondDefaultText = "Default TRMessage was duplicated!";
inline constexpr std::string_view kEmptySequenceText = "Not defined SequenceItem!";

/// Whether a TR message names a SECS message at all; blanks and "NONE" are no name.
bool isSECSMessageSelected(const TRMessageRecord& record);
/// Whether there is a SECS message of the name that the TR message has.
bool isSECSMessageKnown(const TRMessageRecord& record, const SECSMessageStore& messages);

/// The default TR messages found so far. A SECS message may have one at most.
class DefaultTRMessages {
public:
    /// Registers the message when it is a default of its SECS message, in the direction `received`. Gives the
    /// name of the default that the SECS message has already; nothing when there is none.
    std::optional<std::string> add(const TRMessageRecord& record, int received);
    /// Whether the SECS message has a default, and one with a name.
    bool isDefaultRegistered(std::string_view secsMessage) const;

private:
    std::unordered_map<std::string, std::string> names_; // by upper-cased SECS message
};

} // namespace zb
