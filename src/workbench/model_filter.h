#pragma once

#include "controls/simple_controls.h"
#include "controls/text_field.h"

#include <string>
#include <unordered_set>

namespace zb {

class Node;
class Tree;
class frmWorkbench;

/// The field above the trees of the modeler: the screen and the arrow keys leave out the messages that do not
/// hold its text in their names, in those of their items, or in their SECS message. The trees themselves keep
/// all their nodes, and the selected one is always shown.
class ModelFilter {
public:
    explicit ModelFilter(frmWorkbench& workbench);
    ~ModelFilter();
    ModelFilter(const ModelFilter&) = delete;
    ModelFilter& operator=(const ModelFilter&) = delete;

    /// The model may have changed, or the modeler may have come to the front or gone: the field can be used
    /// only while it is there.
    void refresh();

    TextField txtModelFilter;
    Label lblModelFilter; ///< how many messages are shown; empty without a filter

private:
    struct Counted {
        std::size_t shown = 0;
        std::size_t all = 0;
    };

    void apply();
    void leave();
    Counted hideIn(const Tree& tree);
    bool holdsText(const Node& message) const;
    void setFilter(Tree& tree);

    frmWorkbench& workbench_;
    std::string wanted_; ///< upper-cased, without blanks
    std::unordered_set<const Node*> hidden_;
};

} // namespace zb
