#pragma once

#include "platform/finding.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb::test {

/// All findings of a project, also those of the standards check, from its text with LF.
Findings findingsOf(std::string_view projectText);
/// Each as "ID: MESSAGE: item path", in the order of the check.
std::vector<std::string> placesOf(const Findings& findings);
/// A project of an equipment with these messages, in project form.
std::string projectOf(std::string_view messages, std::string_view modelAndSequences = {});
/// A project with all messages of a library, whose texts are in the form of the built-in ones.
std::string projectOfLibrary(const std::vector<std::string>& blocks);

} // namespace zb::test
