#include "editor/library_pane.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/library_rows.h"
#include "messages/libraries/built_in.h"
#include "messages/library_drop.h"
#include "messages/message_nodes.h"
#include "messages/smd/smd_reader.h"
#include "platform/text.h"
#include "project/module_state.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <unordered_set>

namespace zb {

namespace {

/// The column whose text is padded so that its order is numeric.
constexpr int kStreamFunctionColumn = 1;

std::string rightAligned(const std::string& number) {
    constexpr std::size_t kWidth = 4;
    return std::string(number.size() < kWidth ? kWidth - number.size() : 0, ' ') + number;
}

bool isNumber(std::string_view field) {
    return !field.empty() && field.find_first_not_of("0123456789") == std::string_view::npos;
}

/// The end of the name: before the first two consecutive numbers, since a name may contain the separator.
std::size_t nameLength(std::string_view row) {
    for (std::size_t end = row.find('\\'); end != std::string_view::npos; end = row.find('\\', end + 1)) {
        std::string_view rest = row.substr(end + 1);
        const std::string_view stream = before(rest, "\\");
        rest.remove_prefix(std::min(stream.size() + 1, rest.size()));
        if (isNumber(stream) && isNumber(before(rest, "\\")))
            return end;
    }
    return before(row, "\\").size();
}

/// Name, stream, function, and the rest, which may also contain the separator.
std::array<std::string, 4> fieldsOf(const std::string& row) {
    std::array<std::string, 4> fields;
    std::string_view rest = row;
    std::size_t length = nameLength(rest);
    for (std::size_t i = 0; i + 1 < fields.size(); ++i) {
        fields[i] = rest.substr(0, length);
        rest.remove_prefix(std::min(length + 1, rest.size()));
        length = before(rest, "\\").size();
    }
    fields.back() = rest;
    return fields;
}

/// The entry of a drag from the second column of a row: "   1,  13" is "S1 F13".
std::string entryOf(const std::string& streamFunction) {
    const std::string_view stream = before(streamFunction, ",");
    const std::size_t functionStart = std::min(stream.size() + 1, streamFunction.size());
    return "S" + trim(stream) + " F" + trim(std::string_view(streamFunction).substr(functionStart));
}

/// The cells of a row, and its Key.
struct RowTexts {
    std::array<std::string, 3> cells;
    std::string key;
};

RowTexts textsOf(const std::string& row, int formatCode) {
    auto [name, stream, function, description] = fieldsOf(row);
    const bool builtIn = formatCode == kFormatGem || formatCode == kFormatSemi;
    return {{builtIn ? "S" + stream + "F" + function : name,
             rightAligned(stream) + "," + rightAligned(function), std::move(description)},
            name};
}

bool holdsText(const RowTexts& texts, std::string_view loweredFilter) {
    return std::any_of(texts.cells.begin(), texts.cells.end(), [loweredFilter](const std::string& cell) {
        return contains(lower(cell), loweredFilter);
    });
}

std::string messagesText(std::size_t count) {
    return count == 1 ? "a message" : std::to_string(count) + " messages";
}

ListRow& addRow(const RowTexts& texts, List& list) {
    ListRow& row = list.add(texts.cells[0], texts.key);
    row.setCell(1, texts.cells[1]);
    row.setCell(2, texts.cells[2]);
    return row;
}

} // namespace

struct LibraryPane::FileLibrary {
    int formatCode;
    std::string_view panel;
    std::string_view filter;
    std::string_view extension;
    std::string_view notInFormat;
};

const LibraryPane::FileLibrary LibraryPane::kSmd{
    kFormatSmd, "Halvern SMD Message Definition File", "SMD Files (*.smd)|*.smd", "smd",
    "The file is not a SMD format.\r\nIt will be opened Halvern SEMI Standard Library"};
const LibraryPane::FileLibrary LibraryPane::kMdf{kFormatMdf, "PRI SECS Message Definition File",
                                                 "MDF Files (*.mdf)|*.mdf", "mdf",
                                                 "The file is not a MDF format."};
const LibraryPane::FileLibrary LibraryPane::kSml{kFormatSml, "GWA SECS Message Definition File",
                                                 "SML Files (*.sml)|*.sml", "sml",
                                                 "The file is not a SML format"};

void addLibraryRow(const std::string& row, int formatCode, List& list) {
    addRow(textsOf(row, formatCode), list);
}

LibraryPane::LibraryPane(frmSECSEditor& window)
    : window_(window), notice_(window), projectNames_(window.tvwEdit) {
    wireMenu();
    wireList();
    openSemi();
}

void LibraryPane::setPanel(std::function<void(std::string_view)> panel) {
    panel_ = std::move(panel);
    showPanel(panelText_);
}

void LibraryPane::wireMenu() {
    LibraryMenu& menu = window_.libraryMenu;
    menu.mnuLIBGEM.onClick = [this, &menu] { openBuiltIn(menu.mnuLIBGEM, kFormatGem); };
    menu.mnuLIBSEMI.onClick = [this] { openSemi(); };
    menu.mnuLIBSMD.onClick = [this, &menu] { openFile(menu.mnuLIBSMD, kSmd); };
    menu.mnuLIBMDF.onClick = [this, &menu] { openFile(menu.mnuLIBMDF, kMdf); };
    menu.mnuLIBSML.onClick = [this, &menu] { openFile(menu.mnuLIBSML, kSml); };
}

void LibraryPane::wireList() {
    List& list = window_.lvwSource;
    list.onColumnClick = [&list](std::size_t column) {
        list.setSorted(list.sorted(), static_cast<int>(column));
    };
    list.onMouseUp = [this](int, ListRow*) { window_.setPointer(Pointer::Default); };
    list.onDragStart = [this] { return startDrag(); };
    list.toolTipOf = [this](const ListRow& row) {
        const SECSMessageRecord* record = recordOf(row);
        return record == nullptr ? std::string() : describeStructure(*record);
    };
    window_.tvwEdit.onDrop = [this](const DragData&, Node*) { dropRows(); };
    window_.txtSourceFilter.onChange = [this] { fillList(); };
}

void LibraryPane::clearLibraryChecks() {
    LibraryMenu& menu = window_.libraryMenu;
    for (MenuEntry* entry :
         {&menu.mnuLIBGEM, &menu.mnuLIBSEMI, &menu.mnuLIBSMD, &menu.mnuLIBMDF, &menu.mnuLIBSML})
        entry->setChecked(false);
}

void LibraryPane::showPanel(std::string_view libraryName) {
    panelText_ = libraryName;
    if (panel_)
        panel_(panelText_);
}

void LibraryPane::openSemi() {
    openBuiltIn(window_.libraryMenu.mnuLIBSEMI, kFormatSemi);
}

void LibraryPane::openBuiltIn(MenuEntry& entry, int formatCode) {
    const BusyPointer busy(window_);
    const bool gem = formatCode == kFormatGem;
    beginLibrary(entry);
    showPanel(gem ? "Halvern GEM Standard Library" : "Halvern SEMI Standard Library");
    for (const std::string& text : gem ? std::vector<std::string>{gemLibraryText()} : semiLibraryBlocks())
        library_->load(text, formatCode);
    listLibrary(formatCode);
}

void LibraryPane::openFile(MenuEntry& entry, const FileLibrary& kind) {
    const std::string before = panelText_;
    showPanel(kind.panel);
    const ModuleState& state = window_.state();
    const std::string path = window_.desktop().pickFile(
        {"Open " + std::string(kind.panel), std::string(kind.filter), std::string(kind.extension),
         state.ProjectPath.empty() ? applicationFolder_ : state.ProjectPath});
    if (isBlank(path))
        return;
    const BusyPointer busy(window_);
    auto loaded = std::make_unique<SECSLibraryStore>(state.codePage);
    std::string status;
    const auto load = [&](const Progress& progress) {
        status = loaded->load(path, kind.formatCode, progress);
    };
    const std::string file = std::filesystem::path(path).filename().string();
    if (!window_.desktop().screen().doLongWork("Reading " + file, load)) {
        showPanel(before);
        return;
    }
    beginLibrary(entry);
    library_ = std::move(loaded);
    if (isBlank(status)) {
        listLibrary(kind.formatCode);
        notice_.showFile(path);
        notice_.showFindings(path, *library_);
        return;
    }
    window_.desktop().showBox(std::string(kind.notInFormat));
    // The faults of the file are worth a look even though the standard library is shown in its place.
    const auto refused = std::move(library_);
    openSemi();
    notice_.showFindings(path, *refused);
}

void LibraryPane::beginLibrary(MenuEntry& entry) {
    clearLibraryChecks();
    entry.setChecked(true);
    rows_.clear();
    notice_.clear();
    fillList();
    window_.lvwSource.setSorted(true, kStreamFunctionColumn);
    library_ = std::make_unique<SECSLibraryStore>(window_.state().codePage);
}

void LibraryPane::listLibrary(int formatCode) {
    formatCode_ = formatCode;
    rows_ = library_->getRows();
    fillList();
}

/// Lists the rows that contain the filter's text in any column. Selected rows stay selected while they are
/// shown.
void LibraryPane::fillList() {
    List& list = window_.lvwSource;
    const std::string filter = lower(window_.txtSourceFilter.text());
    std::unordered_set<std::string> selected;
    for (const ListRow* row : list.selectedRows())
        selected.insert(row->key());
    selected.erase("");
    list.clear();
    std::vector<ListRow*> again;
    for (const std::string& row : rows_) {
        const RowTexts texts = textsOf(row, formatCode_);
        if (!filter.empty() && !holdsText(texts, filter))
            continue;
        ListRow& added = addRow(texts, list);
        if (selected.contains(added.key()))
            again.push_back(&added);
    }
    if (!again.empty())
        list.selectAll(again);
    markRowsInProject(list, window_.liveTree());
}

void LibraryPane::showInProject() {
    if (projectNames_.takeChanged())
        markRowsInProject(window_.lvwSource, window_.liveTree());
}

const SECSMessageRecord* LibraryPane::recordOf(const ListRow& row) const {
    for (const SECSMessageRecord* record :
         library_->getByStreamFunction(entryOf(row.cell(kStreamFunctionColumn)))) {
        if (record->getName() == row.key())
            return record;
    }
    return nullptr;
}

SECSLibraryStore::Records LibraryPane::selectedMessages() const {
    SECSLibraryStore::Records records;
    for (const ListRow* row : window_.lvwSource.selectedRows()) {
        if (const SECSMessageRecord* record = recordOf(*row); record != nullptr)
            records.push_back(record);
    }
    return records;
}

SECSLibraryStore::Records LibraryPane::selectedInProject() const {
    SECSLibraryStore::Records records = selectedMessages();
    std::erase_if(records, [this](const SECSMessageRecord* record) {
        return window_.liveTree().find(record->getName()) == nullptr;
    });
    return records;
}

void LibraryPane::addSelected() {
    startDrag();
    dropRows();
}

void LibraryPane::replaceSelected() {
    const SECSLibraryStore::Records records = selectedInProject();
    if (records.empty())
        return;
    const std::string what = records.size() == 1 ? std::string(records.front()->getName())
                                                 : std::to_string(records.size()) + " messages";
    window_.desktop().steps().name("Replace " + what + " from the library");
    NodeTree& tree = window_.liveTree();
    const Node* shown = tree.selected() == nullptr ? nullptr : messageOf(rootOf(*tree.selected())).message;
    Node* replaced = nullptr;
    {
        const NodeTree::ManyChanges many(tree, records.size());
        for (const SECSMessageRecord* record : records) {
            replaceMessageInTree(tree, *record);
            if (Node* message = tree.find(record->getName()); message == shown)
                replaced = message;
        }
    }
    // The panes would still show what has been replaced.
    if (replaced != nullptr)
        window_.treeInteraction.showAgain(replaced);
    window_.TreeView_ForeColor();
    window_.desktop().post({"Replaced " + what + " from the library"});
}

std::optional<DragData> LibraryPane::startDrag() {
    List& scratch = window_.List1;
    scratch.clear();
    std::string text;
    for (const ListRow* row : window_.lvwSource.selectedRows()) {
        const std::string entry = entryOf(row->cell(kStreamFunctionColumn));
        scratch.add(entry);
        text.append(text.empty() ? "" : "\r\n").append(entry);
    }
    return DragData{std::move(text), &window_.lvwSource};
}

/// A drop from elsewhere also takes what the last drag carried: only List1 counts.
void LibraryPane::dropRows() {
    const BusyPointer busy(window_);
    window_.InitMsg();
    window_.shownMessage.isEmptied();
    std::vector<std::string> entries;
    for (const auto& row : window_.List1.rows())
        entries.push_back(row->text());
    window_.desktop().steps().name("Drag " + messagesText(entries.size()) + " from the library");
    for (const DropStep& step : planDrop(entries)) {
        addMessages(step);
        window_.TreeView_ForeColor();
    }
}

void LibraryPane::addMessages(const DropStep& step) {
    for (const SECSMessageRecord* record : library_->getByStreamFunction(step.streamFunction)) {
        window_.display_DefSECSMsg(*record);
        if (!addMessageToTree(window_.liveTree(), *record).empty()) {
            if (step.reportsDuplicates)
                window_.desktop().showBox(std::string(record->getName()) + " already exists.");
            continue;
        }
        window_.InsertCbo(record->getName());
        if (window_.cboSECSMessage.text().empty())
            window_.cboFirstSelect();
    }
}

} // namespace zb
