#include "editor/editor_keys.h"

#include "controls/desktop.h"
#include "controls/key_effects.h"
#include "editor/frm_sec_editor.h"

#include <array>
#include <utility>

namespace zb {

namespace {

constexpr const char* kTree = "the message tree";
constexpr const char* kMessagePane = "the message pane";
constexpr const char* kPane = "the item pane";

class Keys {
public:
    explicit Keys(frmSECSEditor& window) : window_(window) {}

    /// A command that always takes its key.
    void add(KeyEvent key, std::vector<const Control*> controls, const char* where, std::string purpose,
             std::function<void()> run, bool forKeyboard = false) {
        window_.desktop().keys().add({key,
                                      {&window_, std::move(controls)},
                                      where,
                                      std::move(purpose),
                                      [run = std::move(run)] {
                                          run();
                                          return true;
                                      },
                                      forKeyboard});
    }

    void addTreeKeys() {
        const std::vector<const Control*> tree{&window_.tvwEdit};
        ItemEntry& entry = window_.itemEntry;
        add({kKeyInsert, 0}, tree, kTree, "Inserts an item after the selected one, and goes to its name",
            [&entry] { entry.insertAfter(); });
        add({kKeyInsert, kShiftKey}, tree, kTree,
            "Adds an item to the selected list or message, and goes to its name",
            [&entry] { entry.addChild(); });
        add(
            {kKeyEnter, 0}, tree, kTree, "Goes to the name of the selected item or message",
            [&entry] { entry.edit(); }, true);
        add({'C', kControlKey | kShiftKey}, tree, kTree, "Copies as SML without names, counts and comments",
            [&shared = window_.sharedNodes] { shared.copyBare(); });
        add({'V', kControlKey | kShiftKey}, tree, kTree,
            "Pastes messages from the clipboard: SML, or a list such as S1F1, S1F2",
            [&shared = window_.sharedNodes] { shared.paste(); });
        addPaste(window_.tvwEdit, kTree, "Pastes what was copied last, here or in another program", false);
        add({kKeySpace, kControlKey}, tree, kTree,
            "Marks the selected message or item, or takes its mark away",
            [&marks = window_.markedNodes] { marks.toggleSelected(); });
        MessageEntry& messages = window_.messageEntry;
        add({kKeyUp, kControlKey}, tree, kTree, "Goes to the message before",
            [&messages] { messages.goToPrevious(); });
        add({kKeyDown, kControlKey}, tree, kTree, "Goes to the next message",
            [&messages] { messages.goToNext(); });
        addExtend(kKeyUp, MarkedNodes::Way::Up, "Marks up to the message or item before");
        addExtend(kKeyDown, MarkedNodes::Way::Down, "Marks up to the next message or item");
        addMove(kKeyUp, NodeMove::Up, "Moves the message or item up");
        addMove(kKeyDown, NodeMove::Down, "Moves the message or item down");
        addMove(kKeyLeft, NodeMove::Out, "Moves the item out of its list");
        addMove(kKeyRight, NodeMove::In, "Moves the item into the list above it");
    }

    void addLibraryKeys() {
        constexpr const char* kFilter = "the filter of the library";
        const auto leave = [&list = window_.lvwSource] {
            if (list.selected() == nullptr && !list.shown().empty())
                reachRow(list, *list.shown().front());
            list.setFocus();
        };
        add({kKeyEnter, 0}, {&window_.txtSourceFilter}, kFilter, "Goes to the list", leave, true);
        add({kKeyDown, 0}, {&window_.txtSourceFilter}, kFilter, "Goes to the list", leave, true);
        add(
            {kKeyEnter, 0}, {&window_.lvwSource}, "the library", "Adds the selected messages to the project",
            [&library = window_.libraryPane] { library.addSelected(); }, true);
        // In a new project the keyboard is here.
        addPaste(window_.lvwSource, "the library", "Pastes messages from the clipboard into the project",
                 true);
    }

    void addMessageKeys() {
        MessageEntry& entry = window_.messageEntry;
        const std::vector<const Control*> fields{
            &window_.txtStream, &window_.txtFunction, &window_.txtMsgName,   &window_.txtDescription,
            &window_.chkWait,   &window_.chkReply,    &window_.chkNoLogging, &window_.optHost,
            &window_.optEqp,    &window_.optBoth};
        add({'M', kControlKey}, {}, "the editor", "Begins a new message, and goes to its stream",
            [&entry] { entry.begin(); });
        add(
            {kKeyEnter, 0}, fields, kMessagePane,
            "Changes the selected message, or adds the one that was begun, and goes to the tree",
            [&entry] { entry.finish(); }, true);
        add({kKeyEnter, kControlKey}, fields, kMessagePane, "Adds the message, and goes to it in the tree",
            [&entry] { entry.add(); });
    }

    void addPaneKeys() {
        ItemEntry& entry = window_.itemEntry;
        const std::vector<const Control*> before{&window_.txtItemName, &window_.txtItemCount, &window_.chkFix,
                                                 &window_.chkIsItemKey};
        std::vector<const Control*> all = before;
        all.push_back(&window_.txtInit);
        add(
            {kKeyEnter, 0}, before, kPane, "Goes to the initial value; of a list to its first item",
            [&entry] { entry.goOn(); }, true);
        add(
            {kKeyEnter, 0}, {&window_.txtInit}, kPane, "Goes to the next item of the list",
            [&entry] { entry.editNext(); }, true);
        add({kKeyEnter, kControlKey}, all, kPane, "Inserts an item after this one, and goes to its name",
            [&entry] { entry.insertAfter(); });
        add({kKeyEnter, kControlKey | kShiftKey}, all, kPane,
            "Adds an item to this list, and goes to its name", [&entry] { entry.addChild(); });
        addTypes(all);
        addEscape();
    }

private:
    // The entry of the menu pastes what was copied in the tree, and may be enabled with nothing to do.
    void addPaste(const Control& control, const char* where, const char* purpose, bool forKeyboard) {
        window_.desktop().keys().add({{'V', kControlKey},
                                      {&window_, {&control}},
                                      where,
                                      purpose,
                                      [&shared = window_.sharedNodes] {
                                          shared.paste();
                                          return true;
                                      },
                                      forKeyboard,
                                      [&window = window_] {
                                          return window.clipboard().empty() ||
                                                 window.liveTree().selected() == nullptr ||
                                                 window.sharedNodes.isCopyOutdated();
                                      }});
    }

    void addMove(int code, NodeMove way, const char* purpose) {
        add({code, kAltKey}, {&window_.tvwEdit}, kTree, purpose,
            [&moves = window_.nodeMoves, way] { moves.move(way); });
    }

    // From an item the key goes on from row to row.
    void addExtend(int code, MarkedNodes::Way way, const char* purpose) {
        window_.desktop().keys().add({{code, kShiftKey},
                                      {&window_, {&window_.tvwEdit}},
                                      kTree,
                                      purpose,
                                      [&marks = window_.markedNodes, way] { return marks.extend(way); }});
    }

    void addTypes(std::vector<const Control*> places) {
        places.push_back(&window_.tvwEdit);
        for (const ToolbarButton& button : window_.tbritemType.buttons()) {
            const KeyEvent key = keyOfType(button.index());
            window_.desktop().keys().add(
                {key,
                 {&window_, places},
                 kPane,
                 "Type: " + button.toolTip().substr(0, button.toolTip().rfind(" (Ctrl")),
                 [&entry = window_.itemEntry, number = button.index()] { return entry.chooseType(number); }});
        }
    }

    // A field that a script types into may hear of the key as of any other.
    void addEscape() {
        window_.desktop().keys().add({{kKeyEscape, 0},
                                      {&window_},
                                      "the editor",
                                      "Returns to the message tree",
                                      [&window = window_] {
                                          if (window.tvwEdit.focused())
                                              return false;
                                          window.itemEntry.backToTree();
                                          return true;
                                      },
                                      true});
    }

    frmSECSEditor& window_;
};

} // namespace

KeyEvent keyOfType(int button) {
    constexpr int kDigits = 10;
    return {'0' + button % kDigits, button > kDigits ? kControlKey | kShiftKey : kControlKey};
}

void addEditorKeys(frmSECSEditor& window) {
    Keys keys(window);
    keys.addTreeKeys();
    keys.addLibraryKeys();
    keys.addMessageKeys();
    keys.addPaneKeys();
}

} // namespace zb
