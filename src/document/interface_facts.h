#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb {

struct Project;

// What an interface document says of a project, as plain texts. No text is escaped yet.

/// An item of a message, as a row of its table.
struct DocumentedItem {
    std::size_t depth = 0; ///< 0 for an item in no list
    std::string name;
    std::string format; ///< "U4", "L"
    std::string count;  ///< "1", "up to 16"
    std::string value;
    bool isKey = false;
    std::string meaning; ///< of the published item; empty for one of the user's own
    std::string codes;   ///< its published values with their meanings
};

/// An item of a TR message, or a value that it sends.
struct DocumentedValue {
    std::string name;
    std::string source;                  ///< a data item, or a value
    std::vector<std::string> statements; ///< lines with their indentation
};

struct DocumentedTransaction {
    std::string name;
    bool isToHost = false;
    bool isReceived = false;
    std::string condition; ///< empty for a default and for a sent message
    std::vector<DocumentedValue> values;
};

struct DocumentedMessage {
    std::string name;
    std::string streamFunction; ///< "S1F13"
    std::string title;          ///< the published one; empty for a message of the user's own
    std::string description;
    std::string direction; ///< "H->E"
    bool wait = false;
    std::vector<std::size_t> replies; ///< positions among the messages; of a reply its primary messages
    bool isReply = false;
    std::vector<DocumentedItem> items;
    std::vector<DocumentedTransaction> transactions;
};

struct DocumentedStep {
    std::string transaction;
    std::string streamFunction;              ///< empty for an unknown message
    std::size_t message = std::string::npos; ///< position among the messages
    bool isToHost = false;
};

struct DocumentedSequence {
    std::string name;
    std::vector<DocumentedStep> steps;
};

/// A data item with the messages that use it.
struct DocumentedUse {
    std::string name;
    std::string meaning;
    std::vector<std::size_t> messages;
};

struct InterfaceFacts {
    std::string title;
    bool isHost = false;                     ///< the project describes the host
    std::vector<DocumentedMessage> messages; ///< by stream and function
    std::vector<DocumentedSequence> sequences;
    std::vector<DocumentedUse> items; ///< by name
};

/// `title` is the name of the project.
InterfaceFacts interfaceFacts(const Project& project, std::string title);

} // namespace zb
