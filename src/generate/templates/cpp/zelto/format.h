#ifndef ZELTO_FORMAT_H
#define ZELTO_FORMAT_H

#include <cstddef>
#include <cstdint>
#include <limits>

namespace zelto {

/// The format codes of SECS-II data items.
enum class Format : std::uint8_t {
    L = 000,
    B = 010,
    Boolean = 011,
    A = 020,
    J = 021,
    C2 = 022,
    I8 = 030,
    I1 = 031,
    I2 = 032,
    I4 = 034,
    F8 = 040,
    F4 = 044,
    U8 = 050,
    U1 = 051,
    U2 = 052,
    U4 = 054,
};

/// The word of a format in SML; null for a code that is not in use.
constexpr const char* wordOf(Format format) {
    switch (format) {
    case Format::L: return "L";
    case Format::B: return "B";
    case Format::Boolean: return "BOOLEAN";
    case Format::A: return "A";
    case Format::J: return "J";
    case Format::C2: return "C2";
    case Format::I8: return "I8";
    case Format::I1: return "I1";
    case Format::I2: return "I2";
    case Format::I4: return "I4";
    case Format::F8: return "F8";
    case Format::F4: return "F4";
    case Format::U8: return "U8";
    case Format::U1: return "U1";
    case Format::U2: return "U2";
    case Format::U4: return "U4";
    }
    return nullptr;
}

/// The bytes of one value; 0 for a list.
constexpr std::size_t widthOf(Format format) {
    switch (format) {
    case Format::L: return 0;
    case Format::I2:
    case Format::U2:
    case Format::C2: return 2;
    case Format::I4:
    case Format::U4:
    case Format::F4: return 4;
    case Format::I8:
    case Format::U8:
    case Format::F8: return 8;
    default: return 1;
    }
}

/// How many values an item has: exactly the number, or at most the number.
struct Count {
    std::size_t number = 0;
    bool isExact = true;

    constexpr bool allows(std::size_t values) const { return isExact ? values == number : values <= number; }
};

constexpr Count exactly(std::size_t number) {
    return {number, true};
}
constexpr Count upTo(std::size_t number) {
    return {number, false};
}

} // namespace zelto

#endif
