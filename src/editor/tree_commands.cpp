#include "editor/tree_commands.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/node_copies.h"
#include "editor/node_removal.h"
#include "editor/step_names.h"
#include "messages/item_names.h"
#include "messages/message_nodes.h"
#include "messages/subtree_copy.h"
#include "platform/text.h"
#include "platform/wildcard.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zb {

namespace {

bool isFixedList(const Node& item) {
    return isList(item) && !hasVariableCount(item);
}

Relation relationOf(PastePosition position) {
    switch (position) {
    case PastePosition::Previous:
        return Relation::Previous;
    case PastePosition::Next:
        return Relation::Next;
    default:
        return Relation::Child;
    }
}

/// A message has three root nodes in the clipboard, an item one.
bool holdsMessage(const NodeTree& clipboard) {
    return !clipboard.empty() && clipboard.firstRoot()->next() != nullptr;
}

std::string textOf(const Node* node) {
    return node == nullptr ? std::string() : node->text();
}

} // namespace

TreeCommands::~TreeCommands() = default;

TreeCommands::TreeCommands(frmSECSEditor& window) : window_(window) {
    wire(window_.editEntries);
    wire(window_.popEntries);
}

void TreeCommands::wire(StructureEntries& entries) {
    entries.cut.onClick = [this] {
        nameStep("Cut ");
        cut();
    };
    entries.copy.onClick = [this] { copy(); };
    entries.pastePrevious.onClick = [this] { pasteFromTemp(PastePosition::Previous); };
    entries.pasteNext.onClick = [this] { pasteFromTemp(PastePosition::Next); };
    entries.pasteChild.onClick = [this] { pasteFromTemp(PastePosition::Child); };
    entries.remove.onClick = [this] {
        nameStep("Delete ");
        cut();
    };
    entries.duplicate.onClick = [this] { duplicate(); };
    entries.item.onClick = [this] { insertItem(); };
    entries.child.onClick = [this] { addSubItem(); };
}

std::vector<Node*> TreeCommands::targets() {
    std::vector<Node*> marked = window_.markedNodes.units();
    if (Node* selected = window_.liveTree().selected(); marked.empty() && selected != nullptr)
        marked.push_back(selected);
    return marked;
}

void TreeCommands::cut() {
    if (targets().empty())
        return;
    copy();
    deleteTargets();
}

void TreeCommands::copy() {
    if (auto copies = copiesOfTargets(); !copies.empty())
        takeCopies(std::move(copies));
}

std::vector<std::unique_ptr<NodeTree>> TreeCommands::copiesOfTargets() {
    std::vector<std::unique_ptr<NodeTree>> copies;
    for (Node* node : targets()) {
        copies.push_back(std::make_unique<NodeTree>());
        copyTo(*node, *copies.back());
    }
    return copies;
}

void TreeCommands::takeCopies(std::vector<std::unique_ptr<NodeTree>> copies) {
    copies_ = std::move(copies);
    window_.clipboard().clear();
    if (!copies_.empty())
        copyAll(*copies_.front(), window_.clipboard());
    fire(onCopied);
}

void TreeCommands::nameStep(std::string_view command) {
    const std::string several = window_.markedNodes.count();
    Node* selected = window_.liveTree().selected();
    if (!several.empty())
        window_.desktop().steps().name(std::string(command) + several);
    else if (selected != nullptr)
        window_.desktop().steps().name(std::string(command) + nameForSteps(*selected));
}

// Copies of several come after the last of them.
void TreeCommands::duplicate() {
    nameStep("Duplicate ");
    copy();
    if (const std::vector<Node*> marked = window_.markedNodes.units(); !marked.empty())
        window_.liveTree().select(marked.back());
    pasteFromTemp(PastePosition::Next);
}

void TreeCommands::copyNodeToTemp(Node& node) {
    std::vector<std::unique_ptr<NodeTree>> copies;
    copies.push_back(std::make_unique<NodeTree>());
    copyTo(node, *copies.back());
    takeCopies(std::move(copies));
}

// Keys are not copied: pasting takes the name from the Text.
void TreeCommands::copyTo(Node& node, NodeTree& clipboard) {
    Node* source = &node;
    if (node.parent() == nullptr) {
        source = messageOf(node).message;
        if (source == nullptr)
            return;
        clipboard.add(nullptr, Relation::Last, textOf(siblingAt(source, -2)));
        clipboard.add(nullptr, Relation::Last, textOf(siblingAt(source, -1)));
    }
    Node& copied = clipboard.add(nullptr, Relation::Last, source->text());
    copied.setExpanded(true);
    if (copySubtree(*source, copied, clipboard) == CopyOutcome::Broken)
        sayError();
}

void TreeCommands::deleteTargets() {
    selectAndShow(NodeRemoval(window_).remove(targets()));
}

void TreeCommands::deleteSelectedNode() {
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr)
        window_.desktop().showBox("No selected message");
    else
        selectAndShow(NodeRemoval(window_).remove(*selected));
}

void TreeCommands::selectAndShow(Node* node) {
    if (node == nullptr)
        return;
    window_.liveTree().select(node);
    window_.treeInteraction.nodeClick();
}

void TreeCommands::updateListCount(Node& list) {
    std::vector<std::string> words = splitAtBlanks(list.text());
    words.resize(std::max<std::size_t>(words.size(), 2));
    words[1] = std::to_string(list.children());
    std::erase(words, "");
    list.setText(join(words, " "));
}

void TreeCommands::nameStepOfPaste() {
    Node& first = *window_.clipboard().firstRoot();
    const bool isMessage = holdsMessage(window_.clipboard());
    std::string name = isMessage ? nameForSteps(first) : nameOfItem(first);
    if (copies_.size() > 1)
        name = std::to_string(copies_.size()) + (isMessage ? " messages" : " items");
    window_.desktop().steps().name("Paste " + name);
}

void TreeCommands::pasteFromTemp(PastePosition position) {
    if (window_.clipboard().empty())
        return;
    nameStepOfPaste();
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr)
        return refusePaste();
    MessageItemNames names;
    const Node* inMessage = selected->parent() == nullptr ? messageOf(*selected).message : selected;
    if (!holdsMessage(window_.clipboard()) && inMessage != nullptr)
        names = MessageItemNames(*inMessage);
    if (copies_.size() < 2) {
        paste(window_.clipboard(), *selected, position, names);
        return;
    }
    const std::vector<Node*> marked = window_.markedNodes.units();
    pasteSeveral(*selected, position, names);
    if (!NodeTree::ManyChanges::areMany(copies_.size()))
        return;
    // The views begin anew with so many.
    window_.liveTree().select(nullptr);
    window_.liveTree().select(selected);
    window_.markedNodes.set(marked);
}

// Each comes directly after the selected node, so that the last one goes first.
void TreeCommands::pasteSeveral(Node& selected, PastePosition position, MessageItemNames& names) {
    const std::size_t count = copies_.size();
    const NodeTree::ManyChanges many(window_.liveTree(), count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t place = position == PastePosition::Next ? count - 1 - i : i;
        if (!paste(*copies_[place], selected, position, names))
            return;
    }
}

bool TreeCommands::paste(const NodeTree& source, Node& selected, PastePosition position,
                         MessageItemNames& names) {
    return holdsMessage(source) ? pasteMessage(source, selected, position)
                                : pasteItem(source, selected, position, names);
}

void TreeCommands::refusePaste() {
    window_.desktop().showBox("You cannot paste");
}

bool TreeCommands::pasteMessage(const NodeTree& source, Node& selected, PastePosition position) {
    if (selected.parent() != nullptr)
        return false;
    Node* message = messageOf(selected).message;
    if (position == PastePosition::Child || message == nullptr) {
        refusePaste();
        return false;
    }
    Node* before = siblingAt(message, -2);
    addMessageCopy(source, position == PastePosition::Previous && before != nullptr ? *before : *message,
                   position);
    window_.TreeView_ForeColor();
    return true;
}

void TreeCommands::addMessageCopy(const NodeTree& clipboard, Node& relative, PastePosition position) {
    NodeTree& tree = window_.liveTree();
    Node& source = *siblingAt(clipboard.firstRoot(), 2);
    const std::string oldName(nameInText(source.text()));
    const std::string newName = isMessageKeyUsed(tree, oldName, 0) ? makeNewMessageName(oldName) : oldName;
    std::string text = source.text();
    if (!isBlank(oldName))
        text = replaceAll(text, oldName + ":", newName + ":");

    Node& separator = tree.add(&relative, relationOf(position), clipboard.firstRoot()->text());
    Node& description = tree.add(&separator, Relation::Next, source.previous()->text());
    description.setBold(true);
    Node& message = tree.add(&description, Relation::Next, std::move(text));
    tree.setKey(message, newName);
    message.setExpanded(true);
    window_.InsertCbo(newName);
    if (copySubtree(source, message, tree) == CopyOutcome::Broken)
        sayError();
}

std::string TreeCommands::makeNewMessageName(std::string_view name) {
    std::string made(name);
    do
        made += "New1";
    while (isMessageKeyUsed(window_.liveTree(), made, 0));
    return made;
}

bool TreeCommands::pasteItem(const NodeTree& source, Node& selected, PastePosition position,
                             MessageItemNames& names) {
    Node* parent = selected.parent();
    if (position == PastePosition::Child)
        return pasteItemBelow(source, selected, names);
    const bool directItem = parent != nullptr && parent->parent() == nullptr;
    if (parent == nullptr || (!directItem && !isFixedList(*parent))) {
        refusePaste();
        return false;
    }
    if (!addItemCopy(source, selected, position, names))
        return false;
    if (!directItem)
        updateListCount(*parent);
    window_.TreeView_ForeColor();
    return true;
}

bool TreeCommands::pasteItemBelow(const NodeTree& source, Node& selected, MessageItemNames& names) {
    const bool root = selected.parent() == nullptr;
    Node* relative = root ? messageOf(selected).message : &selected;
    const bool room = root || isFixedList(selected) || (isList(selected) && selected.child() == nullptr);
    if (relative == nullptr || !room) {
        refusePaste();
        return false;
    }
    if (!addItemCopy(source, *relative, PastePosition::Child, names))
        return false;
    if (!root && isFixedList(selected))
        updateListCount(selected);
    window_.TreeView_ForeColor();
    return true;
}

bool TreeCommands::addItemCopy(const NodeTree& clipboard, Node& relative, PastePosition position,
                               MessageItemNames& names) {
    NodeTree& tree = window_.liveTree();
    const Node& source = *clipboard.firstRoot();
    std::string text = names.uniqueItemText(source.text());
    if (text.empty()) {
        sayError();
        return false;
    }
    names.add(itemNameInText(text));
    Node& added = tree.add(&relative, relationOf(position), std::move(text));
    added.setExpanded(true);
    if (copySubtree(source, added, tree, names) == CopyOutcome::Broken)
        sayError();
    return true;
}

std::string TreeCommands::newItemText(const Node& place) {
    const std::string name = "new" + std::to_string(window_.liveTree().count() + 1);
    return "U2 1 " + MessageItemNames(place).uniqueItemName(name) + " 0";
}

void TreeCommands::insertItem() {
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr) {
        window_.desktop().showBox("No selected message");
        return;
    }
    Node* parent = selected->parent();
    const bool directItem = parent != nullptr && parent->parent() == nullptr;
    const bool allowed = parent == nullptr ? hasColon(selected->text()) : directItem || isFixedList(*parent);
    if (!allowed) {
        window_.desktop().showBox("You cannot insert item");
        return;
    }
    const Relation relation = parent == nullptr ? Relation::Child : Relation::Next;
    nameStep(parent == nullptr ? "Insert item in " : "Insert item after ");
    window_.liveTree().add(selected, relation, newItemText(*selected)).setExpanded(true);
    if (parent != nullptr && !directItem)
        updateListCount(*parent);
    window_.TreeView_ForeColor();
}

void TreeCommands::addSubItem() {
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr) {
        window_.desktop().showBox("No selected message");
        return;
    }
    const bool root = selected->parent() == nullptr;
    if (root && !hasColon(selected->text())) {
        window_.desktop().showBox("You cannot insert sub item.");
        return;
    }
    const bool fixedList = !root && isFixedList(*selected);
    if (!root && !fixedList && (!isList(*selected) || selected->child() != nullptr)) {
        window_.desktop().showBox("You cannot insert item");
        return;
    }
    nameStep("Add sub item to ");
    window_.liveTree().add(selected, Relation::Child, newItemText(*selected)).setExpanded(true);
    if (fixedList) {
        window_.txtItemCount.setText(std::to_string(selected->children()));
        updateListCount(*selected);
    }
    window_.TreeView_ForeColor();
}

void TreeCommands::sayError() {
    window_.desktop().showBox("Occur error!");
}

} // namespace zb
