#pragma once

#include "lint/message_index.h"
#include "lint/project_check.h"
#include "platform/code_page.h"
#include "platform/finding.h"
#include "platform/tree/node_tree.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>

namespace zb {

/// The findings of all messages of a tree, kept up to date while the tree changes. The tree is checked in
/// small pieces, one for each call of `checkNext`, and after a change only what the change concerns. Nothing
/// is changed in the tree.
class LiveMessages final : public NodeTreeListener {
public:
    explicit LiveMessages(CodePage codePage);

    /// Forgets everything and begins anew, with or without the rules of the standards check. The tree must
    /// report its changes to this listener, and outlive its use; after a filling of the tree this is called
    /// again.
    void restart(const NodeTree& tree, const CodePage& codePage, bool standard);

    bool isDone() const { return phase_ == Phase::Done && queue_.empty() && linkQueue_.empty(); }
    /// How many calls of `checkNext` are left, about: a message may add others.
    std::size_t stepsLeft() const { return rootsLeft_ + queue_.size() + linkQueue_.size(); }
    /// Checks one message, or does less. No effect when all is done.
    void checkNext();

    /// Calls `visit` with the findings, in tree order, and the root node of each, until it returns false. The
    /// messages without findings cost nothing. Places have the index of an item's node as it was when the
    /// message was checked. Returns whether all were visited.
    bool visit(const std::function<bool(const Node& root, const Finding& finding)>& visit) const;

    /// Findings have gone and others have come.
    std::function<void(const Findings& gone, const Findings& come)> onChange;
    /// A message was checked, or has gone: what uses the definition may have another result.
    std::function<void(const std::string& name)> onDefinition;

    void afterInsert(Node& node) override;
    void beforeRemove(Node& node) override;
    void nodeChanged(Node& node) override;

private:
    /// The first phases go through all root nodes from `cursor_` on.
    enum class Phase { Index, Check, Done };

    struct Root;
    /// A root node with findings.
    struct Faulty {
        const Node* node;
        const Root* root;
    };
    using FaultyRoots = std::list<Faulty>;

    /// What is known of a root node.
    struct Root {
        int serial = 0; ///< the order in which the nodes came, which no removal changes
        bool isQueued = false;
        bool isLinkQueued = false;
        bool isChecked = false;
        std::optional<std::string> name; ///< of a message, upper-cased
        /// The head and the key item, for the rules that look at other messages.
        CheckedMessage summary;
        Findings own;
        Findings links;
        std::optional<FaultyRoots::iterator> faulty; ///< its place among the roots with findings
    };
    using Roots = std::unordered_map<const Node*, Root>;

    void touch(const Node& root);
    void touchBefore(const Node& root);
    void queueLinks(const Node& root);
    void queueBeside(int stream, int function);
    void walkOn();
    Root& take(const Node& node);
    /// Notes what others have to know of the message. Whether that has changed.
    bool index(const Node& node, Root& root, const CheckedMessage& message);
    void rename(const Node& node, Root& root, std::optional<std::string> name);
    void unindex(const Node& node, Root& root);
    void check(const Node& node, Root& root);
    void checkLinks(const Node& node, Root& root);
    void replace(Findings& findings, Findings fresh) const;
    void listFaulty(const Node& node, Root& root);
    void unlistFaulty(Root& root);
    CheckedMessage parse(const Node& node, const Root& root) const;

    const NodeTree* tree_ = nullptr;
    bool standard_ = false;
    CodePage codePage_;
    std::optional<StandardCheck> check_;
    MessageIndex index_;
    Roots roots_;
    FaultyRoots faulty_;                                                 // in tree order
    std::unordered_map<std::string, std::map<int, const Node*>> byName_; // by upper-cased name and serial
    std::deque<const Node*> queue_;                                      // nodes that have gone are skipped
    std::deque<const Node*> linkQueue_;
    Phase phase_ = Phase::Done;
    const Node* cursor_ = nullptr;
    std::size_t rootsLeft_ = 0; // of both phases, without what is added or removed meanwhile
    int lastSerial_ = 0;
};

} // namespace zb
