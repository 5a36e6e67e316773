#pragma once

#include "model/condition.h"

#include <string>
#include <vector>

namespace zb {

class TRItemRecord;

/// A branch of the statements that assign a value to a TR item.
struct Statement {
    /// A branch is of no kind while it has no condition yet.
    enum class Kind { None, If, Elif, Else };
    Kind kind = Kind::None;
    /// The condition of the branch; the text is "NONE" for an "else", and when the TMD file could not contain
    /// a condition.
    Condition condition;
    /// The value that the branch assigns when it has no inner branches.
    std::string value;
    /// A separate chain: at most the first branch that applies counts.
    std::vector<Statement> branches;
};

/// The statements of an item in the form that the TMD file carries; none for an item without statements.
std::vector<Statement> statementsOf(const TRItemRecord& item);

/// All statements, each before its branches.
std::vector<const Statement*> flatStatements(const std::vector<Statement>& statements);

} // namespace zb
