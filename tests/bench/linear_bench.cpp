// What must grow in proportion to its input, however much of it there is: each row at one size and at twice
// that size.
#include "console/message_source.h"
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

BENCHMARK(ReadASetting)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);
BENCHMARK(SetAttributes)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);
BENCHMARK(SelectMessagesByName)->Arg(5'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
