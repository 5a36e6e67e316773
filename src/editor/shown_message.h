#pragma once

#include <string>

namespace zb {

class frmSECSEditor;

/// Which message the fields of the message pane show. A click on a node fills them, but a choice in the list
/// above the tree, a search or a save selects another message, or empties the fields, and Change would then
/// write the fields of one message into another. The window says so.
class ShownMessage {
public:
    /// Hears of the selection of the tree.
    explicit ShownMessage(frmSECSEditor& window);

    /// The fields show the message of the selected node from now on.
    void isSelected();
    /// A walk over all messages has emptied the fields.
    void isEmptied();
    /// The user begins a message that the tree does not have.
    void isNew();
    bool showsNew() const { return state_ == State::New; }
    /// The fields are empty, and nobody takes them for those of a message.
    void isNone();

private:
    enum class State { None, Emptied, New, Message };

    std::string nameOfSelected() const;
    void show();

    frmSECSEditor& window_;
    State state_ = State::None;
    std::string name_;
};

} // namespace zb
