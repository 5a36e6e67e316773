#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// A published structure of a message as a tree.
struct LayoutForm {
    enum class Kind {
        Nothing, ///< the message has no data
        Item,    ///< a data item
        List,    ///< a list of these parts
        Repeat   ///< a list of any number of its one part
    };
    Kind kind = Kind::Nothing;
    std::string_view item; ///< the name of a data item
    std::vector<LayoutForm> parts;

    /// Reads "L[MDLN, SOFTREV]", "L*[SVID]", "ALID" or "-". Nothing for a text that is no structure.
    static std::optional<LayoutForm> parse(std::string_view text);
};

/// "a list of 2 (CPNAME, CPVAL)", "a list of any number of SVID", "ALID", "no data".
std::string describe(const LayoutForm& form);

} // namespace zb
