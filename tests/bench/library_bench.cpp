// Reading message libraries of 10,000 messages, about 10 MB: the cost between the file dialog and the list.
#include "messages/library_store.h"
#include "messages/smd/smd_text.h"
#include "messages/sml_text.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace zb::bench {
namespace {

/// Messages as in manuals: a list of groups, with texts, numbers and bytes, about 1,000 bytes each.
std::string libraryText(std::size_t messages) {
    std::ostringstream text;
    for (std::size_t i = 0; i < messages; ++i) {
        text << "* Message number " << i << " of the list\r\nMessage" << i << ": S" << i % 127 + 1 << " F"
             << i % 127 * 2 + 1 << " W H->E\r\n    L 3\r\n        U4 1 DATAID " << i
             << "\r\n        A 20V LOTID 'Lot-" << i << "'\r\n        L 6\r\n";
        for (std::size_t group = 0; group < 6; ++group)
            text << "            L 4\r\n                U2 1 RPTID" << group << " " << i % 10'000
                 << "\r\n                A 16 PPID" << group << " 'Recipe of step " << group
                 << "'\r\n                B 3 STATE" << group << " 0 31 255\r\n                F4 3 VALUE"
                 << group << " 1.5 -2.25 1E+03" << (group == 5 ? ".\r\n" : "\r\n");
    }
    return text.str();
}

/// Messages of some 90 bytes in SML, of which a file has very many.
std::string smallMessages(std::size_t messages) {
    std::string text;
    for (std::size_t i = 0; i < messages; ++i) {
        text.append("Msg").append(std::to_string(i)).append(": S").append(std::to_string(i % 127 + 1));
        text.append("F")
            .append(std::to_string(i % 127 * 2 + 1))
            .append(" W // H->E\r\n  <L[2]\r\n    <U4[1] ");
        text.append(std::to_string(i % 1000))
            .append("> // CEID\r\n    <A[3] \"abc\"> // NAM\r\n  >\r\n.\r\n");
    }
    return text;
}

/// A file of the format in a separate folder.
struct LibraryFile {
    LibraryFile(std::int64_t messages, int format) {
        SECSLibraryStore store{CodePage(1252)};
        store.load(libraryText(static_cast<std::size_t>(messages)), kFormatGem);
        const std::string text = format == kFormatSml ? composeSml(store.getMessages())
                                                      : composeSmd(store.getMessages(), SmdForm::Build);
        bytes = text.size();
        test::writeFile(path, text);
    }

    test::TemporaryFolder folder;
    std::filesystem::path path = folder / "library";
    std::size_t bytes = 0;
};

void readLibrary(benchmark::State& state, int format) {
    const LibraryFile file(state.range(0), format);
    std::size_t messages = 0;
    for (auto _ : state) {
        SECSLibraryStore store{CodePage(1252)};
        if (!store.load(file.path.string(), format).empty())
            state.SkipWithError("the library is not read");
        messages = store.getMessages().size();
    }
    if (messages != static_cast<std::size_t>(state.range(0)))
        state.SkipWithError("messages are missing");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.bytes));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ReadSmallSmlMessages(benchmark::State& state) {
    const test::TemporaryFolder folder;
    const std::string text = smallMessages(static_cast<std::size_t>(state.range(0)));
    const std::filesystem::path path = folder / "library.sml";
    test::writeFile(path, text);
    for (auto _ : state) {
        SECSLibraryStore store{CodePage(1252)};
        store.load(path.string(), kFormatSml);
        if (store.getMessages().size() != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("messages are missing");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ReadSmdLibrary(benchmark::State& state) {
    readLibrary(state, kFormatSmd);
}

void ReadSmlLibrary(benchmark::State& state) {
    readLibrary(state, kFormatSml);
}

BENCHMARK(ReadSmdLibrary)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadSmlLibrary)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadSmallSmlMessages)->Arg(40'000)->Arg(80'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zb::bench
