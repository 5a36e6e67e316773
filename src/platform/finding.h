#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace zb {

enum class Severity {
    Note,    ///< the form was changed, or a definition cannot express it
    Warning, ///< it can be read and built, but is probably a mistake
    Error    ///< it cannot be read or built, or a driver cannot follow it
};

/// Where a finding is: in a text, or in a project. What does not apply is 0 or empty.
struct FindingPlace {
    /// What `message` names.
    enum class Subject { None, Message, TRMessage, Sequence };

    static FindingPlace atLine(std::size_t line, std::size_t column = 0) {
        return {line, column, {}, {}, 0, Subject::None};
    }
    static FindingPlace inMessage(std::string message, std::string item, int nodeIndex = 0) {
        return {0, 0, std::move(message), std::move(item), nodeIndex, Subject::Message};
    }
    static FindingPlace inTRMessage(std::string message, std::string item) {
        return {0, 0, std::move(message), std::move(item), 0, Subject::TRMessage};
    }
    /// `row` is the position among all rows of the sequences, from 1.
    static FindingPlace inSequence(std::string sequence, std::string item, int row) {
        return {0, 0, std::move(sequence), std::move(item), row, Subject::Sequence};
    }

    std::size_t line = 0;   ///< from 1; of a finding in a project only when it was asked for
    std::size_t column = 0; ///< from 1, in characters
    std::string message;    ///< the name of a message, of a TR message or of a sequence
    /// Within the message: positions on the way to an item, from 1, joined by "/", as "2/1". Within a TR
    /// message the name of a TR item, within a sequence the position of a row.
    std::string item;
    /// Flat Index in the message tree; for a sequence the position of its row among all rows, from 1.
    int nodeIndex = 0;
    Subject subject = Subject::None;

    bool operator==(const FindingPlace&) const = default;
};

/// What a reader or a check has to say about one place.
struct Finding {
    Severity severity = Severity::Error;
    FindingPlace place;
    std::string text; ///< a sentence on one line
    /// The rule that found it, as "smd.item.count". Empty for what a reader of other files has to say.
    std::string id = {};

    bool operator==(const Finding&) const = default;
};
using Findings = std::vector<Finding>;

} // namespace zb
