#pragma once

namespace zb {

class frmWorkbench;
class Node;
struct Problem;

/// The node of the editor's tree that a problem is about: an item, or the root node itself where the item has
/// gone. Null for a problem that is not about messages.
Node* nodeOf(const Problem& problem);

/// Goes to the place of a problem: shows the window that it is in, selects the node or row, and moves the
/// focus to the field at fault where there is one. Nothing is changed in the project.
void goToProblem(const frmWorkbench& workbench, const Problem& problem, bool mayOpenModeler);

} // namespace zb
