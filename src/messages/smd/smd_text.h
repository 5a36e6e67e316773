#pragma once

#include "messages/message_record.h"

#include <string>
#include <vector>

namespace zb {

enum class SmdForm {
    Project, ///< only the indentation defines the depth
    Build,   ///< banners, and items between angle brackets
};

/// The messages in the form in which a save or a build writes them, without any check.
std::string composeSmd(const std::vector<const SECSMessageRecord*>& records, SmdForm form);

} // namespace zb
