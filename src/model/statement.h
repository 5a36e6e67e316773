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
    /// When the branch applies; the text is "NONE" for an "else", and where the TMD file could hold no
    /// condition.
    Condition condition;
    /// What the branch assigns when it has no branches of its own.
    std::string value;
    /// A chain of its own: at most the first branch that applies counts.
    std::vector<Statement> branches;
};

/// The statements of an item in the form that the TMD file carries; none for an item without statements.
std::vector<Statement> statementsOf(const TRItemRecord& item);

/// All statements, each before its branches.
std::vector<const Statement*> flatStatements(const std::vector<Statement>& statements);

} // namespace zb
