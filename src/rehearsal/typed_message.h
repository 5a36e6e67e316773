#pragma once

#include "rehearsal/recorded_message.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace zb::rehearsal {

/// Where a typed message cannot be read.
struct TypedFault {
    std::size_t line = 1;
    std::size_t column = 1; ///< in characters, from 1
    std::string text;       ///< a sentence on one line

    /// "line 2, column 7: ..."
    std::string place() const;
};

/// Reads one message in SML, as "S6F11 W <L <U4 4001>>.", in the dialects of logs. A name before the stream
/// and function, and the final point, may be left out. Its direction is unknown, and it has no system bytes.
std::variant<RecordedMessage, TypedFault> readTypedMessage(std::string_view text);

} // namespace zb::rehearsal
