#include "bench/generated_project.h"
#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "unit/shell/program.h"

#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>

namespace zb::bench {
namespace {

namespace fs = std::filesystem;

// A user at the editor, with a project of the benchmark's size.
struct Edited {
    explicit Edited(std::int64_t messages) {
        fs::create_directories(folder / "Big");
        test::writeFile(path, encodeUtf16(projectText(static_cast<std::size_t>(messages))));
        program.application.start(path.string());
        middle = editor.liveTree().find(messageName(static_cast<std::size_t>(messages) / 2));
    }
    void click(Node* node) {
        Target target = Target::whole(editor.tvwEdit);
        target.node = node;
        hands.click(target);
    }
    void press(Control& control) {
        hands.click(Target::whole(control));
        follow();
    }
    void paste(Control& control, const std::string& text) {
        hands.paste(control, text);
        follow();
    }
    /// A step is what makes the panes follow the project. They do so without steps, too, so that both
    /// figures differ by the steps alone.
    void follow() {
        if (!keepsSteps)
            program.application.frmWorkbench.projectChanged();
    }
    void stopSteps() {
        program.application.editorHistory.steps.stop();
        keepsSteps = false;
    }

    test::TemporaryFolder folder;
    fs::path path = folder / "Big/Big.zbp";
    SystemFileLayer files;
    test::Program program{files};
    frmSECSEditor& editor = program.application.frmSECSEditor;
    UserHands hands{program.application.desktop};
    Node* middle = nullptr;
    bool keepsSteps = true;
};

void Click(benchmark::State& state) {
    Edited edited(state.range(0));
    Node* item = edited.middle->child()->next()->next()->child()->child();
    for (auto _ : state) {
        edited.click(edited.middle);
        edited.click(item);
    }
}

// What the keeping of unsaved work takes of the event loop.
void ComposeWork(benchmark::State& state) {
    const Edited edited(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(edited.program.application.work.composeWork());
}

void add(benchmark::State& state, Edited& edited) {
    edited.click(edited.middle);
    int number = 0;
    for (auto _ : state) {
        edited.editor.txtMsgName.setText("Added" + std::to_string(++number));
        edited.press(edited.editor.cmdMsgAdd);
    }
}

void change(benchmark::State& state, Edited& edited) {
    edited.click(edited.middle);
    int number = 0;
    for (auto _ : state) {
        edited.editor.txtMsgName.setText("Renamed" + std::to_string(++number));
        edited.press(edited.editor.cmdMsgChange);
    }
}

void pasteAValue(benchmark::State& state, Edited& edited) {
    edited.click(edited.middle->child());
    int number = 0;
    for (auto _ : state)
        edited.paste(edited.editor.txtInit, std::to_string(++number));
}

void duplicateAMessage(benchmark::State& state, Edited& edited) {
    edited.click(edited.middle);
    for (auto _ : state)
        edited.press(edited.editor.editEntries.duplicate);
}

void undoAndRedoADelete(benchmark::State& state, Edited& edited) {
    edited.click(edited.middle);
    edited.press(edited.editor.editEntries.remove);
    frmWorkbench& strip = edited.program.application.frmWorkbench;
    for (auto _ : state) {
        edited.press(strip.cmdUndo);
        edited.press(strip.cmdRedo);
    }
}

using Editing = void (*)(benchmark::State& state, Edited& edited);

template<Editing Edits>
void Recorded(benchmark::State& state) {
    Edited edited(state.range(0));
    Edits(state, edited);
}

/// The same when no steps are kept, to see what they cost.
template<Editing Edits>
void Unrecorded(benchmark::State& state) {
    Edited edited(state.range(0));
    edited.stopSteps();
    Edits(state, edited);
}

void FindOverTheWholeTree(benchmark::State& state) {
    Edited edited(state.range(0));
    edited.click(edited.editor.liveTree().at(3));
    frmFind& window = edited.program.application.frmFind;
    window.showFind();
    window.txtFindWhat.setText("nowhere to be found");
    for (auto _ : state)
        window.findNext();
}

/// A key in the field of the Go pane, of texts that many names match.
void GoKey(benchmark::State& state) {
    Edited edited(state.range(0));
    GoPane& go = edited.program.application.frmWorkbench.go;
    edited.press(go.button);
    const std::array<const char*, 4> typed{"e", "et", "eti", "etim"};
    std::size_t next = 0;
    for (auto _ : state)
        go.txtGo.setText(typed[next++ % typed.size()]);
}

void OpenGo(benchmark::State& state) {
    Edited edited(state.range(0));
    GoPane& go = edited.program.application.frmWorkbench.go;
    for (auto _ : state) {
        go.projectChanged();
        go.open();
        go.close();
    }
}

BENCHMARK(GoKey)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenGo)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ComposeWork)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Click)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Recorded<add>)->Name("Add")->Arg(1000)->Arg(10000)->Iterations(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(Recorded<change>)
    ->Name("Change")
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Recorded<pasteAValue>)->Name("PasteAValue")->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Recorded<duplicateAMessage>)
    ->Name("DuplicateAMessage")
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Unrecorded<add>)
    ->Name("AddWithoutSteps")
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Unrecorded<change>)
    ->Name("ChangeWithoutSteps")
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Unrecorded<pasteAValue>)
    ->Name("PasteAValueWithoutSteps")
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Unrecorded<duplicateAMessage>)
    ->Name("DuplicateAMessageWithoutSteps")
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Recorded<undoAndRedoADelete>)
    ->Name("UndoAndRedoADelete")
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(FindOverTheWholeTree)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
