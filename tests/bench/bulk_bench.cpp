// What a user does with very many nodes, rows or messages at once, on the event loop, without a screen. Each
// row is done once, at one size and at twice that size.
#include "bench/generated_model.h"
#include "bench/generated_project.h"
#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "unit/shell/program.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <functional>

namespace zb::bench {
namespace {

namespace fs = std::filesystem;

/// A user with a large project.
struct Large {
    explicit Large(const std::string& text) {
        fs::create_directories(folder / "Big");
        test::writeFile(path, encodeUtf16(text));
        program.application.start(path.string());
    }

    void press(Control& control) { hands.click(Target::whole(control)); }
    /// An entry of a menu that need not be open.
    void run(MenuEntry& entry) {
        const UserSteps::Action action(program.application.desktop.steps(), &entry);
        fire(entry.onClick);
    }
    void undo() { press(program.application.frmWorkbench.cmdUndo); }
    void redo() { press(program.application.frmWorkbench.cmdRedo); }
    /// The nodes from one to another, as Shift and a click mark them.
    void mark(Node& first, Node& last) {
        Target target = Target::whole(editor.tvwEdit);
        target.node = &first;
        hands.click(target);
        hands.reach(editor.tvwEdit, last, {0, kShiftKey});
    }
    void markMessages(std::int64_t count) { mark(message(2), message(count + 1)); }
    Node& message(std::int64_t number) {
        return *editor.liveTree().find(messageName(static_cast<std::size_t>(number)));
    }

    test::TemporaryFolder folder;
    fs::path path = folder / "Big/Big.zbp";
    SystemFileLayer files;
    test::Program program{files};
    frmSECSEditor& editor = program.application.frmSECSEditor;
    frmTRModeler& modeler = program.application.frmTRModeler;
    frmWorkbench& workbench = program.application.frmWorkbench;
    UserHands hands{program.application.desktop};
};

using Action = std::function<void()>;

/// Prepares the large project, and returns what is measured.
using Prepared = Action (*)(Large& large, std::int64_t count);

/// Twice as many messages as are marked.
std::string messagesText(std::int64_t count) {
    return projectText(static_cast<std::size_t>(2 * count));
}

std::string itemsText(std::int64_t count) {
    std::string text = "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n* d\r\n" +
                       messageName(1) + ": S1 F1 H->E\r\n    L " + std::to_string(count) + "\r\n";
    for (std::int64_t number = 0; number < count; ++number)
        text += "        U1 1 N" + std::to_string(number) + " 1\r\n";
    return text + "    U1 1 Z 1.\r\n";
}

/// Each message that is marked has a TR message.
std::string modelledText(std::int64_t count) {
    return messagesText(count) + modelText(static_cast<std::size_t>(count));
}

/// A TR message for each message, and so many rows of one sequence.
std::string sequencesText(std::int64_t count) {
    return projectText(100) + modelText(static_cast<std::size_t>(count));
}

/// The undo of an action, after it.
template<Prepared kPrepare>
Action undone(Large& large, std::int64_t count) {
    kPrepare(large, count)();
    return [&large] { large.undo(); };
}

/// Its redo, after both.
template<Prepared kPrepare>
Action redone(Large& large, std::int64_t count) {
    undone<kPrepare>(large, count)();
    return [&large] { large.redo(); };
}

Action markedMessages(Large& large, std::int64_t count) {
    return [&large, count] { large.markMessages(count); };
}

Action deletedMessages(Large& large, std::int64_t count) {
    large.markMessages(count);
    return [&large] { large.run(large.editor.editEntries.remove); };
}

Action duplicatedMessages(Large& large, std::int64_t count) {
    large.markMessages(count);
    return [&large] { large.run(large.editor.editEntries.duplicate); };
}

Action movedMessages(Large& large, std::int64_t count) {
    large.markMessages(count);
    return [&large] { large.run(large.workbench.treeMore.mnuMoveDown); };
}

Action renamedMessages(Large& large, std::int64_t count) {
    large.markMessages(count);
    large.workbench.marks.open();
    large.workbench.marks.txtPattern.setText("R{name}");
    return [&large] { large.press(large.workbench.marks.cmdRenameMarked); };
}

Action renamedUsers(Large& large, std::int64_t count) {
    renamedMessages(large, count)();
    return [&large] { large.press(large.workbench.notices.cmdNotice[0]); };
}

void markItems(Large& large) {
    Node& list = *large.message(1).child();
    large.mark(*list.child(), *list.lastChild());
}

Action duplicatedItems(Large& large, std::int64_t /*count*/) {
    markItems(large);
    return [&large] { large.run(large.editor.editEntries.duplicate); };
}

Action deletedItems(Large& large, std::int64_t /*count*/) {
    markItems(large);
    return [&large] { large.run(large.editor.editEntries.remove); };
}

Action movedItems(Large& large, std::int64_t /*count*/) {
    markItems(large);
    return [&large] { large.run(large.workbench.treeMore.mnuMoveOut); };
}

/// A library with the messages of the project.
void openLibrary(Large& large, std::int64_t count) {
    std::string text;
    for (std::int64_t number = 1; number <= count; ++number)
        text += messageName(static_cast<std::size_t>(number)) + ": S6F11 W <L <A 'x'> <U1 1>>.\n";
    const fs::path file = large.folder / "library.sml";
    test::writeFile(file, text);
    large.program.screen.picks.push_back(file.string());
    large.run(large.editor.libraryMenu.mnuLIBSML);
    List& list = large.editor.lvwSource;
    list.selectRange(*list.shown().front(), *list.shown().back());
}

Action filteredLibrary(Large& large, std::int64_t count) {
    openLibrary(large, count);
    return [&large] { large.editor.txtSourceFilter.setText("m"); };
}

Action replacedFromLibrary(Large& large, std::int64_t count) {
    openLibrary(large, count);
    return [&large] { large.editor.libraryPane.replaceSelected(); };
}

Action comparedWithLibrary(Large& large, std::int64_t count) {
    openLibrary(large, count);
    return [&large] { large.run(large.workbench.libraryEntries.mnuLibraryCompare); };
}

Action pastedText(Large& large, std::int64_t count) {
    std::string text;
    for (std::int64_t number = 1; number <= count; ++number)
        text += "Pasted" + std::to_string(number) + ": S6F11 W <L <A 'x'> <U1 1>>.\n";
    return [&large, text] {
        large.program.application.desktop.screen().putOnClipboard({text, {}});
        large.editor.sharedNodes.paste();
    };
}

Action searchedAll(Large& large, std::int64_t /*count*/) {
    large.workbench.search.open();
    large.workbench.search.txtSearch.setText("U4");
    return [&large] { large.press(large.workbench.search.cmdSearchAll); };
}

/// One sequence with that many rows.
void showSequence(Large& large, std::int64_t count) {
    large.program.application.showModeler();
    SequenceView& view = large.modeler.sequenceView();
    Sequences rows;
    rows.addSequence("Long");
    for (std::int64_t number = 0; number < count; ++number)
        rows.append({kSequenceItem, std::to_string(number + 1), "ToHost", "TR1"});
    view.change(rows);
    List& list = large.modeler.lvwSequence;
    list.selectRange(*list.rows()[1], *list.rows()[list.count() - 2]);
}

Action movedRows(Large& large, std::int64_t count) {
    showSequence(large, count);
    return [&large] { large.modeler.sequenceCommands().moveRows(Step::Down); };
}

Action duplicatedRows(Large& large, std::int64_t count) {
    showSequence(large, count);
    return [&large] { large.modeler.sequenceCommands().duplicateRows(); };
}

Action deletedRows(Large& large, std::int64_t count) {
    showSequence(large, count);
    return [&large] { large.modeler.sequenceCommands().removeRows(); };
}

Action clearedModel(Large& large, std::int64_t /*count*/) {
    large.program.application.showModeler();
    return [&large] { large.run(large.modeler.mnuClearAllRcvTRMsg); };
}

Action foundUses(Large& large, std::int64_t count) {
    showSequence(large, count);
    large.editor.liveTree().select(&large.message(2));
    large.program.application.showEditor();
    return [&large] { large.run(large.workbench.mnuWhereUsed); };
}

/// The rows: what is done, how the project is made, and the smaller size.
struct Row {
    const char* name;
    std::string (*text)(std::int64_t count);
    Prepared prepare;
    std::int64_t size;
};

constexpr Row kRows[] = {
    {"mark messages", messagesText, markedMessages, 2500},
    {"delete marked messages", messagesText, deletedMessages, 2500},
    {"undo the delete of messages", messagesText, undone<deletedMessages>, 2500},
    {"redo the delete of messages", messagesText, redone<deletedMessages>, 2500},
    {"duplicate marked messages", messagesText, duplicatedMessages, 2500},
    {"undo the duplicate of messages", messagesText, undone<duplicatedMessages>, 2500},
    {"move marked messages", messagesText, movedMessages, 2500},
    {"undo the move of messages", messagesText, undone<movedMessages>, 2500},
    {"rename marked messages", modelledText, renamedMessages, 1000},
    {"rename their TR messages", modelledText, renamedUsers, 1000},
    {"duplicate marked items", itemsText, duplicatedItems, 2500},
    {"delete marked items", itemsText, deletedItems, 5000},
    {"undo the delete of items", itemsText, undone<deletedItems>, 5000},
    {"move marked items out", itemsText, movedItems, 5000},
    {"filter a ticked library", messagesText, filteredLibrary, 2500},
    {"replace from a library", messagesText, replacedFromLibrary, 2500},
    {"compare with a library", messagesText, comparedWithLibrary, 1000},
    {"paste messages as text", messagesText, pastedText, 5000},
    {"search what all messages have", messagesText, searchedAll, 5000},
    {"move sequence rows", sequencesText, movedRows, 2500},
    {"duplicate sequence rows", sequencesText, duplicatedRows, 2500},
    {"delete sequence rows", sequencesText, deletedRows, 2500},
    {"undo the delete of sequence rows", sequencesText, undone<deletedRows>, 2500},
    {"clear the TR messages", sequencesText, clearedModel, 5000},
    {"undo the clear", sequencesText, undone<clearedModel>, 5000},
    {"where a message is used", sequencesText, foundUses, 5000},
};

void measure(benchmark::State& state, const Row& row) {
    for (auto _ : state) {
        state.PauseTiming();
        {
            Large large(row.text(state.range(0)));
            const Action action = row.prepare(large, state.range(0));
            state.ResumeTiming();
            action();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}

bool registerRows() {
    for (const Row& row : kRows)
        benchmark::RegisterBenchmark(row.name, [&row](benchmark::State& state) { measure(state, row); })
            ->Arg(row.size)
            ->Arg(2 * row.size)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    return true;
}

const bool kRegistered = registerRows();

} // namespace
} // namespace zb::bench
