#pragma once

#include "generate/language.h"
#include "generate/message_shape.h"

#include <string>
#include <vector>

namespace zb::generate {

/// The names of a message and its parts in a language.
struct MessageNames {
    std::string type;
    std::string ref;                              ///< what the type is called by transactions
    std::vector<std::string> records;             ///< by the index of the record; the last one is `type`
    std::vector<std::vector<std::string>> fields; ///< by the index of the record

    const std::string& field(MessageShape::Place place) const { return fields[place.record][place.field]; }
};

MessageNames namesOf(const MessageShape& shape, const std::string& type, const Language& language);

} // namespace zb::generate
