#include "messages/definition_check.h"

#include "messages/definition_rules.h"
#include "messages/item_normalizer.h"
#include "messages/message_record.h"
#include "platform/text.h"
#include "platform/tree/node_tree.h"
#include "platform/tree/node_walk.h"
#include "platform/wildcard.h"

#include <unordered_set>

namespace zb {

namespace {

bool isMessage(const Node* node) {
    return node != nullptr && hasColon(node->text());
}

/// Whether a root node that is not a message is at the position of a description or a separator.
bool isBeforeMessage(const Node& node) {
    if (isMessage(node.next()))
        return true;
    return node.text().empty() && node.next() != nullptr && isMessage(node.next()->next());
}

class DefinitionChecker {
public:
    explicit DefinitionChecker(const CodePage& codePage) : codePage_(codePage) {}

    Findings run(const NodeTree& tree) {
        for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next())
            checkRoot(*node);
        return std::move(findings_);
    }

    Findings runOne(const Node& root) {
        checkRoot(root);
        return std::move(findings_);
    }

private:
    void checkRoot(const Node& node) {
        path_.clear();
        if (isMessage(&node))
            checkMessage(node);
        else if (!isBeforeMessage(node))
            tell(Severity::Warning, node, "This line belongs to no message: " + node.text(),
                 "smd.line.stray");
    }

    void checkMessage(const Node& node) {
        SECSMessageRecord record;
        const std::string status = record.parseNodeText(node.text(), "");
        message_ = record.getName();
        const OptionalFault stream = streamFault(node.text());
        const OptionalFault function = functionFault(node.text());
        if (stream)
            tell(node, *stream);
        if (function)
            tell(node, *function);
        if (!stream && !function && !status.empty())
            tell(Severity::Warning, node, status, "smd.head");
        if (!names_.insert(upper(message_)).second)
            tell(Severity::Warning, node, "The name of this message is used twice", "smd.name.twice");
        itemNames_.clear();
        checkItems(node);
    }

    void checkItems(const Node& message) {
        for (NodeWalk walk(message); const Node* item = walk.node(); walk.next()) {
            path_.resize(walk.depth() + 1);
            ++path_.back();
            checkItem(*item);
        }
    }

    void checkItem(const Node& node) {
        SECSItemRecord item;
        const std::string status = item.parseText(node.text());
        const OptionalFault name = nameFault(item, itemNames_);
        if (name)
            tell(node, *name);
        // The rules for values ignore quoted ones, so these need no canonical Text.
        const ItemKind kind = itemKind(item.getType());
        std::optional<std::string> normalized;
        if (kind != ItemKind::Quoted)
            normalized = normalizedItemText(item, codePage_);
        const std::vector<DefinitionFault> faults =
            valueFaults(normalized ? *normalized : node.text(), node.children());
        for (const DefinitionFault& fault : faults)
            tell(node, fault);
        if (faults.empty() && !status.empty())
            tell(Severity::Warning, node, status, "smd.item.form");
        std::string_view text = trimmed(node.text());
        if (node.child() != nullptr && takeWord(text) != "L")
            tell(Severity::Warning, node, "Only a list can have sub items", "smd.item.children");
    }

    void tell(const Node& node, const DefinitionFault& fault) {
        tell(Severity::Error, node, fault.text, fault.id);
    }

    void tell(Severity severity, const Node& node, std::string_view text, std::string_view id) {
        std::string path;
        for (const int position : path_)
            path.append(path.empty() ? "" : "/").append(std::to_string(position));
        findings_.push_back({severity, FindingPlace::inMessage(message_, path, node.index()),
                             replaceAll(text, "\r\n", " "), std::string(id)});
    }

    const CodePage& codePage_;
    Findings findings_;
    std::string message_;
    std::vector<int> path_;
    std::unordered_set<std::string> names_; // upper-cased
    NameSet itemNames_;
};

} // namespace

Findings checkDefinitions(const NodeTree& tree, const CodePage& codePage) {
    return DefinitionChecker(codePage).run(tree);
}

Findings checkDefinition(const Node& root, const CodePage& codePage) {
    return DefinitionChecker(codePage).runOne(root);
}

} // namespace zb
