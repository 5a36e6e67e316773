// The document Rehearsal: how long an edit of the project takes until all messages are judged again, and how
// long a slice keeps the window busy. Processor time, without a screen.
#include "bench/long_recording.h"
#include "bench/slices.h"
#include "platform/text.h"
#include "project/project_text.h"
#include "unit/shell/program.h"
#include "workbench/frm_rehearsal.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <malloc.h>
#include <string>
#include <utility>
#include <vector>

namespace zb::bench {
namespace {

using test::processorSeconds;

double usedMegabytes() {
    return static_cast<double>(mallinfo2().uordblks) / (1024 * 1024);
}

struct Desk {
    explicit Desk(std::size_t messages) : file(messages, ".log") {
        std::filesystem::copy_file(ZB_SOURCE_FOLDER "/examples/etcher/Etcher.zbp", path);
        program.application.start(path.string());
        runSlices();
        window.open();
        const double before = usedMegabytes();
        window.recording.txtRecording.setText(file.path().string());
        window.recording.onRead();
        runSlices();
        megabytes = usedMegabytes() - before;
    }

    double runSlices() { return test::runSlices(program.screen); }

    /// Other conditions for the events, so that their verdicts change, or those of before.
    void edit(bool there) {
        TRMessageRecord* record = program.application.TRModelStore->changeTRMessage("StepDone");
        record->setCondition(there ? "({DATAID} == 999999)" : condition);
        window.projectStepped();
    }

    test::TemporaryFolder folder;
    LongRecording file;
    std::filesystem::path path = folder / "Etcher.zbp";
    SystemFileLayer files;
    test::Program program{files};
    frmRehearsal& window = program.application.frmRehearsal;
    std::string condition;
    double megabytes = 0;
};

void RehearseAfterAnEdit(benchmark::State& state) {
    Desk desk(static_cast<std::size_t>(state.range(0)));
    desk.condition = desk.program.application.TRModelStore->getTRMessage("StepDone")->Condition();
    double longest = 1;
    bool there = false;
    for (auto _ : state) {
        there = !there;
        desk.edit(there);
        const double start = processorSeconds();
        const double slice = desk.runSlices();
        state.SetIterationTime(processorSeconds() - start);
        longest = std::min(longest, slice); // the machine is busy
    }
    state.counters["longest_slice_ms"] = longest * 1000;
    state.counters["MB"] = desk.megabytes;
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(RehearseAfterAnEdit)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(200'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
