// What must grow in proportion to its input, however much of it there is: each row at one size and at twice
// that size.
#include "console/message_source.h"
#include "lint/silencings.h"
#include "platform/settings_file.h"
#include "platform/xml_element.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace zb::bench {
namespace {

void ReadASetting(benchmark::State& state) {
    test::TemporaryFolder folder;
    std::string text = "{\"Zeltobench\": {\"ZeltobenchOption\": {";
    for (std::int64_t number = 0; number < state.range(0); ++number)
        text += "\"Key" + std::to_string(number) + "\": \"value\",";
    test::writeFile(folder / "settings.json", text + "\"Last\": \"found\"}}}");
    const SettingsFile settings(folder.path());
    for (auto _ : state) {
        if (settings.read({"Zeltobench", "ZeltobenchOption", "Last"}) != "found")
            state.SkipWithError("the setting is not read");
    }
}

void SetAttributes(benchmark::State& state) {
    for (auto _ : state) {
        XmlElement element("Element");
        for (std::int64_t number = 0; number < state.range(0); ++number)
            setElementAttribute(element, "a" + std::to_string(number), "value");
        benchmark::DoNotOptimize(element.attributes().size());
    }
}

void SelectMessagesByName(benchmark::State& state) {
    test::TemporaryFolder folder;
    std::string text;
    for (std::int64_t number = 0; number < state.range(0); ++number)
        text += "Message" + std::to_string(number) + ": S1 F1 W H->E.\r\n";
    const std::filesystem::path file = folder / "library.smd";
    test::writeFile(file, text);
    for (auto _ : state) {
        std::ostringstream out;
        std::ostringstream err;
        MessageSource source;
        source.load(file.string(), {out, err});
        std::size_t found = 0;
        for (std::int64_t number = 0; number < state.range(0); ++number)
            found += source.select("message" + std::to_string(number)).size();
        if (found != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("messages are missing");
    }
}

Finding findingAt(std::int64_t number) {
    return {
        Severity::Warning,
        FindingPlace::inMessage("Message" + std::to_string(number / 10), std::to_string(number % 10 + 1), 0),
        "the data item is longer than allowed", "std.item.length"};
}

/// Silences the finding at each of so many places.
Silencings silencingsOf(std::int64_t places) {
    Silencings silencings;
    for (std::int64_t number = 0; number < places; ++number)
        silencings.add(Silencing::placeOf(findingAt(number)));
    return silencings;
}

void SilenceFindings(benchmark::State& state) {
    for (auto _ : state) {
        const Silencings silencings = silencingsOf(state.range(0));
        std::int64_t silenced = 0;
        for (std::int64_t number = 0; number < state.range(0) * 2; ++number)
            silenced += silencings.silences(findingAt(number)) ? 1 : 0;
        if (silenced != state.range(0))
            state.SkipWithError("the wrong findings are silenced");
    }
}

void ReadSilencings(benchmark::State& state) {
    const std::string text = silencingsOf(state.range(0)).text();
    for (auto _ : state) {
        if (!Silencings::parse(text).silences(findingAt(state.range(0) - 1)))
            state.SkipWithError("the last line is not read");
    }
}

BENCHMARK(ReadASetting)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);
BENCHMARK(SetAttributes)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);
BENCHMARK(SelectMessagesByName)->Arg(5'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadSilencings)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);
BENCHMARK(SilenceFindings)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
