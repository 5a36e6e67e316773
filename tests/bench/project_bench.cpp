#include "bench/generated_project.h"
#include "platform/text_file.h"
#include "unit/shell/program.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <utility>

namespace zb::bench {
namespace {

namespace fs = std::filesystem;

// A project of the benchmark's size, opened by a whole program.
struct Opened {
    explicit Opened(std::int64_t messages) {
        fs::create_directories(folder / "Big");
        test::writeFile(path, encodeUtf16(projectText(static_cast<std::size_t>(messages))));
        program.application.start(path.string());
    }
    NodeTree& tree() { return program.application.frmSECSEditor.liveTree(); }

    test::TemporaryFolder folder;
    fs::path path = folder / "Big/Big.zbp";
    SystemFileLayer files;
    test::Program program{files};
};

void Open(benchmark::State& state) {
    Opened opened(state.range(0));
    for (auto _ : state)
        opened.program.application.projects.openProject(opened.path.string());
    state.counters["nodes"] = static_cast<double>(opened.tree().count());
    state.counters["peakMB"] = static_cast<double>(peakMemory()) / 1e6;
}

// The memory of a node without the characters of its Text.
void MemoryOfATree(benchmark::State& state) {
    Opened opened(state.range(0));
    NodeTree& tree = opened.tree();
    std::size_t characters = 0;
    for (int index = 1; const Node* node = tree.at(index); ++index)
        characters += node->text().capacity() > 15 ? node->text().capacity() + 1 : 0;
    const std::size_t nodes = tree.count();
    const std::size_t before = allocatedMemory();
    for (auto _ : state)
        opened.program.application.frmSECSEditor.tvwEdit.replaceNodes();
    const std::size_t freed = before - allocatedMemory();
    state.counters["bytesANode"] = static_cast<double>(freed - characters) / static_cast<double>(nodes);
}

void SaveWalk(benchmark::State& state) {
    Opened opened(state.range(0));
    for (auto _ : state) {
        opened.program.application.frmSECSEditor.buildMessageText(WalkMode::SaveProject);
        benchmark::DoNotOptimize(opened.program.application.SECSMessageStore->allTexts());
    }
}

void Save(benchmark::State& state) {
    Opened opened(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(opened.program.application.projects.saveProject());
}

void CheckedWalkWithBuild(benchmark::State& state) {
    Opened opened(state.range(0));
    for (auto _ : state) {
        if (!opened.program.application.builds.buildSmd())
            state.SkipWithError("the generated project has a fault");
    }
}

// The part of it that the windows wait for.
void TakeACheckedWalk(benchmark::State& state) {
    Opened opened(state.range(0));
    frmSECSEditor& editor = opened.program.application.frmSECSEditor;
    for (auto _ : state) {
        state.PauseTiming();
        PreparedWalk walk = editor.prepareWalk(WalkMode::BuildSmd, {});
        state.ResumeTiming();
        benchmark::DoNotOptimize(editor.takeWalk(std::move(walk)));
    }
}

void LookUpByKey(benchmark::State& state) {
    Opened opened(state.range(0));
    std::size_t number = 0;
    for (auto _ : state) {
        number = number % static_cast<std::size_t>(state.range(0)) + 1;
        benchmark::DoNotOptimize(opened.tree().find(messageName(number)));
    }
}

void AddAndRemoveAMessage(benchmark::State& state) {
    Opened opened(state.range(0));
    NodeTree& tree = opened.tree();
    for (auto _ : state) {
        Node& blank = tree.add(nullptr, Relation::Last, "");
        Node& description = tree.add(&blank, Relation::Next, "text");
        Node& message = tree.add(&description, Relation::Next, "New: S1 F1 H->E");
        tree.setKey(message, "New");
        tree.remove(message);
        tree.remove(description);
        tree.remove(blank);
    }
}

void RemoveTheFirstMessage(benchmark::State& state) {
    Opened opened(state.range(0));
    NodeTree& tree = opened.tree();
    for (auto _ : state) {
        if (tree.count() < 100)
            state.SkipWithError("the tree is used up");
        for (int part = 0; part < 3; ++part)
            tree.remove(*tree.at(1));
    }
}

BENCHMARK(Open)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryOfATree)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveWalk)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(CheckedWalkWithBuild)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(TakeACheckedWalk)->Arg(10000)->Arg(100000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(LookUpByKey)->Arg(1000)->Arg(10000);
BENCHMARK(AddAndRemoveAMessage)->Arg(1000)->Arg(10000);
BENCHMARK(RemoveTheFirstMessage)->Arg(1000)->Arg(10000)->Iterations(200)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace zb::bench
