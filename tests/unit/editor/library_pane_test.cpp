#include "editor/library_pane.h"

#include "messages/mdf_text.h"
#include "messages/message_store.h"
#include "support/temporary_folder.h"
#include "unit/editor/editor_desk.h"

namespace zb {
namespace {

constexpr const char* kSmdText =
    "* Ask\r\nAsk: S1 F1 W H->E.\r\n* Tell\r\nTell: S1 F2 H<-E\r\n    <A 3 NAME 'abc'>.\r\n";

/// A screen whose file dialogs return prepared paths.
class PickingScreen final : public BoxScreen {
public:
    std::string pickFile(const FileDialog& dialog) override {
        dialogs.push_back(dialog);
        return path;
    }
    bool doLongWork(const std::string& what, const std::function<void(const Progress&)>& work) override {
        works.push_back(what);
        return !cancels && Screen::doLongWork(what, work);
    }
    std::string path;
    std::vector<FileDialog> dialogs;
    std::vector<std::string> works;
    bool cancels = false;
};

class LibraryList : public testing::Test {
protected:
    LibraryList() {
        window.libraryPane.setPanel([this](std::string_view text) { panels.emplace_back(text); });
        window.libraryPane.setApplicationFolder("/program");
        window.show();
        panels.clear();
    }

    void choose(MenuEntry& entry) { EXPECT_EQ(hands.click(Target::whole(entry)), ""); }
    std::string write(const std::string& name, const std::string& bytes) {
        test::writeFile(folder / name, bytes);
        return (folder / name).string();
    }
    static std::string textOf(const ListRow& row) {
        std::string text = row.key();
        for (const std::string& cell : row.cells())
            text += " | " + cell;
        return text;
    }
    Lines shownRows() const {
        Lines lines;
        for (const ListRow* row : window.lvwSource.shown())
            lines.push_back(textOf(*row));
        return lines;
    }
    Lines checks() const {
        Lines lines;
        for (const MenuEntry* entry :
             {&window.libraryMenu.mnuLIBGEM, &window.libraryMenu.mnuLIBSEMI, &window.libraryMenu.mnuLIBSMD,
              &window.libraryMenu.mnuLIBMDF, &window.libraryMenu.mnuLIBSML})
            if (entry->checked())
                lines.push_back(entry->name());
        return lines;
    }
    void select(const Lines& keys) {
        window.lvwSource.select(nullptr);
        for (const std::string& key : keys)
            window.lvwSource.toggle(*window.lvwSource.find(key));
    }
    Lines carried() const {
        Lines lines;
        for (const auto& row : window.List1.rows())
            lines.push_back(row->text());
        return lines;
    }
    /// Drags the rows with these Keys onto the tree, and returns the names of its messages.
    Lines drag(const Lines& keys) {
        select(keys);
        Target from = Target::whole(window.lvwSource);
        from.row = window.lvwSource.find(keys.front());
        EXPECT_EQ(hands.drag(from, Target::whole(window.tvwEdit)), "");
        return messages();
    }
    Lines messages() {
        Lines names;
        for (const Node* node = window.liveTree().firstRoot(); node != nullptr; node = node->next())
            if (!node->key().empty())
                names.emplace_back(node->key());
        return names;
    }
    Lines boxes() {
        Lines texts;
        for (const Box& box : screen.boxes) {
            texts.push_back(box.text);
            EXPECT_EQ(box.icon, BoxIcon::None);
            EXPECT_EQ(box.buttons, BoxButtons::OK);
        }
        screen.boxes.clear();
        return texts;
    }

    test::TemporaryFolder folder;
    PickingScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{settings, files};
    RecordingCommands commands;
    frmSECSEditor window{desktop, state, commands};
    UserHands hands{desktop};
    Lines panels;
};

TEST_F(LibraryList, SemiIsOpenFromTheStart) {
    EXPECT_EQ(checks(), Lines{"mnuLIBSEMI"});
    EXPECT_EQ(window.lvwSource.count(), 357u);
    EXPECT_EQ(shownRows().front(), "AreYouThere | S1F1 |    1,   1 | Are You There Request");
    EXPECT_EQ(shownRows().back().substr(0, 25), "S17F14 | S17F14 |   17,  ");
    EXPECT_TRUE(window.lvwSource.sorted());
    EXPECT_EQ(window.lvwSource.sortKey(), 1);
    window.libraryPane.setPanel([this](std::string_view text) { panels.emplace_back(text); });
    EXPECT_EQ(panels, Lines{"Halvern SEMI Standard Library"});
}

TEST_F(LibraryList, GemTakesThePlaceOfSemiAndBack) {
    choose(window.libraryMenu.mnuLIBGEM);
    EXPECT_EQ(checks(), Lines{"mnuLIBGEM"});
    EXPECT_EQ(window.lvwSource.count(), 93u);
    choose(window.libraryMenu.mnuLIBSEMI);
    EXPECT_EQ(checks(), Lines{"mnuLIBSEMI"});
    EXPECT_EQ(window.lvwSource.count(), 357u);
    EXPECT_EQ(panels, (Lines{"Halvern GEM Standard Library", "Halvern SEMI Standard Library"}));
    EXPECT_EQ(window.pointer(), Pointer::Default);
}

struct FileCommand {
    MenuEntry LibraryMenu::*entry;
    const char* name;
    const char* panel;
    const char* filter;
    const char* extension;
    const char* box;
    const char* goodText;
};
void PrintTo(const FileCommand& command, std::ostream* out) {
    *out << command.name;
}

class LibraryFiles : public LibraryList, public testing::WithParamInterface<FileCommand> {
protected:
    void choose() { LibraryList::choose(window.libraryMenu.*GetParam().entry); }
};

INSTANTIATE_TEST_SUITE_P(
    Formats, LibraryFiles,
    testing::Values(
        FileCommand{&LibraryMenu::mnuLIBSMD, "mnuLIBSMD", "Halvern SMD Message Definition File",
                    "SMD Files (*.smd)|*.smd", "smd",
                    "The file is not a SMD format.\r\nIt will be opened Halvern SEMI Standard Library",
                    kSmdText},
        FileCommand{&LibraryMenu::mnuLIBMDF, "mnuLIBMDF", "PRI SECS Message Definition File",
                    "MDF Files (*.mdf)|*.mdf", "mdf", "The file is not a MDF format.", nullptr},
        FileCommand{&LibraryMenu::mnuLIBSML, "mnuLIBSML", "GWA SECS Message Definition File",
                    "SML Files (*.sml)|*.sml", "sml", "The file is not a SML format",
                    "* Ask\nAsk: S1F1 W.\n* Tell\nTell: S1F2 <A 'abc'>."}));

TEST_P(LibraryFiles, TheDialogStartsInTheProjectsFolderElseInTheProgramsOwn) {
    choose();
    state.ProjectName = "P";
    state.ProjectPath = "/projects/P";
    choose();
    ASSERT_EQ(screen.dialogs.size(), 2u);
    EXPECT_EQ(screen.dialogs[0].title, std::string("Open ") + GetParam().panel);
    EXPECT_EQ(screen.dialogs[0].filter, GetParam().filter);
    EXPECT_EQ(screen.dialogs[0].extension, GetParam().extension);
    EXPECT_EQ(screen.dialogs[0].folder, "/program");
    EXPECT_EQ(screen.dialogs[1].folder, "/projects/P");
}

TEST_P(LibraryFiles, CancelChangesThePanelAlone) {
    window.lvwSource.setSorted(true, 2);
    choose();
    EXPECT_EQ(panels, Lines{GetParam().panel});
    EXPECT_EQ(checks(), Lines{"mnuLIBSEMI"});
    EXPECT_EQ(window.lvwSource.count(), 357u);
    EXPECT_EQ(window.lvwSource.sortKey(), 2);
    EXPECT_EQ(boxes(), Lines{});
}

TEST_P(LibraryFiles, ALoadThatIsCancelledLeavesTheLibrary) {
    screen.path = write("large", "Dear reader");
    screen.cancels = true;
    window.lvwSource.setSorted(true, 2);
    choose();
    EXPECT_EQ(screen.works, Lines{"Reading large"});
    EXPECT_EQ(panels, (Lines{GetParam().panel, "Halvern SEMI Standard Library"}));
    EXPECT_EQ(checks(), Lines{"mnuLIBSEMI"});
    EXPECT_EQ(window.lvwSource.count(), 357u);
    EXPECT_EQ(window.lvwSource.sortKey(), 2);
    EXPECT_EQ(boxes(), Lines{});
    EXPECT_EQ(drag({"S1F4"}), (Lines{"S1F4"}));
}

TEST_P(LibraryFiles, ABadFileOpensSemi) {
    for (const std::string& path :
         {(folder / "none").string(), write("empty", ""), write("foreign", "Dear reader")}) {
        screen.path = path;
        choose();
        EXPECT_EQ(boxes(), Lines{GetParam().box});
        EXPECT_EQ(checks(), Lines{"mnuLIBSEMI"});
        EXPECT_EQ(panels, (Lines{GetParam().panel, "Halvern SEMI Standard Library"}));
        EXPECT_EQ(window.lvwSource.count(), 357u);
        panels.clear();
    }
}

TEST_P(LibraryFiles, AGoodFileIsListedByItsNames) {
    if (GetParam().goodText == nullptr) {
        SECSMessageStore store;
        store.addMessageText("* Ask\r\nAsk: S1 F1 W H->E.\r\n");
        store.addMessageText("* Tell\r\nTell: S1 F2 H<-E\r\n    <A 3 NAME 'abc'>.\r\n");
        screen.path = write("good", composeMdf(store.getMessages()));
    } else {
        screen.path = write("good", GetParam().goodText);
    }
    window.lvwSource.setSorted(false, 0);
    choose();
    EXPECT_EQ(boxes(), Lines{});
    EXPECT_EQ(checks(), Lines{GetParam().name});
    EXPECT_EQ(shownRows(), (Lines{"Ask | Ask |    1,   1 | Ask", "Tell | Tell |    1,   2 | Tell"}));
    EXPECT_TRUE(window.lvwSource.sorted());
    EXPECT_EQ(window.lvwSource.sortKey(), 1);
}

TEST_F(LibraryList, AClickOnAHeaderSortsByItsColumn) {
    for (const std::size_t column : {2u, 0u, 1u}) {
        window.lvwSource.onColumnClick(column);
        EXPECT_EQ(window.lvwSource.sortKey(), static_cast<int>(column));
        EXPECT_TRUE(window.lvwSource.sorted());
    }
}

TEST_F(LibraryList, ADragCarriesTheSelectedRows) {
    window.List1.add("old");
    select({"S6F11", "AreYouThere", "S17F14"});
    const auto data = window.lvwSource.onDragStart();
    ASSERT_TRUE(data.has_value());
    EXPECT_EQ(data->source, &window.lvwSource);
    EXPECT_EQ(carried(), (Lines{"S1 F1", "S6 F11", "S17 F14"}));
}

TEST_F(LibraryList, APrimaryMessageBringsItsReplies) {
    EXPECT_EQ(drag({"AreYouThere"}), (Lines{"AreYouThere", "OnLineData", "IAmHere"}));
    EXPECT_EQ(boxes(), Lines{});
    EXPECT_EQ(window.cboSECSMessage.entries().size(), 3u);
    EXPECT_EQ(window.cboSECSMessage.text(), "AreYouThere");
    EXPECT_EQ(window.pointer(), Pointer::Default);
}

TEST_F(LibraryList, MessagesOfTheSameNumbersComeTogether) {
    EXPECT_EQ(drag({"ConnectEquip"}),
              (Lines{"ConnectHost", "ConnectEquip", "HostConnected", "EquipConnected"}));
    EXPECT_EQ(boxes(), Lines{});
}

TEST_F(LibraryList, AReplyComesAlone) {
    EXPECT_EQ(drag({"S1F4"}), (Lines{"S1F4"}));
}

TEST_F(LibraryList, ASelectedPairComesOnce) {
    EXPECT_EQ(drag({"AreYouThere", "OnLineData", "IAmHere"}),
              (Lines{"AreYouThere", "OnLineData", "IAmHere"}));
    EXPECT_EQ(boxes(), Lines{});
}

TEST_F(LibraryList, ADuplicateIsReportedForWhatWasDraggedOnly) {
    drag({"S1F3"});
    EXPECT_EQ(drag({"S1F3"}), (Lines{"S1F3", "S1F4"}));
    EXPECT_EQ(boxes(), Lines{"S1F3 already exists."});
    drag({"S1F4"});
    EXPECT_EQ(boxes(), Lines{"S1F4 already exists."});
}

TEST_F(LibraryList, TwinsThatExistArePassedOver) {
    drag({"ConnectHost"});
    drag({"ConnectHost", "ConnectEquip"});
    EXPECT_EQ(boxes(), Lines{});
    drag({"ConnectHost"});
    EXPECT_EQ(boxes(), (Lines{"ConnectHost already exists.", "ConnectEquip already exists."}));
}

TEST_F(LibraryList, ADropFromOutsideTakesTheLastDragsRows) {
    select({"S1F4"});
    window.lvwSource.onDragStart();
    EXPECT_EQ(hands.drop({"other text", nullptr}, Target::whole(window.tvwEdit)), "");
    EXPECT_EQ(messages(), Lines{"S1F4"});
}

TEST_F(LibraryList, TheFilterHidesRowsAndTheyAreNotDragged) {
    select({"S1F3", "S6F11"});
    EXPECT_EQ(hands.paste(window.txtSourceFilter, "EVENT REPORT"), "");
    for (const std::string& row : shownRows())
        EXPECT_NE(row.find("Event Report"), std::string::npos) << row;
    EXPECT_FALSE(shownRows().empty());
    window.lvwSource.onDragStart();
    EXPECT_EQ(carried(), Lines{"S6 F11"});
    EXPECT_EQ(hands.paste(window.txtSourceFilter, "12,   9"), "");
    EXPECT_EQ(shownRows().size(), 1u);
    EXPECT_EQ(hands.paste(window.txtSourceFilter, "no such text"), "");
    EXPECT_TRUE(shownRows().empty());
    EXPECT_EQ(hands.paste(window.txtSourceFilter, ""), "");
    EXPECT_EQ(window.lvwSource.count(), 357u);
    EXPECT_EQ(window.lvwSource.sortKey(), 1);
}

TEST_F(LibraryList, TheFilterHoldsForTheNextLibrary) {
    EXPECT_EQ(hands.paste(window.txtSourceFilter, "S1F1"), "");
    const std::size_t semi = window.lvwSource.count();
    choose(window.libraryMenu.mnuLIBGEM);
    EXPECT_LT(window.lvwSource.count(), semi);
    EXPECT_EQ(shownRows().front(), "AreYouThere | S1F1 |    1,   1 | Are You There Request");
}

TEST_F(LibraryList, AllMessagesAtOnceComeOnceEach) {
    for (ListRow* row : window.lvwSource.shown())
        window.lvwSource.toggle(*row);
    window.lvwSource.onDragStart();
    EXPECT_EQ(hands.drop({"", nullptr}, Target::whole(window.tvwEdit)), "");
    EXPECT_EQ(messages().size(), 357u);
    EXPECT_EQ(boxes(), Lines{});
}

TEST(LibraryRow, HoldsPaddedNumbersAndAllOfTheDescription) {
    BoxScreen screen;
    Desktop desktop(screen);
    Window window(desktop, "frm");
    List list(window, "lvw");
    for (const char* column : {"Name", " Sx, Fx", "Description"})
        list.addColumn(column, 100);
    addLibraryRow("Name\\1\\13\\a\\b", kFormatSmd, list);
    addLibraryRow("Name2\\17\\9999\\", kFormatSemi, list);
    EXPECT_EQ(list.rows()[0]->cells(), (Lines{"Name", "   1,  13", "a\\b"}));
    EXPECT_EQ(list.rows()[0]->key(), "Name");
    EXPECT_EQ(list.rows()[1]->cells(), (Lines{"S17F9999", "  17,9999", ""}));
    EXPECT_EQ(list.rows()[1]->key(), "Name2");
}

} // namespace
} // namespace zb
