#pragma once

#include "platform/xml_element.h"

#include <optional>
#include <string_view>
#include <vector>

namespace zb {

/// Puts an element together from lines that give each element with its depth, from 1 for the outermost.
class ElementLines {
public:
    /// Takes `DEPTH NAME[ ATTRIBUTE="VALUE"]...[ "TEXT"]`. A line whose element is missing its parents goes
    /// to the deepest one that is there; a line that gives no element is passed over.
    void take(std::string_view line);

    /// The whole element, which starts anew; none when there was no line.
    std::optional<XmlElement> finish();

private:
    std::optional<XmlElement> root_;
    std::vector<XmlElement*> open_; ///< the last element of each depth
};

} // namespace zb
