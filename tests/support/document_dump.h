#pragma once

#include "controls/tree.h"

#include <string>

namespace zb {

class Application;

namespace test {

/// What can be observed of a tree, as a text. It is kept until the tree reports a change.
class TreeDump final : private NodeTreeListener {
public:
    explicit TreeDump(Tree& tree);
    ~TreeDump() override;
    TreeDump(const TreeDump&) = delete;
    TreeDump& operator=(const TreeDump&) = delete;

    const std::string& text();

private:
    void forget() { current_ = false; }
    void afterInsert(Node& /*node*/) override { forget(); }
    void afterRemove() override { forget(); }
    void nodeChanged(Node& /*node*/) override { forget(); }
    void nodeExpanded(Node& /*node*/) override { forget(); }
    void allChanged() override { forget(); }
    void afterFill() override { forget(); }

    Tree& tree_;
    std::string text_;
    bool current_ = false;
};

/// All that can be observed of the documents of a program, each as one text. Selections and fields are left
/// out.
/// @{
std::string dumpMessages(Application& application);
std::string dumpModel(Application& application);
/// @}

/// The same in less time, for documents that have not changed in most cases: a tree is looked at again when
/// it has reported a change, and the TR messages when the history of the modeler has. What changes without a
/// report is missing, so that the text differs from the one of all that is there. The program must not be
/// used after the end of this.
class ReportedDumps {
public:
    explicit ReportedDumps(Application& application);

    std::string messages();
    std::string model();

private:
    Application& application_;
    TreeDump tree_;
    TreeDump received_;
    TreeDump sent_;
    std::string records_;
    bool recordsAreCurrent_ = false;
};

} // namespace test
} // namespace zb
