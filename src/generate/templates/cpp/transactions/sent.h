#pragma once

#include "../messages/${message}.h"

namespace ${package}::transactions {

/// Sent as ${head}.
struct ${type} {
    static constexpr const char* kName = ${nameLiteral};

    /// The message with the values of the model.
    static messages::${message} message() {
        messages::${message} message;
//% each assignments
        ${assignment}
//% end
        return message;
    }
};

} // namespace ${package}::transactions
