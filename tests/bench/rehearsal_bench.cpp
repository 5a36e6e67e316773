// Rehearsing long recordings: messages a second, and the memory that they take.
#include "bench/long_recording.h"
#include "console/verdict_text.h"
#include "project/project_files.h"
#include "rehearsal/recording.h"
#include "rehearsal/rehearsal.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace zb::bench {
namespace {

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void rehearse(benchmark::State& state, const char* ending) {
    const LongRecording file(static_cast<std::size_t>(state.range(0)), ending);
    const auto project = readProjectFile(ZB_SOURCE_FOLDER "/examples/etcher/Etcher.zbp");
    std::size_t verdicts = 0;
    std::size_t characters = 0;
    for (auto _ : state) {
        verdicts = 0;
        rehearsal::Rehearsal rehearsal(project->project, CodePage(1252));
        const auto recording = rehearsal::openRecording(file.path(), {{}, {}, Side::Equipment});
        rehearsal::RecordedMessage message;
        const auto takeAll = [&] {
            while (const auto verdict = rehearsal.take()) {
                ++verdicts;
                characters += verdictJson(*verdict).size();
            }
        };
        while ((*recording)->next(message)) {
            rehearsal.add(std::move(message));
            takeAll();
        }
        rehearsal.finish();
        takeAll();
    }
    if (verdicts != file.messages() || characters == 0)
        state.SkipWithError("messages are missing");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(file.messages()));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.bytes()));
    state.counters["peak MB"] = peakMegabytes();
}

void RehearseCapture(benchmark::State& state) {
    rehearse(state, ".pcap");
}
void RehearseLog(benchmark::State& state) {
    rehearse(state, ".log");
}

BENCHMARK(RehearseCapture)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(RehearseLog)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
} // namespace zb::bench
