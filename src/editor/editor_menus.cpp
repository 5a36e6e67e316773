#include "editor/editor_menus.h"

#include "controls/window.h"

namespace zb {

StructureEntries::StructureEntries(Window& window, const std::string& prefix, Control& edit, Control& insert)
    : cut(window, prefix + "Cut", "Cut(&T)", &edit), copy(window, prefix + "Copy", "Copy(&C)", &edit),
      pastePrevious(window, prefix + "PastePrevious", "Paste Previous(&P)", &edit),
      pasteNext(window, prefix + "PasteNext", "Paste Next(&N)", &edit),
      pasteChild(window, prefix + "PasteChild", "Paste Child(&H)", &edit),
      remove(window, prefix + "Delete", "Delete(&D)", &edit),
      duplicate(window, prefix + "Duplicate", "Duplicate(&U)", &edit),
      item(window, prefix + "Item", "&Insert Item", &insert),
      child(window, prefix + "Child", "&Add Child Item", &insert) {
    pastePrevious.withSeparatorAbove();
    remove.withSeparatorAbove();
    if (&edit == &insert)
        item.withSeparatorAbove();
}

LibraryMenu::LibraryMenu(Window& window, Control& above)
    : mnuSECSMessageLibrary(window, "mnuSECSMessageLibrary", "SECS Message Library(&M)", &above),
      mnuLIBGEM(window, "mnuLIBGEM", "Halvern GEM Standard Library(&G)", &mnuSECSMessageLibrary),
      mnuLIBSEMI(window, "mnuLIBSEMI", "Halvern SEMI Standard Library(&S)", &mnuSECSMessageLibrary),
      mnuLIBSMD(window, "mnuLIBSMD", "Halvern SMD Message Definition File(&D)", &mnuSECSMessageLibrary),
      mnuLIBMDF(window, "mnuLIBMDF", "PRI SECS Message Definition File(&P)", &mnuSECSMessageLibrary),
      mnuLIBSML(window, "mnuLIBSML", "GWA SECS Message Definition File(&W)", &mnuSECSMessageLibrary) {
    mnuLIBSMD.withSeparatorAbove();
}

} // namespace zb
