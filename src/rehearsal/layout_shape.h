#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb::rehearsal {

/// The structure of a published message, as a tree.
struct LayoutShape {
    enum class Kind { Item, Fixed, Repeated };
    Kind kind = Kind::Item;
    std::string name;                 ///< of a data item
    std::vector<LayoutShape> members; ///< of a list; one for a list that repeats it

    /// The name of the first data item in it.
    std::string firstName() const;
};

/// "L[RCMD, L*[L[CPNAME, CPVAL]]]"; "-" and what cannot be read give an item without a name.
LayoutShape parseLayout(std::string_view form);

} // namespace zb::rehearsal
