#pragma once

#include "platform/xml_element.h"

#include <optional>
#include <string_view>
#include <vector>

namespace zb {

/// Builds an element from lines that give each element with its depth, from 1 for the outermost.
class ElementLines {
public:
    /// Takes `DEPTH NAME[ ATTRIBUTE="VALUE"]...[ "TEXT"]`. A line whose parents are missing goes to the
    /// deepest existing one; a line without an element is ignored.
    void take(std::string_view line);

    /// The whole element, and starts a new one; none when there was no line.
    std::optional<XmlElement> finish();

private:
    std::optional<XmlElement> root_;
    std::vector<XmlElement*> open_; ///< the last element of each depth
};

} // namespace zb
