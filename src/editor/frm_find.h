#pragma once

#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"
#include "editor/find_terms.h"
#include "messages/find_scan.h"

#include <functional>
#include <optional>

namespace zb {

class NodeTree;

/// The small window that searches the nodes of the message tree for a text and selects the next match.
class frmFind : public Window {
public:
    /// The editor replaces its whole tree, so the window requests it for each search.
    using LiveTree = std::function<NodeTree&()>;

    frmFind(Desktop& desktop, LiveTree liveTree);

    Label lblFindWhat{*this, "lblFindWhat", "What : "};
    TextField txtFindWhat{*this, "txtFindWhat"};
    CheckBox chkCaps{*this, "chkCaps", "Case Sensitive"};
    Pane fraFindDirection{*this, "fraFindDirection", "Direction"};
    OptionGroup directions;
    Option optUp{*this, "optUp", "Up", directions, &fraFindDirection};
    Option optDown{*this, "optDown", "Down", directions, &fraFindDirection};
    Option optAll{*this, "optAll", "All", directions, &fraFindDirection};
    Button cmdFindNext{*this, "cmdFindNext", "&FindNext"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

    /// Remembers what is searched for; Up and Down in the field show it again.
    void useTerms(FindTerms& terms) { terms_ = &terms; }
    /// Shows the window beside the others, reset unless it is already visible.
    void showFind();
    /// Selects the next match, or reports that there is none.
    void findNext();
    /// Continues the search that the window shows, otherwise the last one; opens the window when there was
    /// none.
    void findAgain();
    void closeByFrame() override;

private:
    void load();
    void takeOrigin();
    void showTerm(bool earlier);
    int selectedPosition();
    FindDirection direction() const;
    void search(FindRequest& request);

    LiveTree liveTree_;
    int origin_ = 1;
    FindTerms* terms_ = nullptr;
    TermWalk walk_;
    /// What was looked for last; it outlasts the window's closing.
    std::optional<FindRequest> last_;
};

} // namespace zb
