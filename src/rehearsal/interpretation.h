#pragma once

#include "model/condition.h"
#include "rehearsal/message_pattern.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {
class TRMessageRecord;
}

namespace zb::rehearsal {

/// What is not as modelled.
struct RehearsalFinding {
    std::string_view id; ///< one of the names in docs/rehearsal.md, as "unknown-message"
    std::string text;    ///< a sentence on one line
};

/// A comparison of a condition, with the value in the message.
struct ComparedItem {
    const Comparison* comparison = nullptr;
    bool isPresent = false;
    std::string value; ///< of the item in the message
    bool holds = false;
};

/// One condition of a chain, evaluated for one message.
struct EvaluatedCondition {
    const TRMessageRecord* message = nullptr; ///< whose condition it is
    bool holds = false;
    bool isDefault = false;
    std::vector<ComparedItem> comparisons; ///< in the order of the text
};

/// The value of a TR item.
struct TRItemValue {
    std::string name;
    std::string text;
    bool isNumber = false; ///< of the type NUMERIC, and a number
    bool isPresent = true; ///< otherwise no source gave a value
};

/// What a driver makes of one message, by itself: the definition, the TR message, the values. Pointers lead
/// into the project.
struct Interpretation {
    const SECSMessageRecord* definition = nullptr;
    /// Where no definition fits: the one with the fewest differences, and these.
    const SECSMessageRecord* nearest = nullptr;
    std::vector<Difference> differences;
    const TRMessageRecord* transaction = nullptr;
    /// Every condition of the chain, in the order of evaluation; none for sent messages.
    std::vector<EvaluatedCondition> conditions;
    std::vector<TRItemValue> items;
    std::vector<RehearsalFinding> findings;
};

} // namespace zb::rehearsal
