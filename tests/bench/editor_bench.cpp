#include "bench/generated_project.h"
#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "unit/shell/program.h"

#include <benchmark/benchmark.h>

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
    void press(Control& control) { hands.click(Target::whole(control)); }

    test::TemporaryFolder folder;
    fs::path path = folder / "Big/Big.zbp";
    SystemFileLayer files;
    test::Program program{files};
    frmSECSEditor& editor = program.application.frmSECSEditor;
    UserHands hands{program.application.desktop};
    Node* middle = nullptr;
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

void Add(benchmark::State& state) {
    Edited edited(state.range(0));
    edited.click(edited.middle);
    int number = 0;
    for (auto _ : state) {
        edited.editor.txtMsgName.setText("Added" + std::to_string(++number));
        edited.press(edited.editor.cmdMsgAdd);
    }
}

void Change(benchmark::State& state) {
    Edited edited(state.range(0));
    edited.click(edited.middle);
    int number = 0;
    for (auto _ : state) {
        edited.editor.txtMsgName.setText("Renamed" + std::to_string(++number));
        edited.press(edited.editor.cmdMsgChange);
    }
}

void PasteAValue(benchmark::State& state) {
    Edited edited(state.range(0));
    edited.click(edited.middle->child());
    int number = 0;
    for (auto _ : state)
        edited.hands.paste(edited.editor.txtInit, std::to_string(++number));
}

void DuplicateAMessage(benchmark::State& state) {
    Edited edited(state.range(0));
    edited.click(edited.middle);
    for (auto _ : state)
        edited.press(edited.editor.editEntries.duplicate);
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

BENCHMARK(ComposeWork)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Click)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Add)->Arg(1000)->Arg(10000)->Iterations(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(Change)->Arg(1000)->Arg(10000)->Iterations(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(PasteAValue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(DuplicateAMessage)->Arg(1000)->Arg(10000)->Iterations(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(FindOverTheWholeTree)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
