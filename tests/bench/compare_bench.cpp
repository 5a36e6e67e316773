// Comparing and merging two versions of a project.
#include "bench/generated_project.h"
#include "compare/project_comparison.h"
#include "compare/project_merge.h"
#include "platform/text.h"
#include "project/project_text.h"

#include <benchmark/benchmark.h>

#include <string>

namespace zb::bench {
namespace {

std::size_t sizeOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void CompareWith100Changes(benchmark::State& state) {
    const Project before = parseProject(projectText(sizeOf(state)));
    const Project after = parseProject(changedText(sizeOf(state), 5));
    for (auto _ : state) {
        if (compareProjects(before, after).size() != 100)
            state.SkipWithError("there are not 100 differences");
    }
}

void CompareWithNothingInCommon(benchmark::State& state) {
    const std::string text = projectText(sizeOf(state));
    const Project before = parseProject(text);
    // The same streams and functions, so that each message could be a renamed one.
    std::string other = replaceAll(text, "Message", "Other");
    for (const char* word : {"U4 1 DATAID", "U4 1 CEID", "U4 1 RPTID", "A 16V PPID", "F4 1 PRESSURE",
                             "BOOLEAN 1 DOOR", "U2 3 SLOTS", "A 6 MDLN", "Report"})
        other = replaceAll(other, word, std::string(word) + "X");
    const Project after = parseProject(other);
    for (auto _ : state)
        benchmark::DoNotOptimize(compareProjects(before, after).size());
}

void CompareWithEachMessageChanged(benchmark::State& state) {
    const std::string text = projectText(sizeOf(state));
    const Project before = parseProject(text);
    const Project after = parseProject(replaceAll(text, "'RECIPE-1'", "'RECIPE-2'"));
    for (auto _ : state)
        benchmark::DoNotOptimize(compareProjects(before, after).size());
}

void MergeWith100ChangesOnEachSide(benchmark::State& state) {
    const Project base = parseProject(projectText(sizeOf(state)));
    const Project ours = parseProject(changedText(sizeOf(state), 5));
    const Project theirs = parseProject(changedText(sizeOf(state), 7));
    for (auto _ : state) {
        if (!mergeProjects(base, ours, theirs).conflicts.empty())
            state.SkipWithError("there are conflicts");
    }
}

BENCHMARK(CompareWith100Changes)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareWithEachMessageChanged)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareWithNothingInCommon)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(MergeWith100ChangesOnEachSide)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
