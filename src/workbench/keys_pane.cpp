#include "workbench/keys_pane.h"

#include "controls/desktop.h"
#include "controls/menu.h"
#include "workbench/frm_workbench.h"

#include <utility>

namespace zb {

namespace {

struct FixedKey {
    const char* key;
    const char* where;
    const char* purpose;
};

/// Keys that work without a command of their own.
constexpr FixedKey kFixedKeys[] = {
    {"Ctrl+Z", "everywhere", "Undo"},
    {"Ctrl+Y", "everywhere", "Redo"},
    {"F3", "everywhere", "Finds the next one"},
    {"F6", "everywhere", "Goes to the strip, and back"},
    {"Alt+1 to Alt+9", "everywhere", "Opens and closes a pane"},
    {"Esc", "a pane of the strip", "Closes the pane"},
    {"Shift+F10", "a list or tree", "Opens its menu"},
    {"Ctrl+click", "the message tree", "Marks a message or item, or takes the mark away"},
    {"Shift+click", "the message tree", "Marks all from the selected one"},
    {"Shift+Up, Shift+Down", "the message tree", "Marks more, or fewer"},
};

std::string plain(const std::string& caption) {
    const std::size_t key = caption.find("(&");
    std::string text = key == std::string::npos ? caption : caption.substr(0, key);
    std::erase(text, '&');
    return text;
}

} // namespace

KeysPane::KeysPane(frmWorkbench& workbench) : WorkbenchPane(workbench, "Keys", "All keys of the program") {
    lvwKeys.addColumn("Key", 2400);
    lvwKeys.addColumn("Where", 2400);
    lvwKeys.addColumn("What it does", 7000);
    KeyCommand shows;
    shows.key = {kKeyF1, 0};
    shows.where = "everywhere";
    shows.purpose = "Shows these keys";
    shows.run = [this] {
        isOpen() ? close() : open();
        return true;
    };
    shows.forKeyboard = true;
    window().desktop().keys().add(std::move(shows));
}

void KeysPane::opened() {
    lvwKeys.clear();
    for (const KeyCommand& command : window().desktop().keys().all())
        add(nameOfKey(command.key), command.where, command.purpose);
    for (const FixedKey& key : kFixedKeys)
        add(key.key, key.where, key.purpose);
    for (const Window* document : window().desktop().windows()) {
        if (document->frame() != nullptr)
            addMenusOf(*document);
    }
}

void KeysPane::add(const std::string& key, const std::string& where, const std::string& purpose) {
    ListRow& row = lvwKeys.add(key);
    row.setCell(1, where);
    row.setCell(2, purpose);
}

void KeysPane::addMenusOf(const Window& document) {
    for (const Control* control : document.controls()) {
        if (control->kind() != Control::Kind::MenuEntry)
            continue;
        const auto& entry = static_cast<const MenuEntry&>(*control);
        if (!entry.shortcut().empty() && entry.popup() == nullptr)
            add(entry.shortcut(), document.caption(), plain(entry.caption()));
    }
}

} // namespace zb
