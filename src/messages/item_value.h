#pragma once

#include <optional>
#include <string>
#include <string_view>

// What the value of an item may look like while it is typed, and what becomes of it.
namespace zb {

/// How the values of an item type are written.
enum class ValueForm {
    None,     ///< L: its items stand below it
    Quoted,   ///< A, J, X
    Binary,   ///< B
    Boolean,  ///< BOOLEAN
    Signed,   ///< I1, I2, I4, I8
    Unsigned, ///< U1, U2, U4, U8
    Floating, ///< F4, F8
    Unknown,
};

/// The type token is compared letter by letter.
ValueForm valueFormOf(std::string_view type);

/// What a text in the value field amounts to.
struct TypedValue {
    enum class State {
        Good,       ///< fit for the node
        Unfinished, ///< the user is still typing: nothing happens and nothing is said
        Refused,    ///< a box says why, and the field stays
    };
    State state = State::Good;
    std::string_view refusal;
};

/// Judges a text by the type of its item. The first value that is not good decides.
TypedValue judgeTypedValue(std::string_view type, std::string_view text);

enum class CountMode { Fixed, Variable };

/// The canonical text of a value: each word as its type prints it, "0" for what the type cannot hold. A fixed
/// item of at least one value is never left empty. An unknown type gives "0".
std::string normalizeItemValue(std::string_view type, int count, CountMode mode, std::string_view text);

/// The value part of an item's Text, without the blank before it, from a text of any quality: what is unfit
/// is replaced by a default rather than refused. Text of a quoted type comes without its apostrophes. Nothing
/// for an unknown type.
std::optional<std::string> cleanItemValue(std::string_view type, double count, std::string_view text);

} // namespace zb
