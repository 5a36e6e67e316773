#pragma once

#include <string>
#include <string_view>

namespace zb {

/// What is different in the messages of a project text against an older one, in words: "2 messages added,
/// 1 changed, 3 removed", "no message changed". Texts are decoded; order does not count.
std::string describeChanges(std::string_view older, std::string_view newer);

} // namespace zb
