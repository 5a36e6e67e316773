#pragma once

#include "compare/merge_context.h"
#include "compare/part_value.h"
#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class Window;

/// What the user wants for a conflict.
struct ConflictChoice {
    enum class Of { Ours, Theirs, ByHand };

    const MergeConflict& conflict;
    ValuePlace place; ///< in the open project, as it is now
    Of of = Of::Ours;
    std::optional<std::string> value;
};

/// The conflicts of a merge in the document `Compare`: each with the values of both sides and the value that
/// the open project has, from which the user chooses, or enters another one.
class ConflictPanel {
public:
    /// The stores become part of the window.
    explicit ConflictPanel(Window& window);

    /// Shows conflicts of which none is decided; an empty list hides the panel. Their places are in `merged`.
    void show(std::vector<MergeConflict> conflicts, std::shared_ptr<const Project> merged);
    /// Shows the values of the open project as they are now.
    void refresh(const Project& open);

    bool empty() const { return rows_.empty(); }
    /// Those that the user has not decided yet, or whose decision was taken back.
    std::vector<MergeConflict> undecided() const;

    /// The user has chosen a value for a conflict. True when the open project has it, as `refresh` has shown.
    std::function<bool(const ConflictChoice& choice)> onDecide;
    /// The user has turned to another conflict, which is at this place now.
    std::function<void(const MergeConflict& conflict, const ValuePlace& place)> onChoose;

    Pane pnlConflicts;
    List lvwConflicts;
    Button cmdOurs;
    Button cmdTheirs;
    Label lblByHand;
    TextField txtByHand;
    Button cmdByHand;

private:
    using Text = std::optional<std::string>;

    struct Row {
        MergeConflict conflict;
        ValuePlace place; ///< in the open project
        Text first;       ///< what the project had before a decision
        Text now;
        std::optional<ConflictChoice::Of> decided;
        Text decidedValue; ///< what the project had after it

        /// Undo takes a decision back, and Redo brings it back.
        bool isDecided() const { return decided && (now != first || now == decidedValue); }
    };

    Row* chosen();
    void choose();
    void decide(ConflictChoice::Of of, const Text& value);
    void fillRow(std::size_t at);
    static std::string stateOf(const Row& row);

    std::vector<Row> rows_;
    std::shared_ptr<const Project> merged_;
    bool isFresh_ = false; ///< the values of the open project were not read yet
};

} // namespace zb
