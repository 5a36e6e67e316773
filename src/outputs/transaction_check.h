#pragma once

#include "platform/finding.h"

#include <vector>

namespace zb {

class TRMessageRecord;
struct ProjectView;

/// Every fault of the transaction model and of the sequences: all that the checks before a build refuse, what
/// a TMD file could not hold, and what names a SECS message, a data item or a TR message that is not there. A
/// build succeeds with the last two, and the driver would fail on them at run time.
///
/// The place of a finding is a TR message and a TR item, or a sequence and the position of a row.
Findings checkTransactions(const ProjectView& project);

/// The part of it that is about these TR messages, in their order. All TR messages of a SECS message have to
/// be among them when one is.
Findings checkTRMessages(const ProjectView& project, const std::vector<const TRMessageRecord*>& records);
/// The part of it that is about the sequences.
Findings checkSequences(const ProjectView& project);

/// Whether the checks before a TMD build let the model pass.
bool mayBuildTmd(const ProjectView& project);

} // namespace zb
