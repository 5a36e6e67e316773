// A user who does anything in any order. After each undo the documents must be what they were before the
// step, and after each redo what they were after it. ZB_UNDO_SEQUENCES sets how many users there are.
#include "controls/user_hands.h"
#include "support/document_dump.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace zb {
namespace {

namespace fs = std::filesystem;

/// Reports the first line that differs.
void expectEqual(const std::string& now, const std::string& wanted, const std::string& when) {
    if (now == wanted)
        return;
    std::istringstream lines(now);
    std::istringstream wantedLines(wanted);
    std::string line;
    std::string wantedLine;
    do {
        if (!std::getline(lines, line))
            line = "(the end)";
        if (!std::getline(wantedLines, wantedLine))
            wantedLine = "(the end)";
    } while (line == wantedLine && lines);
    FAIL() << when << "\n  " << line << "\n  instead of\n  " << wantedLine;
}

/// What one document was like before each of its steps.
class Witness {
public:
    Witness(UndoHistory& history, std::function<std::string()> dump)
        : history_(history), dump_(std::move(dump)), now_(dump_()) {
        // An action may make several steps.
        history_.addListener([this] { look(); });
    }

    /// Takes note of what an action or a step of it has left.
    void look() {
        if (moves_)
            return;
        const std::string before = std::exchange(now_, dump_());
        if (history_.count() > states_.size())
            states_.push_back(before);
        states_.resize(history_.count());
    }

    void undo() {
        ASSERT_TRUE(history_.canUndo());
        moves_ = true;
        history_.undo();
        moves_ = false;
        now_ = dump_();
        ASSERT_EQ(history_.count() + 1, states_.size());
        expectEqual(now_, states_.back(), "after the undo of " + history_.redoName());
        states_.pop_back();
    }

    /// Undoes so many steps and redoes them, comparing each state on both ways.
    void goBackAndForth(std::size_t steps) {
        std::vector<std::string> passed;
        std::vector<std::string> before;
        for (std::size_t i = 0; i < steps; ++i) {
            passed.push_back(now_);
            before.push_back(states_.back());
            undo();
            if (testing::Test::HasFatalFailure())
                return;
        }
        for (; !passed.empty(); passed.pop_back()) {
            ASSERT_TRUE(history_.canRedo());
            moves_ = true;
            history_.redo();
            moves_ = false;
            now_ = dump_();
            expectEqual(now_, passed.back(), "after the redo of " + history_.undoName());
            states_.push_back(before.back());
            before.pop_back();
        }
    }

    std::size_t steps() const { return states_.size(); }

private:
    UndoHistory& history_;
    std::function<std::string()> dump_;
    std::string now_;
    bool moves_ = false;
    std::vector<std::string> states_; // before each step
};

/// Hands whose every action is looked at by witnesses.
class WatchedHands {
public:
    explicit WatchedHands(Desktop& desktop) : hands_(desktop) {}

    void click(const Target& target) {
        watch([&] { hands_.click(target); });
    }
    void rightClick(const Target& target) {
        watch([&] { hands_.rightClick(target); });
    }
    void drag(const Target& from, const Target& to) {
        watch([&] { hands_.drag(from, to); });
    }
    void key(Control& control, KeyEvent key) {
        watch([&] { hands_.key(control, key); });
    }
    void type(Control& control, const std::string& text) {
        watch([&] { hands_.type(control, text); });
    }
    void paste(Control& control, const std::string& text) {
        watch([&] { hands_.paste(control, text); });
    }
    void choose(Control& control, const std::string& text) {
        watch([&] { hands_.choose(control, text); });
    }

    std::function<void()> look;

private:
    // What is done in a dialog belongs to the action that opened it.
    void watch(const std::function<void()>& action) {
        ++depth_;
        action();
        if (--depth_ == 0 && look)
            look();
    }

    UserHands hands_;
    int depth_ = 0;
};

class UndoAnyOrder {
public:
    UndoAnyOrder(unsigned seed, const fs::path& project) : random_(seed), program_(files_) {
        program_.screen.modal = [this](Window& window) { answer(window); };
        app().start(project.string());
        messages_ = std::make_unique<Witness>(app().editorHistory.steps,
                                              [this] { return test::dumpMessages(app()); });
        model_ =
            std::make_unique<Witness>(app().modelerHistory.steps, [this] { return test::dumpModel(app()); });
    }

    void run() {
        // The histories call the witnesses as long as the program runs.
        Witness& messages = *messages_;
        Witness& model = *model_;
        const std::size_t actions = 10 + pick(30);
        const bool models = pick(2) == 0;
        if (models)
            app().showModeler();
        hands_.look = [&] {
            messages.look();
            model.look();
        };
        hands_.look();
        for (std::size_t i = 0; i < actions; ++i) {
            act(models);
            if (pick(8) != 0)
                continue;
            Witness& witness = pick(2) == 0 ? messages : model;
            if (witness.steps() > 0)
                witness.goBackAndForth(1 + pick(witness.steps()));
            if (testing::Test::HasFatalFailure())
                return;
            if (witness.steps() > 0 && pick(3) == 0)
                witness.undo();
            if (testing::Test::HasFatalFailure())
                return;
        }
        hands_.look = nullptr;
        made_ = messages.steps() + model.steps();
        for (Witness* witness : {&messages, &model}) {
            witness->goBackAndForth(witness->steps());
            if (testing::Test::HasFatalFailure())
                return;
        }
    }

    std::size_t made() const { return made_; }

private:
    Application& app() { return program_.application; }
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
        switch (pick(12)) {
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
                hands_.key(control, {static_cast<int>(1 + pick(200)), static_cast<int>(pick(4))});
            break;
        case 3:
            hands_.drag(member(control), member(anyOf(window)));
            break;
        default:
            hands_.click(member(control));
            break;
        }
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
            if (const PopupMenu* popup = app().desktop.openPopup(); popup != nullptr)
                chooseFrom(*popup);
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
        for (const char* name : {"cmdAdd", "cmdSet"})
            if (Control* button = window.find(name); button != nullptr)
                hands_.click(Target::whole(*button));
        window.hide();
    }

    std::mt19937 random_;
    SystemFileLayer files_;
    test::Program program_;
    WatchedHands hands_{program_.application.desktop};
    std::unique_ptr<Witness> messages_;
    std::unique_ptr<Witness> model_;
    std::size_t made_ = 0;
};

std::size_t sequences() {
    const char* set = std::getenv("ZB_UNDO_SEQUENCES");
    return set == nullptr ? 300 : static_cast<std::size_t>(std::atol(set));
}

TEST(UndoInAnyOrder, GoesBackAndForthExactly) {
    const test::TemporaryFolder folder;
    std::size_t made = 0;
    for (std::size_t seed = 1; seed <= sequences(); ++seed) {
        // A save or build of one user must not change what the next one opens.
        const fs::path project = folder / ("Line" + std::to_string(seed)) / "Line.zbp";
        fs::create_directories(project.parent_path());
        fs::copy_file(fs::path(ZB_SOURCE_FOLDER) /
                          (seed % 3 == 0 ? "examples/faulty/Faulty.zbp" : "examples/etcher/Etcher.zbp"),
                      project);
        UndoAnyOrder user(static_cast<unsigned>(seed), project);
        user.run();
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "seed " << seed;
        made += user.made();
        fs::remove_all(project.parent_path());
    }
    // Users who change nothing would prove nothing.
    EXPECT_GT(made, 3 * sequences());
}

} // namespace
} // namespace zb
