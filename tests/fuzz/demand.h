#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace zb::fuzz {

/// Ends the fuzzer with a finding when the condition is false.
inline void demand(bool holds, std::string_view what) {
    if (holds)
        return;
    std::cerr << "does not hold: " << what << '\n';
    std::abort();
}

/// The input of the fuzzer, as text.
inline std::string_view asText(const unsigned char* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace zb::fuzz
