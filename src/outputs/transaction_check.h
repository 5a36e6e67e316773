#pragma once

#include "messages/definition_check.h"

namespace zb {

struct ProjectView;

/// Every fault of the transaction model and of the sequences: all that the checks before a
/// build refuse, what a TMD file could not hold, and what names a SECS message, a data item or a TR message
/// that is not there. The last two pass a build, and the driver would trip over them at run time.
///
/// A finding's `message` is the name of a TR message or of a sequence, its `itemPath` that of a TR item or
/// the position of a row. SECS messages are looked up in the store of the last walk.
Findings checkTransactions(const ProjectView& project);

/// Whether the checks before a TMD build let the model pass.
bool mayBuildTmd(const ProjectView& project);

} // namespace zb
