#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Message lists in SML, the SECS message language, in all the dialects in which tools and engineers write it.
// docs/formats-sml.md tells what is read and how it is converted.
namespace zb {

class CodePage;

enum class SmlSeverity {
    note,    // something had to change its form, or has no place in a definition
    warning, // the text breaks a rule of the language; it was read as it was most likely meant
    error,   // a message was mended at its end, or could not be read at all
};

struct SmlFinding {
    SmlSeverity severity = SmlSeverity::note;
    std::size_t line = 0;   // from 1
    std::size_t column = 0; // from 1, in characters
    std::string text;
};

// A message in the grammar of the message tree.
struct SmlMessage {
    std::string name; // unique among the messages read, whatever the case of its letters
    std::string description;
    int stream = 0;
    int function = 0;
    bool wait = false;
    bool autoReply = false;
    bool noLogging = false;
    std::string direction = "H<->E"; // or "H->E", "H<-E"
    // A line for each item, ended by CR LF: its level, which is 1 for a direct item, a blank, its item Text.
    std::string body;

    bool operator==(const SmlMessage&) const = default;
};

struct SmlLibrary {
    std::vector<SmlMessage> messages; // in the order of the file
    std::vector<SmlFinding> findings; // in the order of the file
};

// Reads every message that can be read. `text` is UTF-8 without a mark; the code page measures texts and
// decodes character codes above 127. Takes time in proportion to the text, whatever it holds.
SmlLibrary readSml(std::string_view text, const CodePage& codePage);

} // namespace zb
