#pragma once

#include "platform/tree/color.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zb {

class NodeTree;

/// The parts of a node that recorders are notified of.
enum class NodePart : std::uint8_t {
    Text = 1,
    Key = 2,
    Image = 4,
    Bold = 8,
    Expanded = 16,
    BackColor = 32,
    ForeColor = 64
};

/// A node of a tree store. Links are null when there is no such node. The address of a node is stable until
/// it is removed.
class Node {
public:
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    const std::string& text() const { return text_; }
    void setText(std::string text);
    /// Empty when the node has none.
    std::string_view key() const { return key_ ? std::string_view(*key_) : std::string_view(); }

    /// Position in the tree's flat collection, from 1, in order of insertion. Removals move later positions
    /// up.
    int index() const;
    Node* parent() const { return parent_; }
    Node* child() const { return firstChild_; }
    Node* lastChild() const { return lastChild_; }
    Node* next() const { return next_; }
    Node* previous() const { return previous_; }
    Node* firstSibling();
    Node* lastSibling();
    /// Number of direct children.
    int children() const { return children_; }
    int level() const;

    bool bold() const { return bold_; }
    void setBold(bool bold);
    bool expanded() const { return expanded_; }
    void setExpanded(bool expanded);
    const OptionalColor& backColor() const { return backColor_; }
    void setBackColor(OptionalColor color);
    /// The node's own text colour, otherwise the ordinary one of its tree.
    OptionalColor foreColor() const;
    /// Without that of its tree.
    const OptionalColor& ownForeColor() const { return foreColor_; }
    void setForeColor(OptionalColor color);
    /// Name of the node's picture; empty for none.
    const std::string& image() const;
    void setImage(std::string image);

private:
    friend class NodeTree;
    explicit Node(NodeTree& tree) : tree_(&tree) {}
    void changes(NodePart part);
    void changed();

    NodeTree* tree_;
    Node* parent_ = nullptr;
    Node* firstChild_ = nullptr;
    Node* lastChild_ = nullptr;
    Node* next_ = nullptr;
    Node* previous_ = nullptr;
    std::string text_;
    std::unique_ptr<std::string> key_;
    std::unique_ptr<std::string> image_;
    int slot_ = 0; ///< where the tree has it, as long as the node is known to an undo too
    int children_ = 0;
    OptionalColor backColor_;
    OptionalColor foreColor_;
    bool bold_ = false;
    bool expanded_ = false;
    std::uint8_t recordedParts_ = 0; ///< reported to the recorder in this recording
    std::uint32_t recording_ = 0;    ///< the number of the recording that `recordedParts_` belongs to
};

} // namespace zb
