#pragma once

#include "messages/definition_check.h"

#include <vector>

namespace zb {

struct ModelerState;

/// Every fault of the transaction model and of the sequences: all that the checks before a
/// build refuse, what a TMD file could not hold, and what names a SECS message, a data item or a TR message
/// that is not there. The last two pass a build, and the driver would trip over them at run time.
///
/// A finding's `message` is the name of a TR message or of a sequence, its `itemPath` that of a TR item or
/// the position of a row. SECS messages are looked up in the store of the last walk.
Findings checkTransactions(const ModelerState& state);

} // namespace zb
