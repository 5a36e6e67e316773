#pragma once

#include "messages/message_record.h"
#include "messages/message_store.h"
#include "messages/validator.h"
#include "platform/result.h"
#include "platform/tree/node_tree.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// What a walk over the messages is for. The first two write the project form and check nothing; `Modeler`
/// checks and writes the project form; the builds check and write the build form.
enum class WalkMode { SaveProject, ModelerSave, Modeler, BuildSmd, BuildMdf };

/// A fault, and the node it is at.
struct NodeFault {
    DefinitionFault fault;
    int nodeIndex = 0;

    bool operator==(const NodeFault&) const = default;
};

/// How a walk ended.
struct WalkOutcome {
    /// Empty on success, otherwise the status of the first fault, which ended the walk.
    std::string status;
    std::optional<NodeFault> fault;
};

/// The walk over a message tree that writes the definitions: for saves, builds, and the change to the
/// modeler.
class SmdWriter {
public:
    /// Called with the record of each message that has a Key.
    using RecordListener = std::function<void(const SECSMessageRecord& record)>;

    explicit SmdWriter(const CodePage& codePage, RecordListener onRecord = {})
        : onRecord_(std::move(onRecord)), validator_(codePage) {}

    /// Adds the messages of the tree to the store, which is empty at first. A walk that checks also
    /// normalizes the items up to the first fault.
    WalkOutcome buildMessageText(WalkMode mode, NodeTree& tree, SECSMessageStore& store);

    /// The text that a save writes of the whole tree, in one piece: the same as that of a walk for
    /// `SaveProject`, in a fraction of its time, since no records are made.
    std::string composeForSave(NodeTree& tree);

    /// The first message of the tree; nothing when there is none. The error is the sentence for the user when
    /// the message is not correct.
    Result<std::optional<SECSMessageRecord>, std::string> composeSingleMessage(NodeTree& tree);

private:
    enum class Form { Project, Build };

    WalkOutcome writeMessage(const Node& node, WalkMode mode, NodeTree& tree, SECSMessageStore& store);
    /// Puts the text of a message into the buffer; a fault ends it.
    std::optional<NodeFault> composeMessage(const Node& node, WalkMode mode, NodeTree& tree);
    /// Appends the items below a node to the current message; a fault ends it.
    std::optional<NodeFault> writeItems(const Node& node, WalkMode mode, NodeTree& tree);
    std::optional<NodeFault> checkItem(int index, NodeTree& tree);
    void writeComment(const Node& messageNode, Form form);
    void writeItem(const Node& item, int depth, bool isOpenList, bool isLast, Form form);
    void closeList(int depth, bool isLast, Form form);
    void indent(int depth);

    RecordListener onRecord_;
    Validator validator_;
    std::string buffer_;
};

} // namespace zb
