#include "controls/tree_journal.h"

#include "controls/tree.h"

#include <algorithm>
#include <cstdint>
#include <unordered_set>
#include <utility>

namespace zb {

namespace {

using Kind = TreeEdit::Kind;

TreeEdit::Value valueOf(const Node& node, NodePart part) {
    switch (part) {
    case NodePart::Text:
        return std::make_unique<std::string>(node.text());
    case NodePart::Key:
        return std::make_unique<std::string>(node.key());
    case NodePart::Image:
        return std::make_unique<std::string>(node.image());
    case NodePart::Bold:
        return node.bold();
    case NodePart::Expanded:
        return node.expanded();
    case NodePart::BackColor:
        return node.backColor();
    case NodePart::ForeColor:
        return node.ownForeColor();
    }
    return {};
}

void setValue(NodeTree& tree, Node& node, NodePart part, const TreeEdit::Value& value) {
    switch (part) {
    case NodePart::Text:
        node.setText(*std::get<std::unique_ptr<std::string>>(value));
        break;
    case NodePart::Key:
        tree.setKey(node, *std::get<std::unique_ptr<std::string>>(value));
        break;
    case NodePart::Image:
        node.setImage(*std::get<std::unique_ptr<std::string>>(value));
        break;
    case NodePart::Bold:
        node.setBold(std::get<bool>(value));
        break;
    case NodePart::Expanded:
        node.setExpanded(std::get<bool>(value));
        break;
    case NodePart::BackColor:
        node.setBackColor(std::get<OptionalColor>(value));
        break;
    case NodePart::ForeColor:
        node.setForeColor(std::get<OptionalColor>(value));
        break;
    }
}

bool isUnchanged(const TreeEdit& edit) {
    if (edit.kind != Kind::Value)
        return false;
    switch (edit.part) {
    case NodePart::Key:
        return false;
    case NodePart::Text:
        return *std::get<std::unique_ptr<std::string>>(edit.other) == edit.node->text();
    case NodePart::Image:
        return *std::get<std::unique_ptr<std::string>>(edit.other) == edit.node->image();
    default:
        return edit.other == valueOf(*edit.node, edit.part);
    }
}

constexpr int kNamelessRoot = 1;
/// Most steps have no more: a message is three nodes and a Key.
constexpr std::size_t kUsualEdits = 4;

/// What is worth showing most comes first: nodes near the root, and among roots those with a name.
int rankOf(const Node& node) {
    if (node.parent() != nullptr)
        return node.level() + 1;
    return node.text().find(':') != std::string::npos ? 0 : kNamelessRoot;
}

/// One number for each part of each node: nodes are further apart than a part is wide.
std::uintptr_t placeOf(const TreeEdit& edit) {
    return reinterpret_cast<std::uintptr_t>(edit.node) + static_cast<std::uintptr_t>(edit.part);
}

/// A value that can be set without regard to others: Keys are unique.
bool isPlainValue(const TreeEdit& edit) {
    return edit.kind == Kind::Value && edit.part != NodePart::Key;
}

std::size_t bytesOf(const TreeEdit& edit) {
    std::size_t sum = sizeof edit;
    if (const auto* text = std::get_if<std::unique_ptr<std::string>>(&edit.other))
        sum += sizeof(std::string) + (*text)->capacity();
    else if (const auto* branch = std::get_if<std::unique_ptr<NodeBranch>>(&edit.other); branch && *branch)
        sum += (*branch)->bytes();
    return sum;
}

} // namespace

void TreePart::record(TreeEdit edit) {
    const bool value = edit.kind == Kind::Value || edit.kind == Kind::Recolor;
    const bool text = edit.kind == Kind::Value && (edit.part == NodePart::Text || edit.part == NodePart::Key);
    changesNodes_ = changesNodes_ || !value || text;
    bytes_ += bytesOf(edit);
    if (edits_.empty())
        edits_.reserve(kUsualEdits);
    edits_.push_back(std::move(edit));
}

void TreePart::dropUnchanged() {
    if (std::none_of(edits_.begin(), edits_.end(), isUnchanged))
        return;
    std::vector<TreeEdit> all;
    all.swap(edits_);
    changesNodes_ = false;
    bytes_ = sizeof(TreePart);
    for (TreeEdit& edit : all) {
        if (!isUnchanged(edit))
            record(std::move(edit));
    }
}

void TreePart::undo() {
    // Views are notified once of many changes.
    const NodeTree::ManyChanges many(tree_.nodes(), edits_.size());
    std::for_each(edits_.rbegin(), edits_.rend(), [this](TreeEdit& edit) { swap(edit); });
}

void TreePart::redo() {
    const NodeTree::ManyChanges many(tree_.nodes(), edits_.size());
    for (TreeEdit& edit : edits_)
        swap(edit);
}

void TreePart::swap(TreeEdit& edit) {
    NodeTree& tree = tree_.nodes();
    switch (edit.kind) {
    case Kind::Value: {
        TreeEdit::Value now = valueOf(*edit.node, edit.part);
        setValue(tree, *edit.node, edit.part, edit.other);
        edit.other = std::move(now);
        break;
    }
    case Kind::Recolor: {
        const OptionalColor now = tree.ordinaryForeColor();
        tree.setOrdinaryForeColor(std::get<OptionalColor>(edit.other));
        edit.other = now;
        break;
    }
    default: {
        auto* kept = std::get_if<std::unique_ptr<NodeBranch>>(&edit.other);
        if (kept != nullptr) {
            tree.attach(std::move(**kept));
            edit.other = std::monostate();
        } else {
            edit.other = std::make_unique<NodeBranch>(edit.kind == Kind::Clear ? tree.detachAll()
                                                                               : tree.detach(*edit.node));
        }
    }
    }
}

void TreePart::append(std::unique_ptr<StepPart> later) {
    auto& part = static_cast<TreePart&>(*later); // parts of one source have one type
    if (part.changesDocument())
        selectedAfter_ = part.selectedAfter_;
    // Typing changes the same value again and again.
    const auto isKnown = [this](const TreeEdit& edit) {
        return isPlainValue(edit) && !edits_.empty() && isPlainValue(edits_.front()) &&
               placeOf(edits_.front()) == placeOf(edit);
    };
    for (TreeEdit& edit : part.edits_) {
        if (!isKnown(edit))
            record(std::move(edit));
    }
    if (edits_.size() >= compactAt_) {
        compact();
        compactAt_ = 2 * edits_.size() + 16;
    }
}

// Of several changes of a value the first one knows what was there before the step.
void TreePart::compact() {
    std::unordered_set<std::uintptr_t> known;
    std::vector<TreeEdit> all;
    all.swap(edits_);
    bytes_ = sizeof(TreePart);
    for (TreeEdit& edit : all) {
        if (!isPlainValue(edit) || known.insert(placeOf(edit)).second)
            record(std::move(edit));
    }
}

bool TreePart::isInTree(const Node* node) const {
    return node != nullptr && tree_.nodes().at(node->index()) == node;
}

Node* TreePart::affected(UndoHistory::Way way) const {
    Node* preferred = way == UndoHistory::Way::Undone ? selectedBefore_ : selectedAfter_;
    Node* added = nullptr;
    Node* changed = nullptr;
    bool removed = false;
    for (const TreeEdit& edit : edits_) {
        const bool structure = edit.kind == Kind::Add || edit.kind == Kind::Remove;
        const bool text = edit.kind == Kind::Value && edit.part == NodePart::Text;
        const bool there = isInTree(edit.node);
        removed = removed || (structure && !there);
        if (!there || (!structure && !text))
            continue;
        // A separator may have been selected when its message was deleted.
        if (edit.node == preferred && rankOf(*preferred) != kNamelessRoot)
            return preferred;
        Node*& best = structure ? added : changed;
        if (best == nullptr || rankOf(*edit.node) < rankOf(*best))
            best = edit.node;
    }
    // Where nodes have gone, what was selected beside them is more than the list that counts them.
    if (added != nullptr)
        return added;
    if (removed && isInTree(preferred))
        return preferred;
    return changed != nullptr ? changed : isInTree(preferred) ? preferred : nullptr;
}

TreeJournal::~TreeJournal() {
    if (tree_.nodes().recorder() == this)
        tree_.setRecorder(nullptr);
}

std::unique_ptr<StepPart> TreeJournal::take() {
    if (part_ == nullptr)
        return nullptr;
    std::unique_ptr<TreePart> part = std::move(part_);
    tree_.nodes().startRecording();
    part->dropUnchanged();
    part->setSelectedAfter(tree_.nodes().selected());
    if (part->empty())
        return nullptr;
    return part;
}

void TreeJournal::drop() noexcept {
    part_.reset();
    tree_.nodes().startRecording();
}

void TreeJournal::setRecording(bool on) {
    tree_.setRecorder(on ? this : nullptr);
}

void TreeJournal::beforeChange(Node& node, NodePart part) {
    record({&node, Kind::Value, part, valueOf(node, part)});
}

void TreeJournal::afterAdd(Node& node) {
    record({&node, Kind::Add, {}, {}});
}

void TreeJournal::afterRemove(NodeBranch branch) {
    const bool all = branch.holdsSeveral();
    Node* top = &branch.top();
    record({top, all ? Kind::Clear : Kind::Remove, {}, std::make_unique<NodeBranch>(std::move(branch))});
}

void TreeJournal::beforeRecolor(OptionalColor ordinary) {
    record({nullptr, Kind::Recolor, {}, ordinary});
}

void TreeJournal::afterReplace() {
    part_.reset();
    if (onReplaced)
        onReplaced();
}

void TreeJournal::record(TreeEdit edit) {
    if (part_ == nullptr) {
        part_ = std::make_unique<TreePart>(tree_, holds_ == Holds::Document);
        part_->setSelectedBefore(tree_.nodes().selected());
    }
    part_->record(std::move(edit));
}

} // namespace zb
