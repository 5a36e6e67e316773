#pragma once

#include <string>

namespace zb {

class TRModelStore;

/// The model's section of the project file, with CR LF; empty for a model without messages.
std::string composeModel(const TRModelStore& model);

} // namespace zb
