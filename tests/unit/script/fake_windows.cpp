#include "fake_windows.h"

#include <stdexcept>

namespace zb {

TestWindow::TestWindow(Desktop& desktop) : Window(desktop, "frmTest") {
    setCaption("Test window");
    for (const char* kind : {"Host", "Equipment", "Both sides"})
        cboKind.add(kind);
    stbMain.addPanel("Status");
    stbMain.setText("Status", "Ready");
    tbrMain.addButton("SMD").setImage(3);
    tbrMain.addButton("TMD").setEnabled(false);
    wireFields();
    wireButtons();
    wireMenus();
    wireList();
    wireTree();
    fillTree();
}

void TestWindow::wireFields() {
    txtName.onKeyDown = [this](KeyEvent key) {
        log("down" + std::to_string(key.code) + (key.shift == kShiftKey ? "s" : ""));
    };
    txtName.onChange = [this] { log("change"); };
    txtName.onKeyUp = [this](KeyEvent /*key*/) { log("up"); };
    txtName.onGotFocus = [this] { txtName.selectAll(); };
    txtDigits.onKeyDown = [this](KeyEvent key) {
        txtDigits.setLocked(!isDigitKey(key.code) && key.code != kKeyBackspace && key.code != kKeyDelete);
    };
    txtNotes.setReadOnly(false);
    wireFocus(chkWait);
    wireFocus(cboKind);
    chkWait.onChange = [this] { log(chkWait.checked() ? "on" : "off"); };
    chkWait.onRelease = [this] { log("release"); };
    optType1.onClick = [this] { log("host"); };
    optType2.onClick = [this] { log("equipment"); };
    cboKind.onChoose = [this] { log("chose"); };
    txtNotes.onDropData = [this](const DragData& data) { txtNotes.setText(data.text); };
    picPane.onPress = [this] { log("press"); };
    picPane.onDragData = [] { return DragData{"if", nullptr}; };
}

void TestWindow::wireFocus(Control& control) {
    control.onGotFocus = [this, &control] { log("+" + control.name()); };
    control.onLostFocus = [this, &control] { log("-" + control.name()); };
}

void TestWindow::wireButtons() {
    cmdAsk.onClick = [this] {
        const Answer answer = desktop().showBox(
            {"Save \"it\"?\r\nNow", "Question", BoxIcon::Question, BoxButtons::YesNoCancel});
        log(answer == Answer::Yes ? "yes" : (answer == Answer::No ? "no" : "cancel"));
    };
    cmdTell.onClick = [this] { desktop().showBox("Told you, twice", BoxIcon::Critical); };
    cmdPick.onClick = [this] {
        log(desktop().pickFile({"Open Project", "Project File(*.zbp)|*.zbp", "zbp", "somewhere"}));
    };
    cmdThrow.onClick = [] { throw std::runtime_error("out of paper"); };
    cmdHush.onClick = [this] {
        try {
            cmdAsk.onClick();
        } catch (const std::exception&) {
            log("hushed up");
        }
    };
    cmdLoop.onClick = [this] {
        for (;;)
            desktop().showBox("again");
    };
}

void TestWindow::wireMenus() {
    mnuEdit.onOpen = [this] { log("opened"); };
    mnuClear.onClick = [this] { lblLog.setText(""); };
    mnuMore.onOpen = [this] { log("more"); };
    mnuInMore.onClick = [this] { log("deep"); };
    mnuDelete.onClick = [this] { log(mnuPopup.isOpen() ? "deleted" : "deleted late"); };
    tbrMain.onButtonClick = [this](ToolbarButton& button) { log("tool" + button.key()); };
}

void TestWindow::wireList() {
    lvwRows.addColumn("Name", 1200, "name");
    lvwRows.addColumn("SF", 800);
    const auto add = [this](const char* name, const char* sf, const char* key) {
        lvwRows.add(name, key).setCell(1, sf);
    };
    add("Online", "S1,F1", "K1");
    add("Data", "S1,F2", "K2");
    add("Event", "S6,F11", "");
    lvwRows.rows()[1]->setBold(true);
    lvwRows.rows()[1]->setImage("msg");
    lvwRows.rows()[1]->setForeColor(kErrorForeColor);
    lvwRows.onColumnClick = [this](std::size_t column) { lvwRows.setSorted(true, static_cast<int>(column)); };
    lvwRows.onDragStart = [this]() -> std::optional<DragData> {
        std::string text;
        for (const ListRow* row : lvwRows.selectedRows())
            text += row->text() + ";";
        return DragData{text, &lvwRows};
    };
    lvwRows.onRowClick = [this](ListRow& row) { log("row:" + row.text()); };
    lvwRows.onDoubleClick = [this](ListRow& row) { log("double:" + row.text()); };
    lvwRows.onDrop = [this](const DragData& data, ListRow* row) {
        log("drop(" + data.text + (row == nullptr ? ")" : ")on:" + row->text()));
    };
}

void TestWindow::fillTree() {
    NodeTree& nodes = tvwTree.nodes();
    nodes.add(nullptr, Relation::Last, "");
    Node& first = nodes.add(nullptr, Relation::Last, "S1F3: S1 F3 H->E");
    nodes.setKey(first, "S1F3");
    Node& list = nodes.add(&first, Relation::Child, "L, 2");
    nodes.add(&list, Relation::Child, "A");
    nodes.add(&list, Relation::Child, "B");
    Node& last = nodes.add(nullptr, Relation::Last, "S1F4");
    nodes.setKey(last, "S1F4");
    list.setExpanded(true);
    list.setBackColor(kErrorBackColor);
}

void TestWindow::wireTree() {
    const auto textOf = [](const Node* node) { return node == nullptr ? std::string("none") : node->text(); };
    tvwTree.onMouseDown = [this](int button, Node* /*node*/) { log("mouse" + std::to_string(button)); };
    tvwTree.onMouseUp = [this](int button, Node* /*node*/) {
        log("up" + std::to_string(button));
        if (button == 2)
            mnuPopup.open();
    };
    tvwTree.onNodeClick = [this](Node& node) { log("node:" + node.text()); };
    tvwTree.onDoubleClick = [this](Node& node) { log("double:" + node.text()); };
    tvwTree.onDragStart = [this](Node& node) { return std::optional(DragData{node.text(), &tvwTree}); };
    tvwTree.onDragOver = [this, textOf](const DragData& /*data*/, Node* node) {
        log("over:" + textOf(node));
    };
    tvwTree.onDrop = [this, textOf](const DragData& data, Node* node) {
        log("drop(" + data.text + ")on:" + textOf(node));
    };
}

TestDialog::TestDialog(Desktop& desktop) : Window(desktop, "frmDialog") {
    setCaption("Value");
    cmdOK.onClick = [this] { hide(); };
    cmdCancel.onClick = [this] {
        txtValue.setText("");
        hide();
    };
    setCancelButton(cmdCancel);
}

} // namespace zb
