#pragma once

#include "editor/library_notice.h"
#include "editor/library_rows.h"
#include "messages/library_store.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class frmSECSEditor;
class List;
class ListRow;
class MenuEntry;
struct DragData;
struct DropStep;

/// The library on the left of the editor window: loads one library at a time, lists its messages, and adds
/// dragged messages to the project.
class LibraryPane {
public:
    /// Sets the handlers of lvwSource, txtSourceFilter, the library menu and drops onto tvwEdit, and loads
    /// the SEMI library.
    explicit LibraryPane(frmSECSEditor& window);

    /// Receives the name of the loaded library, at once and at each change.
    void setPanel(std::function<void(std::string_view libraryName)> panel);
    /// The start folder of file dialogs while no project is open.
    void setApplicationFolder(std::string folder) { applicationFolder_ = std::move(folder); }

    const SECSLibraryStore& library() const { return *library_; }
    /// The name of the loaded library.
    const std::string& name() const { return panelText_; }
    /// What is said of the file.
    LibraryNotice& notice() { return notice_; }

    /// Marks the rows whose messages the project has; call it when the project has changed. Does nothing as
    /// long as no message can have another name.
    void showInProject();
    /// The messages of the selected rows.
    SECSLibraryStore::Records selectedMessages() const;
    /// Those of them that the project has, too.
    SECSLibraryStore::Records selectedInProject() const;
    /// Adds the messages of the selected rows, as a drag onto the tree does.
    void addSelected();
    /// Puts the library's messages of the selected rows in the place of the project's, as one step.
    void replaceSelected();

private:
    struct FileLibrary;
    static const FileLibrary kSmd;
    static const FileLibrary kMdf;
    static const FileLibrary kSml;

    void wireMenu();
    void wireList();
    void openBuiltIn(MenuEntry& entry, int formatCode);
    void openFile(MenuEntry& entry, const FileLibrary& kind);
    void openSemi();
    void beginLibrary(MenuEntry& entry);
    void listLibrary(int formatCode);
    void fillList();
    void clearLibraryChecks();
    void showPanel(std::string_view libraryName);

    /// Null when the library has no such message any more.
    const SECSMessageRecord* recordOf(const ListRow& row) const;
    std::optional<DragData> startDrag();
    void dropRows();
    void addMessages(const DropStep& step);

    frmSECSEditor& window_;
    LibraryNotice notice_;
    std::unique_ptr<SECSLibraryStore> library_;
    std::vector<std::string> rows_; ///< of the library, including those hidden by the filter
    int formatCode_ = 0;
    MessageNamesWatch projectNames_;
    std::function<void(std::string_view)> panel_;
    std::string panelText_;
    std::string applicationFolder_;
};

/// Adds the row of a message in the form of `SECSLibraryStore::getRows`. The rows of a built-in library are
/// named after stream and function, those of a file after the message.
void addLibraryRow(const std::string& row, int formatCode, List& list);

} // namespace zb
