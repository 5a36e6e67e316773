#pragma once

#include "lint/checked_message.h"
#include "lint/message_index.h"
#include "lint/published_standard.h"
#include "platform/code_page.h"
#include "platform/finding.h"

#include <vector>

namespace zb {

class NodeTree;
class TRMessageRecord;
struct ProjectView;

/// The rules beyond those of every check: published standards, keys, the model. It is made once and can check
/// a project as a whole or one message at a time. Nothing is changed by a check.
class StandardCheck {
public:
    explicit StandardCheck(CodePage codePage) : codePage_(std::move(codePage)) {}

    /// All messages of the tree, in its order.
    Findings checkMessages(const NodeTree& tree) const;
    /// All TR messages and sequences.
    Findings checkModel(const ProjectView& project) const;
    /// These TR messages, in their order. All TR messages of a SECS message have to be among them when one
    /// is.
    Findings checkTRMessages(const ProjectView& project,
                             const std::vector<const TRMessageRecord*>& records) const;
    Findings checkSequences(const ProjectView& project) const;

    /// What a message shows by itself.
    Findings checkMessage(const CheckedMessage& message, const MessageIndex& index) const;
    /// What a message shows among those of the same stream and function, and of the reply or primary. The
    /// index says which other messages a change of one concerns.
    Findings checkLinks(const CheckedMessage& message, const MessageIndex& index) const;

private:
    CodePage codePage_;
    PublishedStandard standard_;
};

/// All findings of a project: those of every check, in the order of checkDefinitions and checkTransactions,
/// and with `standard` the others after them.
struct ProjectFindings {
    Findings messages;
    Findings model;
};
ProjectFindings checkProject(const NodeTree& tree, const ProjectView& project, const CodePage& codePage,
                             bool standard);

} // namespace zb
