#ifndef ZELTO_MESSAGE_H
#define ZELTO_MESSAGE_H

#include "decoder.h"
#include "encoder.h"
#include "sml.h"

namespace zelto {

/// What the definition of a message fixes of its header.
struct MessageHead {
    const char* name;
    std::uint8_t stream;
    std::uint8_t function;
    bool wait; ///< a reply is expected
};

} // namespace zelto

#endif
