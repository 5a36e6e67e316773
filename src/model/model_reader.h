#pragma once

#include <string_view>

namespace zb {

class TRModelStore;

/// Adds the TR messages of a project file's text to the model. Lines that cannot be understood are passed
/// over; a second message or item of a name only fills what the first one lacks.
void readModel(std::string_view projectText, TRModelStore& model);

} // namespace zb
