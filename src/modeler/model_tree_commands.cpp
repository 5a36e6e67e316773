#include "modeler/model_tree_commands.h"

#include "controls/desktop.h"
#include "modeler/frm_tr_item.h"
#include "modeler/frm_tr_message.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/model_nodes.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zb {

namespace {

constexpr int kRightButton = 2;

const Node* selectedOf(const Tree& tree, ModelLevel level) {
    const Node* node = tree.nodes().selected();
    return node != nullptr && levelOf(*node) == level ? node : nullptr;
}

} // namespace

ModelTreeCommands::ModelTreeCommands(frmTRModeler& window) : window_(window) {
    for (Tree* tree : {&window_.tvwRcvTRMsg, &window_.tvwSndTRMsg}) {
        tree->onMouseDown = [this, tree](int, Node* node) { press(*tree, node); };
        tree->onMouseUp = [this, tree](int button, Node*) {
            if (button == kRightButton)
                openPopup(*tree);
        };
        tree->onKeyDown = [this, tree](KeyEvent key) { keyDown(*tree, key); };
        tree->onDoubleClick = [this, tree](const Node& node) { edit(*tree, node); };
        tree->onReached = [this, tree](Node& node) { press(*tree, &node); };
        tree->onDragStart = [tree](Node& node) { return DragData{node.text(), tree}; };
    }
    wireKeys();
    wireReceived();
    wireSent();
}

void ModelTreeCommands::wireKeys() {
    const auto add = [this](KeyEvent key, std::vector<const Control*> trees, const char* purpose,
                            std::function<bool()> run) {
        window_.desktop().keys().add(
            {key, {&window_, std::move(trees)}, "the trees of the modeler", purpose, std::move(run)});
    };
    const Tree& received = window_.tvwRcvTRMsg;
    const std::vector<const Control*> both{&received, &window_.tvwSndTRMsg};
    add({kKeyF2, 0}, both, "Renames the selected message", [this] { return rename(); });
    add({kKeyInsert, 0}, both, "Opens the dialog for a new message", [this] {
        if (&focusedTree() == &window_.tvwSndTRMsg)
            window_.messageDialog().addSndTRMessage();
        else
            window_.messageDialog().addRcvTRMessage();
        return true;
    });
    add({kKeyInsert, kShiftKey}, {&received}, "Opens the dialog for a new item of the message", [this] {
        const Node* node = window_.tvwRcvTRMsg.nodes().selected();
        if (node == nullptr || levelOf(*node) == ModelLevel::Root)
            return false;
        const bool isItem = levelOf(*node) == ModelLevel::Item;
        window_.itemDialog().addTRItem(std::string((isItem ? node->parent() : node)->text()));
        return true;
    });
}

Tree& ModelTreeCommands::focusedTree() {
    return window_.focusControl() == &window_.tvwSndTRMsg ? window_.tvwSndTRMsg : window_.tvwRcvTRMsg;
}

bool ModelTreeCommands::rename() {
    Tree& tree = focusedTree();
    if (selectedOf(tree, ModelLevel::Message) == nullptr)
        return false;
    window_.renameSelected(tree);
    return true;
}

void ModelTreeCommands::wireReceived() {
    Tree& tree = window_.tvwRcvTRMsg;
    const auto withSelected = [&tree](ModelLevel level, auto command) {
        return [&tree, level, command] {
            Node* node = tree.nodes().selected();
            if (node != nullptr && levelOf(*node) == level)
                command(*node);
        };
    };
    window_.mnuAddRcvTRMsg.onClick = [this] { window_.messageDialog().addRcvTRMessage(); };
    window_.mnuUpdateRcvTRMsg.onClick = withSelected(ModelLevel::Message, [this](const Node& node) {
        window_.messageDialog().updateRcvTRMessage(std::string(node.text()));
    });
    window_.mnuDeleteRcvTRMsg.onClick =
        withSelected(ModelLevel::Message, [this, &tree](Node& node) { deleteTRMessageNode(tree, node); });
    window_.mnuAddTRItem.onClick = withSelected(ModelLevel::Message, [this](const Node& node) {
        window_.itemDialog().addTRItem(std::string(node.text()));
    });
    window_.mnuUpdateTRItem.onClick = withSelected(ModelLevel::Item, [this](const Node& node) {
        const std::string message = node.parent()->text();
        window_.itemDialog().updateTRItem(message, itemKey(message, node.text()));
    });
    window_.mnuDeleteTRItem.onClick =
        withSelected(ModelLevel::Item, [this, &tree](Node& node) { deleteTRItemNode(tree, node); });
    window_.mnuRemoveErrorsRcvTRMsg.onClick = [this, &tree] {
        removeErrorNodes(tree);
        showRoot(tree);
    };
    window_.mnuClearAllRcvTRMsg.onClick = [this, &tree] {
        clearTree(tree);
        showRoot(tree);
    };
}

void ModelTreeCommands::wireSent() {
    Tree& tree = window_.tvwSndTRMsg;
    window_.mnuAddSndTRMsg.onClick = [this] { window_.messageDialog().addSndTRMessage(); };
    window_.mnuUpdateSndTRMsg.onClick = [this, &tree] {
        if (const Node* node = selectedOf(tree, ModelLevel::Message); node != nullptr)
            window_.messageDialog().updateSndTRMessage(std::string(node->text()));
    };
    window_.mnuDeleteSndTRMsg.onClick = [this, &tree] {
        if (selectedOf(tree, ModelLevel::Message) != nullptr)
            deleteTRMessageNode(tree, *tree.nodes().selected());
    };
    window_.mnuRemoveErrorsSndTRMsg.onClick = [this, &tree] {
        removeErrorNodes(tree);
        showRoot(tree);
    };
    window_.mnuClearAllSndTRMsg.onClick = [this, &tree] {
        clearTree(tree);
        showRoot(tree);
    };
}

void ModelTreeCommands::showRoot(Tree& tree) {
    window_.showTRObjects(window_.rootOf(tree));
    window_.selectTreeNode(tree, tree.nodes().firstRoot());
}

void ModelTreeCommands::press(Tree& tree, Node* node) {
    if (node != nullptr) {
        tree.nodes().select(node);
        if (levelOf(*node) != ModelLevel::Root)
            node->setForeColor(kUnmarkedColor);
    }
    follow(tree, node);
}

void ModelTreeCommands::showAgain(Tree& tree, Node* node) {
    const Desktop::FocusStays stays(window_.desktop());
    if (node == nullptr)
        node = tree.nodes().firstRoot();
    // A node that is selected already comes into view as well.
    tree.nodes().select(nullptr);
    tree.nodes().select(node);
    follow(tree, node);
    if (node != nullptr && levelOf(*node) == ModelLevel::Item)
        window_.showTRObjects(node->parent()->text());
}

void ModelTreeCommands::follow(Tree& tree, const Node* node) {
    window_.selectTreeNode(tree, node);
    if (&tree == &window_.tvwSndTRMsg)
        window_.showTRObjects(kSendRoot);
    else if (node != nullptr && levelOf(*node) != ModelLevel::Item)
        window_.showTRObjects(node->text());
    if (node != nullptr)
        followInDialogs(tree, *node);
}

void ModelTreeCommands::followInDialogs(const Tree& tree, const Node& node) {
    const ModelLevel level = levelOf(node);
    if ((level == ModelLevel::Message && window_.messageDialog().visible()) ||
        (level == ModelLevel::Item && window_.itemDialog().visible()))
        edit(tree, node);
}

void ModelTreeCommands::edit(const Tree& tree, const Node& node) {
    // Copies: a dialog that opens may refill the tree.
    const auto text = std::string(node.text());
    if (levelOf(node) == ModelLevel::Message) {
        window_.editMessage(tree, text);
    } else if (levelOf(node) == ModelLevel::Item) {
        const auto message = std::string(node.parent()->text());
        window_.itemDialog().updateTRItem(message, itemKey(message, text));
    }
}

void ModelTreeCommands::keyDown(Tree& tree, KeyEvent key) {
    Node* selected = tree.nodes().selected();
    if (selected == nullptr)
        return;
    if (key.code == kKeyDelete)
        deleteNode(tree, *selected);
    else if (key == KeyEvent{kKeyEnter, 0})
        edit(tree, *selected);
}

void ModelTreeCommands::deleteNode(Tree& tree, Node& node) {
    switch (levelOf(node)) {
    case ModelLevel::Root:
        return;
    case ModelLevel::Message:
        deleteTRMessageNode(tree, node);
        return;
    case ModelLevel::Item:
        deleteTRItemNode(tree, node);
        return;
    }
}

void ModelTreeCommands::deleteTRMessageNode(Tree& tree, Node& node) {
    const int position = node.next() == nullptr ? 1 : node.next()->index();
    const std::string name = node.text();
    window_.desktop().steps().name("Delete TR message " + name);
    removeChildNodes(tree, node);
    tree.nodes().remove(node);
    if (TRModelStore* model = window_.store(); model != nullptr)
        model->deleteTRMessage(name);
    if (const Node* next = tree.nodes().at(position); next != nullptr)
        selectPosition(tree, position, std::string(next->text()));
}

void ModelTreeCommands::deleteTRItemNode(Tree& tree, Node& node) {
    const std::string message = node.parent()->text();
    TRMessageRecord* record =
        window_.store() == nullptr ? nullptr : window_.store()->changeTRMessage(message);
    if (record == nullptr)
        return;
    window_.desktop().steps().name("Delete TR item " + node.text());
    const int position = node.next() != nullptr ? node.index() : node.parent()->index();
    record->deleteTRItem(std::string(node.text()));
    tree.nodes().remove(node);
    selectPosition(tree, position, message);
}

// Positions after a removed node move up, so a node other than the next sibling, or none, can be at that
// position.
void ModelTreeCommands::selectPosition(Tree& tree, int position, std::string_view shown) {
    Node* node = tree.nodes().at(position);
    if (node == nullptr)
        return;
    reveal(tree, *node);
    window_.showTRObjects(shown);
    window_.selectTreeNode(tree, node);
}

void ModelTreeCommands::removeErrorNodes(Tree& tree) {
    window_.desktop().steps().name("Remove errors of " + std::string(window_.rootOf(tree)));
    for (int position = static_cast<int>(tree.nodes().count()); position > 0; --position) {
        Node* node = tree.nodes().at(position);
        if (node == nullptr || levelOf(*node) != ModelLevel::Message || !isErrorMark(node->foreColor()) ||
            !window_.TRMessageExists(node->text()))
            continue;
        const std::string name = node->text();
        removeChildNodes(tree, *node);
        tree.nodes().remove(*node);
        window_.store()->deleteTRMessage(name);
    }
}

void ModelTreeCommands::clearTree(Tree& tree) {
    window_.desktop().steps().name("Clear " + std::string(window_.rootOf(tree)));
    const Node* root = tree.nodes().firstRoot();
    if (TRModelStore* model = window_.store(); model != nullptr && root != nullptr) {
        // From the last one: no other message moves up.
        for (const Node* node = root->lastChild(); node != nullptr; node = node->previous())
            model->deleteTRMessage(node->text());
    }
    window_.initializeTreeView(tree);
}

void ModelTreeCommands::openPopup(Tree& tree) {
    if (window_.isDialogVisible())
        return;
    if (&tree == &window_.tvwRcvTRMsg) {
        setRcvPopupState();
        window_.mnuRcvTRMsgPopup.open();
    } else {
        setSndPopupState();
        window_.mnuSndTRMsgPopup.open();
    }
}

void ModelTreeCommands::setRcvPopupState() {
    const Tree& tree = window_.tvwRcvTRMsg;
    setRootEntries(tree, window_.mnuAddRcvTRMsg, window_.mnuRemoveErrorsRcvTRMsg,
                   window_.mnuClearAllRcvTRMsg);
    const bool message = selectedOf(tree, ModelLevel::Message) != nullptr;
    for (MenuEntry* entry : {&window_.mnuUpdateRcvTRMsg, &window_.mnuDeleteRcvTRMsg, &window_.mnuAddTRItem})
        entry->setEnabled(message);
    const bool item = selectedOf(tree, ModelLevel::Item) != nullptr;
    for (MenuEntry* entry : {&window_.mnuUpdateTRItem, &window_.mnuDeleteTRItem})
        entry->setEnabled(item);
}

void ModelTreeCommands::setSndPopupState() {
    const Tree& tree = window_.tvwSndTRMsg;
    setRootEntries(tree, window_.mnuAddSndTRMsg, window_.mnuRemoveErrorsSndTRMsg,
                   window_.mnuClearAllSndTRMsg);
    const bool message = selectedOf(tree, ModelLevel::Message) != nullptr;
    for (MenuEntry* entry : {&window_.mnuUpdateSndTRMsg, &window_.mnuDeleteSndTRMsg})
        entry->setEnabled(message);
}

void ModelTreeCommands::setRootEntries(const Tree& tree, MenuEntry& add, MenuEntry& removeErrors,
                                       MenuEntry& clearAll) {
    const bool root = selectedOf(tree, ModelLevel::Root) != nullptr;
    add.setEnabled(root);
    removeErrors.setEnabled(root && hasMarkedMessage(tree));
    clearAll.setEnabled(root && tree.nodes().count() > 1);
}

} // namespace zb
