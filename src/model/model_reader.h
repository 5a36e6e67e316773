#pragma once

#include "platform/progress.h"

#include <string_view>
#include <vector>

namespace zb {

class TRModelStore;

/// Adds the TR messages of the model's section to the model. The section may be in parts of whole lines, and
/// no message continues from one part to the next. Lines that cannot be understood are ignored; a second
/// message or item with the same name only adds what the first one lacks.
void readModel(const std::vector<std::string_view>& parts, TRModelStore& model,
               const Progress& progress = {});

} // namespace zb
