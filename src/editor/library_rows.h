#pragma once

#include "platform/tree/node_tree.h"

#include <string>
#include <utility>

namespace zb {

class List;
class Tree;
class SECSMessageRecord;

/// The picture and the colour of the rows whose messages the project has already.
inline constexpr const char* kInProjectPicture = "InProject";

/// Marks the rows whose messages the project has, by their names, and takes the mark from the others.
void markRowsInProject(List& list, const NodeTree& project);

/// Whether the messages of a tree may have other names than before. What changes below them does not count.
class MessageNamesWatch final : private NodeTreeListener {
public:
    /// The tree must outlive this.
    explicit MessageNamesWatch(Tree& tree);
    ~MessageNamesWatch() override;
    MessageNamesWatch(const MessageNamesWatch&) = delete;
    MessageNamesWatch& operator=(const MessageNamesWatch&) = delete;

    /// Since the last call; true at the first one.
    bool takeChanged() { return std::exchange(haveChanged_, false); }

private:
    void afterInsert(Node& node) override { look(node); }
    void beforeRemove(Node& node) override { look(node); }
    void nodeChanged(Node& node) override { look(node); }
    void afterFill() override { haveChanged_ = true; }
    void look(const Node& node) { haveChanged_ = haveChanged_ || node.parent() == nullptr; }

    Tree& tree_;
    bool haveChanged_ = true;
};

/// What a message is made of, for a tool tip: its head in words, its description, and its items.
std::string describeStructure(const SECSMessageRecord& message);

} // namespace zb
