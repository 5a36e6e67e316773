#pragma once

#include <string>

namespace zb {

class TRMessageRecord;
class TRModelStore;

/// The lines of the model's section, with CR LF; empty for a model without messages.
std::string composeModel(const TRModelStore& model);
/// The lines of one TR message with all its items, with CR LF.
std::string composeTRMessage(const TRMessageRecord& message);

} // namespace zb
