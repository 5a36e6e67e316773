#include "lint/live_messages.h"

#include "messages/definition_check.h"
#include "messages/message_record.h"
#include "platform/text.h"
#include "project/project_messages.h"

#include <iterator>
#include <utility>

namespace zb {

namespace {

const Node& rootAbove(const Node& node) {
    const Node* root = &node;
    while (root->parent() != nullptr)
        root = root->parent();
    return *root;
}

/// The head of a message and its key item.
CheckedMessage summaryOf(const CheckedMessage& message) {
    CheckedMessage summary;
    summary.name = message.name;
    summary.stream = message.stream;
    summary.function = message.function;
    summary.direction = message.direction;
    summary.wait = message.wait;
    summary.nodeIndex = message.nodeIndex;
    if (const CheckedItem* key = message.key())
        summary.items.push_back({key->record, key->path, key->nodeIndex, {}});
    return summary;
}

/// Whether both look the same to other messages.
bool areAlike(const CheckedMessage& left, const CheckedMessage& right) {
    const auto keyOf = [](const CheckedMessage& message) {
        const CheckedItem* key = message.key();
        return key == nullptr ? std::string() : key->path + ' ' + composeItemText(key->record);
    };
    return left.name == right.name && left.stream == right.stream && left.function == right.function &&
           left.direction == right.direction && left.wait == right.wait && keyOf(left) == keyOf(right);
}

/// A line between two messages is found below the one before it.
std::string messageBefore(const Node& root) {
    const Node* node = &root;
    while (node != nullptr && !isMessageNode(*node))
        node = node->previous();
    if (node == nullptr)
        return {};
    SECSMessageRecord record;
    record.parseNodeText(node->text(), "");
    return std::string(record.getName());
}

} // namespace

LiveMessages::LiveMessages(CodePage codePage) : codePage_(std::move(codePage)) {}

void LiveMessages::restart(const NodeTree& tree, const CodePage& codePage, bool standard) {
    for (auto& [node, root] : roots_) {
        replace(root.own, {});
        replace(root.links, {});
    }
    faulty_.clear();
    roots_.clear();
    index_.clear();
    byName_.clear();
    queue_.clear();
    linkQueue_.clear();
    tree_ = &tree;
    codePage_ = codePage;
    standard_ = standard;
    check_.reset();
    if (standard_)
        check_.emplace(codePage_);
    phase_ = Phase::Index;
    cursor_ = tree.firstRoot();
    rootsLeft_ = 0;
    for (const Node* root = cursor_; root != nullptr; root = root->next())
        rootsLeft_ += 2; // one in each phase
    lastSerial_ = 0;
}

LiveMessages::Root& LiveMessages::take(const Node& node) {
    const auto [entry, isNew] = roots_.try_emplace(&node);
    if (isNew)
        entry->second.serial = ++lastSerial_;
    return entry->second;
}

void LiveMessages::checkNext() {
    if (phase_ != Phase::Index && !queue_.empty()) {
        const Node* node = queue_.front();
        queue_.pop_front();
        const auto root = roots_.find(node);
        if (root != roots_.end() && std::exchange(root->second.isQueued, false))
            check(*node, root->second);
    } else if (phase_ != Phase::Done) {
        walkOn();
    } else if (!linkQueue_.empty()) {
        const Node* node = linkQueue_.front();
        linkQueue_.pop_front();
        const auto root = roots_.find(node);
        if (root != roots_.end() && std::exchange(root->second.isLinkQueued, false))
            checkLinks(*node, root->second);
    }
}

// Each message is checked when all others are known.
void LiveMessages::walkOn() {
    if (cursor_ == nullptr) {
        const bool isIndexed = phase_ == Phase::Index;
        phase_ = isIndexed ? Phase::Check : Phase::Done;
        cursor_ = isIndexed ? tree_->firstRoot() : nullptr;
        if (phase_ == Phase::Done)
            rootsLeft_ = 0;
        return;
    }
    rootsLeft_ -= rootsLeft_ > 0 ? 1 : 0;
    const Node& node = *std::exchange(cursor_, cursor_->next());
    Root& root = take(node);
    if (phase_ == Phase::Check && !root.isChecked)
        check(node, root);
    else if (phase_ == Phase::Index && !root.isQueued)
        index(node, root, parse(node, root));
}

CheckedMessage LiveMessages::parse(const Node& node, const Root& root) const {
    CheckedMessage message;
    if (!isMessageNode(node))
        return message;
    if (standard_) {
        message = CheckedMessage::of(node);
    } else {
        SECSMessageRecord head;
        head.parseNodeText(node.text(), "");
        message.name = head.getName();
    }
    // Positions in the tree move when nodes go; this one stays.
    message.nodeIndex = root.serial;
    return message;
}

bool LiveMessages::index(const Node& node, Root& root, const CheckedMessage& message) {
    CheckedMessage summary = summaryOf(message);
    const bool isMessage = isMessageNode(node);
    const bool isSame = root.name.has_value() == isMessage && areAlike(root.summary, summary);
    rename(node, root, isMessage ? std::optional(upper(message.name)) : std::nullopt);
    root.summary = std::move(summary);
    if (isSame || !standard_)
        return false;
    if (isMessage)
        index_.put(node, MessageSummary::of(message));
    else
        index_.remove(node);
    return true;
}

void LiveMessages::rename(const Node& node, Root& root, std::optional<std::string> name) {
    if (root.name == name)
        return;
    const auto queueNamesakes = [&](const std::string& each) {
        for (const auto& [serial, other] : byName_[each])
            if (other != &node)
                queueLinks(*other);
    };
    if (root.name) {
        queueNamesakes(*root.name);
        auto& namesakes = byName_[*root.name];
        namesakes.erase(root.serial);
        if (namesakes.empty())
            byName_.erase(*root.name);
    }
    root.name = std::move(name);
    if (root.name) {
        byName_[*root.name].emplace(root.serial, &node);
        queueNamesakes(*root.name);
    }
}

void LiveMessages::check(const Node& node, Root& root) {
    root.isChecked = true;
    const CheckedMessage message = parse(node, root);
    const int streamBefore = root.summary.stream;
    const int functionBefore = root.summary.function;
    if (index(node, root, message)) {
        queueBeside(streamBefore, functionBefore);
        queueBeside(message.stream, message.function);
    }
    Findings findings = checkDefinition(node, codePage_);
    for (Finding& finding : findings)
        if (!root.name)
            finding.place.message = messageBefore(node);
    if (root.name && standard_)
        for (Finding& finding : check_->checkMessage(message, index_))
            findings.push_back(std::move(finding));
    replace(root.own, std::move(findings));
    checkLinks(node, root); // lists the root, too
    if (root.name && onDefinition)
        onDefinition(*root.name);
}

void LiveMessages::checkLinks(const Node& node, Root& root) {
    Findings findings;
    if (root.name && byName_[*root.name].begin()->first != root.serial)
        findings.push_back({Severity::Warning,
                            FindingPlace::inMessage(
                                root.summary.name.empty() ? *root.name : root.summary.name, {}, node.index()),
                            "The name of this message is used twice", "smd.name.twice"});
    if (root.name && standard_) {
        // Only the rule about lost keys looks at the items.
        const bool takesItems = root.summary.items.empty() &&
                                !index_.group(root.summary.stream, root.summary.function).byKeyPlace.empty();
        for (Finding& finding : check_->checkLinks(takesItems ? parse(node, root) : root.summary, index_))
            findings.push_back(std::move(finding));
    }
    replace(root.links, std::move(findings));
    listFaulty(node, root);
}

// Most messages have no findings, and a list of those that have is much shorter than the tree.
void LiveMessages::listFaulty(const Node& node, Root& root) {
    const bool isFaulty = !root.own.empty() || !root.links.empty();
    if (!isFaulty)
        return unlistFaulty(root);
    if (root.faulty)
        return;
    auto after = faulty_.begin();
    for (const Node* before = node.previous(); before != nullptr && !faulty_.empty();
         before = before->previous()) {
        if (const auto known = roots_.find(before); known != roots_.end() && known->second.faulty) {
            after = std::next(*known->second.faulty);
            break;
        }
    }
    root.faulty = faulty_.insert(after, {&node, &root});
}

void LiveMessages::unlistFaulty(Root& root) {
    if (root.faulty)
        faulty_.erase(*std::exchange(root.faulty, std::nullopt));
}

void LiveMessages::replace(Findings& findings, Findings fresh) const {
    if (findings == fresh)
        return;
    if (onChange)
        onChange(findings, fresh);
    findings = std::move(fresh);
}

void LiveMessages::queueBeside(int stream, int function) {
    for (const Node* other : index_.nodesBeside(stream, function))
        queueLinks(*other);
}

void LiveMessages::queueLinks(const Node& node) {
    const auto root = roots_.find(&node);
    if (root == roots_.end() || !root->second.isChecked || std::exchange(root->second.isLinkQueued, true))
        return;
    linkQueue_.push_back(&node);
}

void LiveMessages::touch(const Node& node) {
    Root& root = take(node);
    if (!std::exchange(root.isQueued, true))
        queue_.push_back(&node);
}

// Whether a line belongs to a message depends on the two lines after it.
void LiveMessages::touchBefore(const Node& root) {
    const Node* node = root.previous();
    for (int count = 0; node != nullptr && count < 2; ++count, node = node->previous())
        touch(*node);
}

void LiveMessages::afterInsert(Node& node) {
    if (tree_ == nullptr)
        return;
    touch(rootAbove(node));
    if (node.parent() == nullptr)
        touchBefore(node);
}

void LiveMessages::nodeChanged(Node& node) {
    afterInsert(node);
}

void LiveMessages::beforeRemove(Node& node) {
    if (tree_ == nullptr)
        return;
    if (node.parent() != nullptr) {
        touch(rootAbove(node));
        return;
    }
    touchBefore(node);
    if (cursor_ == &node)
        cursor_ = node.next();
    const auto found = roots_.find(&node);
    if (found == roots_.end())
        return;
    unlistFaulty(found->second);
    Root root = std::move(found->second);
    unindex(node, root);
    roots_.erase(found);
    replace(root.own, {});
    replace(root.links, {});
}

void LiveMessages::unindex(const Node& node, Root& root) {
    const std::optional<std::string> name = root.name;
    rename(node, root, std::nullopt);
    if (standard_ && name) {
        index_.remove(node);
        queueBeside(root.summary.stream, root.summary.function);
    }
    if (name && onDefinition)
        onDefinition(*name);
}

bool LiveMessages::visit(const std::function<bool(const Node&, const Finding&)>& visit) const {
    for (const auto& [node, root] : faulty_)
        for (const Findings* findings : {&root->own, &root->links})
            for (const Finding& finding : *findings)
                if (!visit(*node, finding))
                    return false;
    return true;
}

} // namespace zb
