#pragma once

#include <string>

namespace zb {

class frmSECSEditor;
class Node;

/// Typing in the message tree goes to the next message whose name, or stream and function, begins with what
/// was typed. After a pause the typing starts anew.
class TypeAhead {
public:
    explicit TypeAhead(frmSECSEditor& window);

private:
    void take(char character);
    /// From the message of `from` on, round the end of the tree; null when no message begins so.
    Node* find(const std::string& typed, Node* from);
    void endAfterPause();

    frmSECSEditor& window_;
    std::string typed_;
    int keys_ = 0;
};

} // namespace zb
