#pragma once

#include "lint/checked_message.h"
#include "lint/published_standard.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// How a message differs from the published layout that is nearest to it.
struct LayoutMatch {
    struct Difference {
        std::optional<std::size_t> item; ///< position among the items; none for the message itself
        std::string text;                ///< "Expected a list of 2 (CPNAME, CPVAL), found A"
    };

    std::vector<Difference> differences;
    /// By position among the items the published item at that place; empty where there is none.
    std::vector<std::string_view> expected;
};

/// Compares the message with all published forms of it. A list of any number may be a variable list or a list
/// of so many items; an item of any format matches everything, as does a place where any format is allowed.
/// Items whose own definition is faulty are not compared.
LayoutMatch matchLayout(const CheckedMessage& message, const PublishedStandard::Message& published,
                        const PublishedStandard& standard);

} // namespace zb
