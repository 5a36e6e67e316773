#include "editor/editor_controls.h"

#include "controls/key_commands.h"
#include "editor/editor_keys.h"

#include <array>

namespace zb {

EditorControls::EditorControls(Desktop& desktop, ProjectCommands& commands)
    : Window(desktop, "frmSECSEditor"), projectMenu(*this, commands), commandMenus(*this, commands) {
    runBusy(commandMenus.mnuModeler, commands, ProjectCommand::Modeler);
    setCaption("SECS Message Editor");
    lvwSource.addColumn("Name", 1200);
    lvwSource.addColumn(" Sx, Fx", 900);
    lvwSource.addColumn("Description", 3000);
    setFirstFocus(lvwSource);
    addTypeButtons();
    setToolTips();
    setShortcuts();
    mnuFind.withSeparatorAbove();
    mnuExpand.setChecked(true); // nodes are expanded when they are created
    editEntries.remove.setEnabled(false);
    tvwTemp.setVisible(false);
    List1.setVisible(false);
}

void EditorControls::addTypeButtons() {
    struct TypeButton {
        const char* key;
        const char* toolTip;
    };
    static constexpr std::array<TypeButton, 16> kButtons{{
        {"List", "List of items"},
        {"Ascii", "Text (A)"},
        {"Binary", "Binary bytes (B)"},
        {"Boolean", "True or False (BOOLEAN)"},
        {"I1", "1-byte signed integer"},
        {"I2", "2-byte signed integer"},
        {"I4", "4-byte signed integer"},
        {"I8", "8-byte signed integer"},
        {"U1", "1-byte unsigned integer"},
        {"U2", "2-byte unsigned integer"},
        {"U4", "4-byte unsigned integer"},
        {"U8", "8-byte unsigned integer"},
        {"F4", "4-byte floating point"},
        {"F8", "8-byte floating point"},
        {"JIS8", "JIS-8 text (J)"},
        {"Any", "Any text (X)"},
    }};
    int number = 0;
    for (const TypeButton& button : kButtons)
        tbritemType.addButton(button.key,
                              std::string(button.toolTip) + " (" + nameOfKey(keyOfType(++number)) + ")");
}

void EditorControls::setToolTips() {
    txtSourceFilter.setToolTip("Lists only the messages that hold this text");
    lvwSource.setToolTip("Drag messages from here onto the tree");
    cboSECSMessage.setToolTip("Selects a message of the tree by its name");
    txtStream.setToolTip("Stream, 0 to 128");
    txtFunction.setToolTip("Function, 0 to 255; odd for a primary message, even for its reply");
    txtMsgName.setToolTip("Name of the message; left empty, it is made from stream and function");
    txtDescription.setToolTip("One line that says what the message is for");
    chkWait.setToolTip("The sender waits for a reply");
    chkReply.setToolTip("The driver replies by itself");
    chkNoLogging.setToolTip("The message is kept out of the log");
    cmdMsgAdd.setToolTip("Adds the message, and its reply when the function is odd");
    cmdMsgChange.setToolTip("Writes these fields into the selected message");
    txtItemName.setToolTip("Name of the item; may be empty");
    txtItemCount.setToolTip("Number of sub items, characters or values");
    chkFix.setToolTip("Off: the count is the most that the item may hold");
    chkIsItemKey.setToolTip("The item is the key of its message");
    txtInit.setToolTip("Initial value; several values stand apart by blanks");
    txtTreeWidth.setToolTip("Width of the tree column, 500 at least");
}

void EditorControls::setShortcuts() {
    editEntries.cut.setShortcut("Ctrl+X");
    editEntries.copy.setShortcut("Ctrl+C");
    editEntries.pasteNext.setShortcut("Ctrl+V");
    editEntries.remove.setShortcut("Del");
    editEntries.duplicate.setShortcut("Ctrl+D");
    mnuFind.setShortcut("Ctrl+F");
}

} // namespace zb
