// The checks between the actions of the user: what an edit costs more because of them, and how long a slice
// of the first check keeps the window busy. Processor time.
#include "bench/generated_model.h"
#include "bench/generated_project.h"
#include "bench/slices.h"
#include "support/temporary_folder.h"
#include "unit/shell/program.h"
#include "workbench/problems_pane.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace zb::bench {
namespace {

using test::processorSeconds;

struct Desk {
    explicit Desk(std::int64_t messages) {
        const auto count = static_cast<std::size_t>(messages);
        open(projectText(count) + modelText(count / 10));
    }
    explicit Desk(const std::string& project) { open(project); }

    void open(const std::string& project) {
        std::ofstream(path, std::ios::binary) << project;
        program.application.start(path.string());
        runSlices();
        checkStandard();
    }

    void checkStandard() { pane.chkCheckStandard.setChecked(true); }

    double runSlices() { return test::runSlices(program.screen); }

    test::TemporaryFolder folder;
    std::filesystem::path path = folder / "Large.zbp";
    SystemFileLayer files;
    test::Program program{files};
    ProblemsPane& pane = program.application.frmWorkbench.problems;
};

void firstCheck(benchmark::State& state) {
    Desk desk(state.range(0));
    double longest = 1;
    for (auto _ : state) {
        desk.pane.watch.restart();
        const double start = processorSeconds();
        const double slice = desk.runSlices();
        state.SetIterationTime(processorSeconds() - start);
        longest = std::min(longest, slice); // the machine is busy
    }
    state.counters["longest_slice_ms"] = longest * 1000;
    state.counters["findings"] = desk.pane.watch.tally().of(Severity::Warning);
}
BENCHMARK(firstCheck)
    ->Name("ProblemsFirstCheck")
    ->Arg(1'000)
    ->Arg(10'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// As many TR messages as SECS messages, one for each.
void modelCheck(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    Desk desk(projectText(count) + modelText(count, count));
    ProblemWatch& watch = desk.pane.watch;
    for (auto _ : state) {
        watch.restart();
        const double start = processorSeconds();
        watch.finish();
        state.SetIterationTime(processorSeconds() - start);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(modelCheck)
    ->Name("ProblemsModelCheck")
    ->Arg(1'000)
    ->Arg(4'000)
    ->Arg(16'000)
    ->Complexity()
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// A message of the project, as a part of all: the rows of the first ones are listed, those of later ones
/// not.
enum class Place { First, Middle };

/// Changes the node of a message that is `below` lines after its head, and checks what that concerns.
void checkEdits(benchmark::State& state, Place place, int below, std::string first, std::string second) {
    Desk desk(state.range(0));
    if (state.range(1) != 0)
        desk.pane.open();
    desk.runSlices();
    NodeTree& tree = desk.program.application.frmSECSEditor.liveTree();
    const auto number = static_cast<std::size_t>(place == Place::First ? 1 : state.range(0) / 2);
    Node* node = tree.at(tree.find(messageName(number))->index() + below);
    for (auto _ : state) {
        const double start = processorSeconds();
        node->setText(first);
        desk.runSlices();
        state.SetIterationTime(processorSeconds() - start);
        std::swap(first, second);
    }
}

void itemEdit(benchmark::State& state) {
    checkEdits(state, Place::Middle, 2, "U4 1 CEID 70000000000", "U4 1 CEID 7");
}
BENCHMARK(itemEdit)
    ->Name("ProblemsItemEdit")
    ->ArgsProduct({{1'000, 10'000}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

/// The rows of all later findings move.
void firstItemEdit(benchmark::State& state) {
    checkEdits(state, Place::First, 2, "U4 1 CEID 70000000000", "U4 1 CEID 7");
}
BENCHMARK(firstItemEdit)
    ->Name("ProblemsFirstItemEdit")
    ->ArgsProduct({{1'000, 10'000}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

void headEdit(benchmark::State& state) {
    checkEdits(state, Place::Middle, 0, "Middle: S1 F1 W H<-E", "Middle: S2 F3 W H<-E");
}
BENCHMARK(headEdit)
    ->Name("ProblemsHeadEdit")
    ->ArgsProduct({{1'000, 10'000}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

/// Times a change of what the open pane lists, back and forth. All rows are replaced.
template<typename Change>
void changeList(benchmark::State& state, Change change) {
    Desk desk(state.range(0));
    desk.pane.open();
    desk.runSlices();
    bool isFirst = true;
    for (auto _ : state) {
        const double start = processorSeconds();
        change(desk.pane, isFirst);
        state.SetIterationTime(processorSeconds() - start);
        isFirst = !isFirst;
    }
    state.counters["findings"] = desk.pane.watch.tally().of(Severity::Warning);
}

void filterKey(benchmark::State& state) {
    changeList(state, [](ProblemsPane& pane, bool isFirst) {
        pane.txtProblemFilter.setText(isFirst ? "no such text" : "warning");
    });
}

void filterToggle(benchmark::State& state) {
    changeList(state, [](ProblemsPane& pane, bool isFirst) { pane.chkSeverity[1].setChecked(!isFirst); });
}

void sortByText(benchmark::State& state) {
    changeList(state, [](ProblemsPane& pane, bool isFirst) {
        pane.lvwProblems.setSorted(isFirst, 2);
        benchmark::DoNotOptimize(pane.lvwProblems.shown().size());
    });
}
BENCHMARK(filterKey)->Name("ProblemsFilterKey")->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(filterToggle)->Name("ProblemsToggle")->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(sortByText)->Name("ProblemsSort")->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
