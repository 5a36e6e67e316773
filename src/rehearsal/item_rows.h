#pragma once

#include "rehearsal/message_pattern.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zb::rehearsal {

/// An item of a message beside that of its definition.
struct ItemRow {
    enum class Sign {
        Same,
        Differs,
        Missing, ///< only the definition has it
        Surplus, ///< only the message has it
    };
    std::size_t level = 0;
    Sign sign = Sign::Same;
    std::string received;   ///< "A 6 'ZE3000'"; empty for a missing item
    std::string defined;    ///< "A 20V MDLN"; empty for a surplus item
    std::string difference; ///< "expected at most 20 characters, found 31"
};

/// The rows of a message beside a definition, which may be null; at most `most`. Members of a list are
/// matched by their formats when the list has more or fewer of them than its definition.
std::vector<ItemRow> itemRows(const secs2::Items& items, const MessagePattern* pattern,
                              const CodePage& codePage, std::size_t most);

} // namespace zb::rehearsal
