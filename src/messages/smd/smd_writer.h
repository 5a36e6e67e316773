#pragma once

#include "messages/editor_pane.h"
#include "messages/message_record.h"
#include "messages/module_state.h"
#include "messages/validator.h"
#include "platform/result.h"
#include "platform/tree/node_tree.h"

#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// The walk over a message tree by which definitions leave it: saves, builds, and the gate before the
/// modeler.
class SmdWriter {
public:
    SmdWriter(ModuleState& state, EditorPane& pane);

    /// Refills the state's message store from the tree, and writes the file that the mode asks for. The
    /// status is the text of the first fault, which has been shown; empty on success.
    std::string buildMessageText(const std::string& path, std::string_view mode, NodeTree& tree);
    /// Appends the items below a node to the message at hand; a fault ends it.
    void writeItems(const Node& node, std::string_view mode, NodeTree& tree);
    /// The first message of the tree; nothing when there is none, or when it is not correct, which is told.
    std::optional<SECSMessageRecord> composeSingleMessage(std::string_view mode, NodeTree& tree);

    /// Why the last walk's file could not be written, also where the status keeps silent about it.
    const std::optional<FileError>& fileError() const { return fileError_; }

private:
    enum class Form { Project, Build };

    std::string writeMessage(const Node& node, std::string_view mode, NodeTree& tree);
    std::string writeStore(const std::string& path, std::string_view mode);
    void writeComment(const Node& messageNode, Form form);
    void writeItem(const Node& item, int depth, bool isOpenList, bool isLast, Form form);
    void closeList(int depth, bool isLast, Form form);
    void indent(int depth);

    ModuleState& state_;
    EditorPane& pane_;
    Validator validator_;
    std::string buffer_;
    bool fault_ = false;
    std::optional<FileError> fileError_;
};

} // namespace zb
