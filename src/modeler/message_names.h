#pragma once

#include <string>
#include <string_view>

namespace zb {

struct ModuleState;

// Why a name cannot be given, as a sentence for the user; empty when it can.

/// A TR message. `renamed` has the name already and may keep it; empty for a new message.
std::string faultOfTRMessageName(std::string_view name, const ModuleState& state,
                                 std::string_view renamed = {});
/// A sequence, apart from the names of other sequences: it is the name of an XML element.
std::string faultOfSequenceName(std::string_view name, const ModuleState& state);

} // namespace zb
