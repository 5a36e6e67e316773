#pragma once

#include <optional>
#include <string>
#include <string_view>

// The valid values of an item while it is typed, and their canonical form.
namespace zb {

/// How the values of an item type are written.
enum class ValueForm {
    None,     ///< L: its items are below it
    Quoted,   ///< A, J, X
    Binary,   ///< B
    Boolean,  ///< BOOLEAN
    Signed,   ///< I1, I2, I4, I8
    Unsigned, ///< U1, U2, U4, U8
    Floating, ///< F4, F8
    Unknown,
};

/// The type token is compared with case.
ValueForm valueFormOf(std::string_view type);

/// The result of checking a text in the value field.
struct TypedValue {
    enum class State {
        Good,       ///< valid for the node
        Unfinished, ///< incomplete: nothing happens and no message is shown
        Refused,    ///< a box shows the reason, and the field is unchanged
    };
    State state = State::Good;
    std::string_view refusal;
};

/// Checks a text by the type of its item. The first invalid value decides.
TypedValue judgeTypedValue(std::string_view type, std::string_view text);

enum class CountMode { Fixed, Variable };

/// The canonical text of a value: each word as its type prints it, and "0" for words that the type cannot
/// hold. A fixed item with at least one value is never left empty. An unknown type gives "0".
std::string normalizeItemValue(std::string_view type, int count, CountMode mode, std::string_view text);

/// The value part of an item's Text, without the blank before it, from any text: invalid parts are replaced
/// by a default, not refused. Text of a quoted type is given without its apostrophes. Nothing for an unknown
/// type.
std::optional<std::string> cleanItemValue(std::string_view type, double count, std::string_view text);

} // namespace zb
