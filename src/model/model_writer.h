#pragma once

#include <string>

namespace zb {

class TRModelStore;

/// The lines of the model's section, with CR LF; empty for a model without messages.
std::string composeModel(const TRModelStore& model);

} // namespace zb
