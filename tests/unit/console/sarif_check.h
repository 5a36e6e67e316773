#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace zb::test {

/// The first place where a log breaks SARIF 2.1.0, with the reason; empty for a valid one. It knows the part
/// of the format that the program uses, and refuses every other property.
std::string sarifFault(const nlohmann::json& log);

} // namespace zb::test
