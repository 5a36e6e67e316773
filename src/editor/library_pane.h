#pragma once

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
class MenuEntry;
struct DragData;
struct DropStep;

/// The library at the left of the editor window: opens one library at a time, lists its messages, and puts
/// those that are dragged onto the tree into the project.
class LibraryPane {
public:
    /// Hangs the handlers on lvwSource, txtSourceFilter, the library menu and the drop onto tvwEdit, and
    /// opens the SEMI library.
    explicit LibraryPane(frmSECSEditor& window);

    /// Who shows the name of the open library; told at once, and at each change.
    void setPanel(std::function<void(std::string_view libraryName)> panel);
    /// Where file dialogs start while no project is open.
    void setApplicationFolder(std::string folder) { applicationFolder_ = std::move(folder); }

    const SECSLibraryStore& library() const { return *library_; }

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

    std::optional<DragData> startDrag();
    void dropRows();
    void addMessages(const DropStep& step);

    frmSECSEditor& window_;
    std::unique_ptr<SECSLibraryStore> library_;
    std::vector<std::string> rows_; ///< of the library, those that the filter hides included
    int formatCode_ = 0;
    std::function<void(std::string_view)> panel_;
    std::string panelText_;
    std::string applicationFolder_;
};

/// Adds the row of a message, given as `SECSLibraryStore::getRows` gives it. The rows of a built-in library
/// are named after stream and function, those of a file after the message.
void addLibraryRow(const std::string& row, int formatCode, List& list);

} // namespace zb
