#pragma once

#include "messages/message_record.h"
#include "messages/message_store.h"
#include "messages/validator.h"
#include "platform/progress.h"
#include "platform/result.h"
#include "platform/tree/node_tree.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// What a walk has found, while the tree is still as it was.
struct PreparedWalk {
    struct CanonicalText {
        int nodeIndex = 0;
        std::string text;
    };

    std::unique_ptr<SECSMessageStore> store = std::make_unique<SECSMessageStore>();
    /// The record of each message that has a Key, in order. The store owns them.
    std::vector<const SECSMessageRecord*> records;
    /// Items whose Text is not canonical, up to the first fault.
    std::vector<CanonicalText> canonicalTexts;
    /// How many of them do not keep all values, and what the first one loses (value_loss.h).
    std::size_t losses = 0;
    std::string firstLoss;
    WalkOutcome outcome;

    /// Gives these items their canonical Texts.
    void normalize(NodeTree& tree);
};

/// The walk over a message tree that writes the definitions: for saves, builds, and the change to the
/// modeler.
class SmdWriter {
public:
    explicit SmdWriter(const CodePage& codePage) : validator_(codePage) {}

    /// Walks over the messages and changes nothing, so that another thread may do it.
    PreparedWalk prepare(WalkMode mode, const NodeTree& tree, const Progress& progress = {});

    /// Replaces the store by one of the messages of the tree. A walk that checks also normalizes the items up
    /// to the first fault.
    WalkOutcome buildMessageText(WalkMode mode, NodeTree& tree, SECSMessageStore& store);

    /// The text that a save writes of the whole tree, in one piece: the same as that of a walk for
    /// `SaveProject`, in a fraction of its time, since no records are made.
    std::string composeForSave(const NodeTree& tree);

    /// The first message of the tree; nothing when there is none. The error is the sentence for the user when
    /// the message is not correct.
    Result<std::optional<SECSMessageRecord>, std::string> composeSingleMessage(const NodeTree& tree);

private:
    enum class Form { Project, Build };

    WalkOutcome writeMessage(const Node& node, WalkMode mode);
    /// Puts the text of a message into the buffer; a fault ends it.
    std::optional<NodeFault> composeMessage(const Node& node, WalkMode mode);
    /// Appends the items below a node to the current message; a fault ends it.
    std::optional<NodeFault> writeItems(const Node& node, WalkMode mode);
    void noteLoss(std::string loss);
    void writeComment(const Node& messageNode, Form form);
    void writeItem(std::string_view text, int depth, bool isOpenList, bool isLast, Form form);
    void closeList(int depth, bool isLast, Form form);
    void indent(int depth);

    Validator validator_;
    std::string buffer_;
    PreparedWalk walk_;
    std::size_t nodesDone_ = 0;
};

} // namespace zb
