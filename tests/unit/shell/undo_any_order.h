#pragma once

#include "project/project_files.h"
#include "support/document_dump.h"
#include "unit/shell/program.h"
#include "unit/shell/undo_witness.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace zb::test {

/// Users who follow each other in one program: starting it takes longer than opening a project.
class UndoAnyOrder {
public:
    UndoAnyOrder() : program_(files_) {
        program_.screen.modal = [this](Window& window) { answer(window); };
        app().start({});
    }

    void open(unsigned seed, const std::filesystem::path& project) {
        random_.seed(seed);
        hands_.look = nullptr;
        made_ = 0;
        putAway();
        ASSERT_TRUE(app().projects.openFile(project.string()));
        ASSERT_EQ(messages_.steps() + model_.steps(), 0U);
    }

    /// Whether the user has ended the program.
    bool ended() { return app().ended(); }

    void run() {
        const std::size_t actions = 10 + pick(30);
        const bool models = pick(2) == 0;
        if (models)
            app().showModeler();
        hands_.look = [&] {
            messages_.look();
            model_.look();
        };
        hands_.look();
        for (std::size_t i = 0; i < actions; ++i) {
            act(models);
            if (pick(8) != 0)
                continue;
            Witness& witness = pick(2) == 0 ? messages_ : model_;
            putComparisonAway();
            if (witness.steps() > 0)
                witness.goBackAndForth(1 + pick(witness.steps()));
            if (testing::Test::HasFatalFailure())
                return;
            if (witness.steps() > 0 && pick(3) == 0)
                witness.undo();
            if (testing::Test::HasFatalFailure())
                return;
        }
        putComparisonAway();
        hands_.look = nullptr;
        made_ = messages_.steps() + model_.steps();
        for (Witness* witness : {&messages_, &model_}) {
            witness->goBackAndForth(witness->steps());
            if (testing::Test::HasFatalFailure())
                return;
        }
    }

    std::size_t made() const { return made_; }

private:
    Application& app() { return program_.application; }
    /// What the user before has left open.
    void putAway() {
        app().desktop.closePopup();
        for (Window* window : std::initializer_list<Window*>{&app().frmCompare, &app().frmTRMessage,
                                                             &app().frmTRItem, &app().frmFind})
            window->hide();
    }
    std::size_t pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    std::string text() {
        static constexpr const char* kTexts[] = {"",     "1",   "2",    "129",  "-1",   "x:y",
                                                 "a b",  "'",   "1e5",  "S1F1", "A",    "300",
                                                 "CEID", "Lot", "Lot2", "Done", "true", "5 6 7"};
        return kTexts[pick(std::size(kTexts))];
    }
    Control& anyOf(Window& window) { return *window.controls()[pick(window.controls().size())]; }
    Target member(Control& control) {
        Target target = Target::whole(control);
        if (control.kind() == Control::Kind::Tree) {
            NodeTree& nodes = static_cast<Tree&>(control).nodes();
            if (!nodes.empty())
                target.node = nodes.at(1 + static_cast<int>(pick(nodes.count())));
        } else if (control.kind() == Control::Kind::List) {
            const auto& rows = static_cast<List&>(control).rows();
            if (!rows.empty())
                target.row = rows[pick(rows.size())].get();
        } else if (control.kind() == Control::Kind::Toolbar) {
            auto& buttons = static_cast<Toolbar&>(control).buttons();
            target.button = &buttons[pick(buttons.size())];
        }
        return target;
    }

    void act(bool models) {
        switch (pick(16)) {
        case 15:
            return workbench();
        case 14:
            return more();
        case 13:
            return compare();
        case 12:
            return replaceContent();
        case 0:
            return anything(app().frmMain);
        case 1:
            return undoOrRedo();
        case 2:
            return anything(models ? static_cast<Window&>(app().frmTRMessage) : app().frmFind);
        case 3:
            return anything(models ? static_cast<Window&>(app().frmTRItem) : app().frmSECSEditor);
        default:
            return models ? model() : edit();
        }
    }

    void anything(Window& window) {
        Control& control = anyOf(window);
        // The prompts of these would be answered by nobody, or end the program.
        if (control.name() == "cmdOK" || !window.visible())
            return;
        switch (pick(5)) {
        case 0:
            hands_.rightClick(member(control));
            break;
        case 1:
            if (control.kind() == Control::Kind::TextField)
                hands_.paste(control, text());
            else if (control.kind() == Control::Kind::Combo)
                hands_.choose(control, "#" + std::to_string(1 + pick(4)));
            break;
        case 2:
            if (control.takesFocus())
                hands_.key(control, {static_cast<int>(1 + pick(200)), static_cast<int>(pick(8))});
            break;
        case 3:
            hands_.drag(member(control), member(anyOf(window)));
            break;
        default:
            hands_.click(member(control));
            break;
        }
    }

    /// As a reload does, with a message less, a message more, or the file as it was at first.
    void replaceContent() {
        if (app().TRModelStore == nullptr)
            return;
        Project content = app().content.content();
        if (pick(3) == 0) {
            content = readProjectFile(app().projectFilePath()).value().project;
        } else if (pick(2) == 0) {
            content.messages = ProjectMessages("* new\r\nNew" + std::to_string(pick(3)) +
                                               ": S9 F1 H<-E.\r\n" + content.messages.text());
        } else if (!content.model->TRMessages().empty()) {
            content.model->deleteAt(pick(content.model->TRMessages().size()));
            content.sequences.addSequence(text());
        }
        app().content.replace(std::move(content), "Replace");
        hands_.look();
    }

    /// The panes with their pop-ups, and the buttons of notices.
    void workbench() {
        frmWorkbench& strip = app().frmWorkbench;
        switch (pick(5)) {
        case 0:
            strip.problems.open();
            strip.problems.finish();
            hands_.rightClick(member(strip.problems.lvwProblems));
            return choose();
        case 1:
            return hands_.click(Target::whole(strip.notices.cmdNotice[pick(strip.notices.cmdNotice.size())]));
        case 2:
            strip.marks.open();
            hands_.paste(strip.marks.txtPattern, pick(2) == 0 ? "N{name}" : "S{stream}F{function}" + text());
            return hands_.click(
                Target::whole(pick(2) == 0 ? strip.marks.cmdRenameMarked : strip.marks.cmdWait));
        default:
            return anything(strip);
        }
    }

    /// Commands and keys that lists and trees have besides the fixed ones.
    void more() {
        frmSECSEditor& editor = app().frmSECSEditor;
        static constexpr KeyEvent kKeys[] = {
            {kKeyUp, kAltKey},        {kKeyDown, kAltKey},         {kKeyLeft, kAltKey},
            {kKeyRight, kAltKey},     {kKeySpace, kControlKey},    {kKeySpace, kControlKey},
            {kKeyInsert, 0},          {kKeyInsert, kShiftKey},     {'V', kControlKey},
            {kKeyEnter, kControlKey}, {'1', kControlKey | kAltKey}};
        switch (pick(4)) {
        case 0:
            hands_.rightClick(member(editor.lvwSource));
            return choose();
        case 1:
            hands_.rightClick(member(editor.tvwEdit));
            return choose();
        case 2:
            hands_.click(member(editor.tvwEdit));
            return hands_.key(editor.tvwEdit, kKeys[pick(std::size(kKeys))]);
        default: {
            List& rows = app().frmTRModeler.lvwSequence;
            hands_.click(member(rows));
            return hands_.key(rows, pick(2) == 0 ? KeyEvent{'D', kControlKey} : kKeys[pick(2)]);
        }
        }
    }

    void choose() {
        if (const PopupMenu* popup = app().desktop.openPopup(); popup != nullptr)
            chooseFrom(*popup);
    }

    /// With the library, or with the file as it was at first, and takes from it.
    void compare() {
        frmCompare& window = app().frmCompare;
        if (!window.visible() && pick(2) == 0)
            hands_.click(Target::whole(app().frmWorkbench.compare.cmdCompareLibrary));
        else if (!window.visible())
            app().comparisons.compareWithFile(app().projectFilePath(), "the file");
        hands_.look();
        for (std::size_t count = pick(4); count > 0 && window.visible(); --count)
            anything(window);
        putComparisonAway();
    }

    /// As long as it is in front, each undo compares again, which takes longer than all else.
    void putComparisonAway() {
        if (pick(8) != 0)
            app().frmCompare.hide();
    }

    void undoOrRedo() {
        frmWorkbench& strip = app().frmWorkbench;
        hands_.click(Target::whole(pick(3) == 0 ? strip.cmdRedo : strip.cmdUndo));
    }

    void edit() {
        frmSECSEditor& editor = app().frmSECSEditor;
        switch (pick(8)) {
        case 0:
            hands_.click(member(editor.tvwEdit));
            break;
        case 1:
            hands_.drag(member(editor.lvwSource), member(editor.tvwEdit));
            break;
        case 2: {
            static constexpr const char* kEntries[] = {
                "mnuCut",    "mnuCopy",      "mnuPasteNext", "mnuPastePrevious", "mnuPasteChild",
                "mnuDelete", "mnuDuplicate", "mnuItem",      "mnuChild",         "mnuExpand"};
            hands_.click(member(editor.tvwEdit));
            hands_.click(Target::whole(*editor.find(kEntries[pick(std::size(kEntries))])));
            break;
        }
        case 3: {
            TextField* fields[] = {&editor.txtItemName, &editor.txtItemCount, &editor.txtInit};
            hands_.type(*fields[pick(std::size(fields))], std::to_string(pick(30)));
            break;
        }
        case 4:
            hands_.click(member(editor.tbritemType));
            break;
        case 5:
            hands_.paste(editor.txtStream, std::to_string(pick(130)));
            hands_.paste(editor.txtFunction, std::to_string(pick(12)));
            hands_.paste(editor.txtMsgName, text());
            hands_.click(Target::whole(pick(2) == 0 ? editor.cmdMsgAdd : editor.cmdMsgChange));
            break;
        case 6:
            hands_.click(Target::whole(pick(2) == 0 ? editor.chkFix : editor.chkIsItemKey));
            break;
        default:
            anything(editor);
            break;
        }
    }

    void model() {
        frmTRModeler& modeler = app().frmTRModeler;
        Control* places[] = {&modeler.tvwRcvTRMsg, &modeler.tvwSndTRMsg, &modeler.lvwTRObject,
                             &modeler.lvwSequence};
        switch (pick(7)) {
        case 0:
        case 1:
        case 2:
            hands_.rightClick(member(*places[pick(std::size(places))]));
            choose();
            break;
        case 3: {
            Control& source = *places[pick(3)];
            hands_.drag(member(source), member(modeler.lvwSequence));
            break;
        }
        case 4:
            hands_.click(member(*places[pick(std::size(places))]));
            hands_.key(*places[pick(2)], {kKeyDelete, 0});
            break;
        case 5:
            fillDialogs();
            break;
        default:
            anything(modeler);
            break;
        }
    }

    void chooseFrom(const PopupMenu& popup) {
        std::vector<Control*> entries;
        for (Control* control : popup.window().controls())
            if (control->kind() == Control::Kind::MenuEntry &&
                static_cast<const MenuEntry*>(control)->popup() == &popup)
                entries.push_back(control);
        if (popup.companion() != nullptr && pick(2) == 0)
            return chooseFrom(*popup.companion());
        if (!entries.empty())
            hands_.click(Target::whole(*entries[pick(entries.size())]));
        fillDialogs();
    }

    void fillDialogs() {
        if (frmTRMessage& dialog = app().frmTRMessage; dialog.visible()) {
            hands_.paste(dialog.txtTRName, text());
            hands_.choose(dialog.cmbSECSMessage, "#" + std::to_string(1 + pick(6)));
            if (pick(2) == 0)
                hands_.click(Target::whole(dialog.chkReport));
            hands_.click(Target::whole(dialog.cmdUpdate));
        }
        if (frmTRItem& dialog = app().frmTRItem; dialog.visible()) {
            hands_.paste(dialog.txtTRItemName, text());
            hands_.paste(dialog.txtABSValue, text());
            hands_.click(Target::whole(dialog.cmdUpdate));
        }
    }

    void answer(Window& window) {
        for (Control* control : window.controls())
            if (control->kind() == Control::Kind::TextField)
                hands_.paste(*control, text());
        for (const char* name : {"cmdAdd", "cmdSet", "cmdRename"})
            if (Control* button = window.find(name); button != nullptr)
                hands_.click(Target::whole(*button));
        window.hide();
    }

    std::mt19937 random_;
    SystemFileLayer files_;
    Program program_;
    WatchedHands hands_{program_.application.desktop};
    // The histories call these as long as the program runs.
    ReportedDumps dumps_{program_.application};
    Witness messages_{app().editorHistory.steps, [this] { return dumpMessages(app()); },
                      [this] { return dumps_.messages(); }};
    Witness model_{app().modelerHistory.steps, [this] { return dumpModel(app()); },
                   [this] { return dumps_.model(); }};
    std::size_t made_ = 0;
};

} // namespace zb::test
