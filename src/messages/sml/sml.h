#pragma once

#include "platform/finding.h"
#include "platform/progress.h"

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <vector>

// Message lists in SML, the SECS message language, in all the dialects of tools and engineers.
// docs/formats-sml.md describes what is read and how it is converted.
namespace zb {

class CodePage;

/// A message in the grammar of the message tree. The views are valid as long as its library.
struct SmlMessage {
    std::string_view name; // unique among the messages read, without case
    std::string_view description;
    int stream = 0;
    int function = 0;
    bool wait = false;
    bool autoReply = false;
    bool noLogging = false;
    std::string_view direction = "H<->E"; // or "H->E", "H<-E"
    /// One line per item, ended by CR LF: its level, which is 1 for a direct item, a blank, its item Text.
    std::string_view body;

    bool operator==(const SmlMessage&) const = default;
};

struct SmlLibrary {
    std::vector<SmlMessage> messages; // in the order of the file
    std::size_t unread = 0;           // messages that could not be read
    Findings findings;                // in the order of the file, with line and column
    /// Holds the texts of all messages: one allocation for each of them would take as long as reading it.
    std::unique_ptr<std::pmr::memory_resource> texts;
};

/// Reads every message that can be read. `text` is UTF-8 without a mark; the code page measures texts and
/// decodes character codes above 127. The time is proportional to the text, whatever it contains.
SmlLibrary readSml(std::string_view text, const CodePage& codePage, const Progress& progress = {});

} // namespace zb
