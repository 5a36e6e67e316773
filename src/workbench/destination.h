#pragma once

#include <cstddef>
#include <string>

namespace zb {

class frmWorkbench;

/// A place in a project that a pane can show. It may be older than the project.
struct Destination {
    enum class Kind { Node, TRMessage, Sequence };

    Kind kind = Kind::Node;
    /// Of a node: its flat position and its Text. Of a row of the sequences: its position, from 0, and the
    /// name of its TR message. Of a TR message: its name.
    /// @{
    std::size_t position = 0;
    std::string text;
    /// @}
};

/// Shows the place in its window, as a click on it does, and gives it the focus. A node that has moved is
/// found by its Text; what is there no more is reported in the strip.
void goTo(frmWorkbench& workbench, const Destination& place);

} // namespace zb
