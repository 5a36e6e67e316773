#pragma once

#include "messages/message_record.h"

#include <string>
#include <vector>

namespace zb {

enum class SmdForm {
    Project, ///< indentation alone tells the depth
    Build,   ///< banners, and items between angle brackets
};

/// The messages as they are, in the form in which a save or a build writes them. Nothing is checked.
std::string composeSmd(const std::vector<const SECSMessageRecord*>& records, SmdForm form);

} // namespace zb
