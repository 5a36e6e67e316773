#pragma once

#include "compare/merge_context.h"
#include "compare/part_value.h"
#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class Window;

/// The conflicts of a merge in the document `Compare`: each with the values of both sides and the value that
/// the open project has, from which the user chooses, or enters another one.
class ConflictPanel {
public:
    /// The stores become part of the window.
    explicit ConflictPanel(Window& window);

    /// Shows conflicts of which none is decided; an empty list hides the panel.
    void show(std::vector<MergeConflict> conflicts);
    /// Shows the values of the open project as they are now.
    void refresh(const Project& open);

    const std::vector<MergeConflict>& conflicts() const { return conflicts_; }
    /// Those that the user has not decided yet.
    std::vector<MergeConflict> undecided() const;

    /// The user has chosen a value for the conflict. True when the open project has it.
    std::function<bool(const MergeConflict& conflict, const std::optional<std::string>& value)> onDecide;
    /// The user has turned to another conflict.
    std::function<void(const MergeConflict& conflict)> onChoose;

    static ValuePlace placeOf(const MergeConflict& conflict) {
        return {conflict.kind, conflict.place, conflict.field};
    }

    Pane pnlConflicts;
    List lvwConflicts;
    Button cmdOurs;
    Button cmdTheirs;
    Label lblByHand;
    TextField txtByHand;
    Button cmdByHand;

private:
    std::optional<std::size_t> chosen() const;
    void choose();
    void decide(const std::optional<std::string>& value);
    void fillRow(std::size_t at);
    std::string stateOf(std::size_t at) const;

    std::vector<MergeConflict> conflicts_;
    std::vector<bool> decided_;
    std::vector<std::optional<std::string>> now_; // in the open project
};

} // namespace zb
