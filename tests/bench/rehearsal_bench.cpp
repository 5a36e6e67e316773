// Rehearsing long recordings: messages a second, and the memory that they take.
#include "console/verdict_text.h"
#include "messages/secs2/item_codec.h"
#include "project/project_files.h"
#include "rehearsal/recording.h"
#include "rehearsal/rehearsal.h"
#include "support/capture_writer.h"
#include "support/etcher_days.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <sys/resource.h>

namespace zb::bench {
namespace {

/// The lot of the regular day, again and again, in a file that is written piece by piece.
class LongRecording {
public:
    LongRecording(std::size_t messages, const std::string& ending) : path_(folder_ / ("long" + ending)) {
        std::ofstream file(path_, std::ios::binary);
        const auto day = test::regularDay();
        const auto part = [&](std::size_t count) {
            return std::vector<test::DayMessage>(day.end() - static_cast<std::ptrdiff_t>(count), day.end());
        };
        constexpr std::size_t kPart = 8; // events and alarms with their replies
        std::uint32_t system = 0;
        test::CaptureWriter capture;
        auto link = capture.open(49152, 5000);
        for (; messages_ < messages; messages_ += kPart) {
            auto exchange = part(kPart);
            for (std::size_t i = 0; i < exchange.size(); ++i)
                exchange[i].header.system = system + static_cast<std::uint32_t>(i / 2);
            system += kPart / 2;
            if (ending == ".log") {
                file << test::smlLog(exchange);
                continue;
            }
            for (const auto& message : exchange)
                capture.send(link, message.toHost ? 1 : 0, test::frameOf(message));
            if (capture.bytes().size() > (std::size_t{1} << 20U)) {
                file << capture.bytes();
                capture.forget();
            }
        }
        if (ending != ".log")
            file << capture.bytes();
        file.close();
        bytes_ = std::filesystem::file_size(path_);
    }

    const std::filesystem::path& path() const { return path_; }
    std::size_t messages() const { return messages_; }
    std::size_t bytes() const { return bytes_; }

private:
    test::TemporaryFolder folder_;
    std::filesystem::path path_;
    std::size_t messages_ = 0;
    std::size_t bytes_ = 0;
};

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
