// Decoding and encoding the data of messages, in bytes a second.
#include "messages/secs2/item_codec.h"

#include <benchmark/benchmark.h>

namespace zb::bench {
namespace {

/// An event report: a list of groups with texts, numbers and bytes, some 500 bytes.
secs2::Items eventReport() {
    secs2::Items items;
    items.openList();
    for (std::uint64_t group = 0; group < 8; ++group) {
        items.openList();
        items.addValues(secs2::Format::U4);
        items.appendInteger(group);
        items.addText(secs2::Format::Ascii, "Recipe of step 12");
        items.addValues(secs2::Format::Binary);
        for (std::uint64_t byte = 0; byte < 8; ++byte)
            items.appendInteger(byte);
        items.addValues(secs2::Format::F4);
        for (int value = 0; value < 4; ++value)
            items.appendFloat(value * 1.5);
        items.closeList();
    }
    items.closeList();
    return items;
}

void DecodeItems(benchmark::State& state) {
    std::string bytes;
    secs2::encodeItems(eventReport(), bytes);
    secs2::ItemDecoder decoder;
    secs2::Items items;
    for (auto _ : state) {
        if (decoder.decode(bytes, items))
            state.SkipWithError("the message is not read");
        benchmark::DoNotOptimize(items);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void EncodeItems(benchmark::State& state) {
    const secs2::Items items = eventReport();
    std::string bytes;
    for (auto _ : state) {
        bytes.clear();
        if (!secs2::encodeItems(items, bytes))
            state.SkipWithError("the message is not written");
        benchmark::DoNotOptimize(bytes);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

BENCHMARK(DecodeItems);
BENCHMARK(EncodeItems);

} // namespace
} // namespace zb::bench
