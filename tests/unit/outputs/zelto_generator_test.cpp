#include "outputs/zelto_generator.h"
#include "platform/settings.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <poll.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;
using Success = ZeltoGenerator::Success;
using Words = std::vector<std::string>;

TEST(CommandWords, AreNoShells) {
    EXPECT_EQ(commandWords(""), Words{});
    EXPECT_EQ(commandWords(" \t "), Words{});
    EXPECT_EQ(commandWords(" gen  --a\tb "), (Words{"gen", "--a", "b"}));
    EXPECT_EQ(commandWords(R"("/a b/gen" --x="1 2" "")"), (Words{"/a b/gen", "--x=1 2", ""}));
    EXPECT_EQ(commandWords(R"("a\"b\\c" d\e)"), (Words{R"(a"b\c)", R"(d\e)"}));
    EXPECT_EQ(commandWords("gen $HOME *.x; 'a b' | c"),
              (Words{"gen", "$HOME", "*.x;", "'a", "b'", "|", "c"}));
    EXPECT_EQ(commandWords("\"gen a"), Words{"gen a"});
}

// Generators are shell scripts that the test writes.
class GeneratorRun : public testing::Test {
protected:
    GeneratorRun() { set("GeneratorTimeLimit", "60"); }

    void set(std::string_view name, const std::string& value) {
        settings_.writeRegValue(kSettingsKey, name, value);
    }

    std::string script(const std::string& name, const std::string& body) {
        const fs::path path = folder_ / name;
        test::writeFile(path, "#!/bin/sh\n" + body + "\n");
        fs::permissions(path, fs::perms::owner_all);
        return path.string();
    }

    std::string run(const std::string& body) {
        set("GeneratorCommand", "\"" + script("my gen", body) + "\"");
        return generate();
    }

    std::string generate() {
        const auto start = std::chrono::steady_clock::now();
        std::string text = generator_.generate("/p/Line.zbp");
        seconds_ = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return text;
    }

    // The process that inherits it may need a moment to reap it.
    static void expectEnded(const std::string& pidFile) {
        const std::string pid = test::readFile(pidFile);
        ASSERT_FALSE(pid.empty());
        const std::string statFile = "/proc/" + std::to_string(std::stol(pid)) + "/stat";
        const auto ended = [&] {
            const std::string stat = test::readFile(statFile);
            return stat.empty() || stat.find(") Z") != std::string::npos;
        };
        for (int tries = 0; tries < 500 && !ended(); ++tries)
            ::poll(nullptr, 0, 10);
        EXPECT_TRUE(ended()) << test::readFile(statFile);
    }

    test::TemporaryFolder folder_;
    SettingsStore settings_ = SettingsStore::inMemory();
    int turns_ = 0;
    std::string watched_;
    std::string stopAt_;
    ZeltoGenerator generator_{settings_, [this](const std::string& lines) {
                                  ++turns_;
                                  watched_ += lines.empty() ? "" : lines + "|";
                                  return stopAt_.empty() || watched_.find(stopAt_) == std::string::npos;
                              }};
    double seconds_ = 0;
};

TEST_F(GeneratorRun, GivesWhatItSays) {
    EXPECT_EQ(run("echo one; echo two >&2; printf 'three\\r\\nfour\\n\\n'"), "one\r\ntwo\r\nthree\r\nfour");
    EXPECT_EQ(generator_.success(), Success::Yes);
}

TEST_F(GeneratorRun, IsFoundNextToTheProgramWhenNobodyNamesOne) {
    script("ZeltoGenerator", "echo \"of the program: $1\"");
    const char* const path = std::getenv("PATH");
    const std::string former = path == nullptr ? "" : path;
    setenv("PATH", "/nonexistent", 1);
    ZeltoGenerator beside(settings_, {}, folder_.path());
    const std::string text = beside.generate("/p/Line.zbp");
    set("GeneratorCommand", "NoSuchGenerator");
    const std::string named = beside.generate("/p/Line.zbp");
    setenv("PATH", former.c_str(), 1);
    EXPECT_EQ(text, "of the program: /p/Line.zbp");
    EXPECT_EQ(named.find("The generator NoSuchGenerator cannot be started: "), 0U);
}

TEST_F(GeneratorRun, GetsItsArgumentsAndTheProjectFile) {
    set("GeneratorCommand",
        "\"" + script("my gen", "for a in \"$@\"; do echo \"<$a>\"; done") + "\" --kind \"a b\" $HOME");
    EXPECT_EQ(generate(), "<--kind>\r\n<a b>\r\n<$HOME>\r\n</p/Line.zbp>");
}

TEST_F(GeneratorRun, FindsTheProgramOnThePath) {
    script("ZeltoGenerator", "echo found $1");
    const char* old = std::getenv("PATH");
    const std::string path = old == nullptr ? "" : old;
    ::setenv("PATH", (folder_.path().string() + ":" + path).c_str(), 1);
    EXPECT_EQ(generate(), "found /p/Line.zbp");
    ::setenv("PATH", path.c_str(), 1);
}

TEST_F(GeneratorRun, ReportsThatThereIsNone) {
    EXPECT_EQ(generate(),
              "There is no generator of driver plug-ins: the setting GeneratorCommand names none, "
              "and no program ZeltoGenerator is on the path.");
    EXPECT_EQ(generator_.success(), Success::NotStarted);
}

TEST_F(GeneratorRun, ReportsWhyItCannotBeStarted) {
    const std::string missing = (folder_ / "none").string();
    set("GeneratorCommand", missing);
    EXPECT_EQ(generate(), "The generator " + missing + " cannot be started: No such file or directory");
    test::writeFile(missing, "echo no");
    EXPECT_EQ(generate(), "The generator " + missing + " cannot be started: Permission denied");
    fs::permissions(missing, fs::perms::owner_all);
    EXPECT_EQ(generate(), "The generator " + missing + " cannot be started: Exec format error");
    set("GeneratorCommand", "\"\"");
    EXPECT_EQ(generate(), "The generator  cannot be started: No such file or directory");
    EXPECT_EQ(generator_.success(), Success::NotStarted);
}

TEST_F(GeneratorRun, ReportsItsExitStatus) {
    EXPECT_EQ(run("echo no licence; exit 7"), "no licence\r\nThe generator failed with exit status 7.");
    EXPECT_EQ(generator_.success(), Success::Failed);
    EXPECT_EQ(run("exit 3"), "The generator failed with exit status 3.");
}

TEST_F(GeneratorRun, ReportsTheSignalThatEndedIt) {
    EXPECT_EQ(run("echo oops; kill -SEGV $$"),
              "oops\r\nThe generator was ended by signal 11 (Segmentation fault).");
    EXPECT_EQ(generator_.success(), Success::Failed);
}

TEST_F(GeneratorRun, ReportsThatItSaidNothing) {
    EXPECT_EQ(run("exit 0"), "The generator has ended well and said nothing.");
    EXPECT_EQ(generator_.success(), Success::Yes);
}

TEST_F(GeneratorRun, IsEndedWithItsChildrenWhenItTakesTooLong) {
    set("GeneratorTimeLimit", "1");
    const std::string pidFile = (folder_ / "pid").string();
    EXPECT_EQ(run("echo begun; sleep 300 & echo $! >" + pidFile + "; wait"),
              "begun\r\nThe generator was ended because it ran for more than 1 second.");
    EXPECT_EQ(generator_.success(), Success::Failed);
    EXPECT_LT(seconds_, 20);
    expectEnded(pidFile);
}

TEST_F(GeneratorRun, IsEndedWhenTheProgramIs) {
    const std::string pidFile = (folder_ / "pid").string();
    EXPECT_EXIT(run("sleep 300 & echo $! >" + pidFile + "; kill -INT $PPID; wait"),
                testing::KilledBySignal(SIGINT), "");
    expectEnded(pidFile);
}

TEST_F(GeneratorRun, IsKilledWhenItDoesNotListen) {
    set("GeneratorTimeLimit", "1");
    EXPECT_EQ(run("trap '' TERM; while :; do sleep 0.1; done"),
              "The generator was ended because it ran for more than 1 second.");
    EXPECT_LT(seconds_, 30);
}

TEST_F(GeneratorRun, OfEndlessOutputIsEndedToo) {
    set("GeneratorTimeLimit", "1");
    const std::string text = run("yes");
    EXPECT_THAT(text, testing::StartsWith("y\r\ny\r\n"));
    EXPECT_THAT(text, testing::ContainsRegex("\\.\\.\\. [0-9]+ more bytes are not shown\\.\r\n"));
    EXPECT_THAT(text, testing::EndsWith("The generator was ended because it ran for more than 1 second."));
    EXPECT_LT(seconds_, 30);
}

TEST_F(GeneratorRun, IsCutWhenItPrintsMegabytes) {
    const std::string text = run("head -c 5000000 /dev/zero | tr '\\0' x");
    EXPECT_EQ(text, std::string(1048576, 'x') + "\r\n... 3951424 more bytes are not shown.");
    EXPECT_EQ(generator_.success(), Success::Yes);
}

TEST_F(GeneratorRun, IsCutBetweenCharacters) {
    // one byte, then characters of three: the cut is inside one
    const std::string text = run("printf x; yes 한 | head -n 400000 | tr -d '\\n'");
    EXPECT_EQ(text.find("\xEF\xBF\xBD"), std::string::npos);
    EXPECT_THAT(text, testing::StartsWith("x한한"));
    EXPECT_THAT(text, testing::ContainsRegex("한\r\n\\.\\.\\. "));
}

TEST_F(GeneratorRun, MaySpeakInTheAnsiCodePage) {
    set("AnsiCodePage", "949");
    EXPECT_EQ(run("printf '\\307\\321\\261\\333'"), "한글");
    set("AnsiCodePage", "1252");
    EXPECT_EQ(run("printf 'caf\\351'"), "café");
    EXPECT_EQ(run("printf '한글'"), "한글");
}

TEST_F(GeneratorRun, SteersNoTerminal) {
    EXPECT_EQ(run("printf 'a\\033[31mb\\0c\\td\\r50%%\\r60%%'"), "a [31mb c\td\r\n50%\r\n60%");
}

TEST_F(GeneratorRun, HasNothingToRead) {
    EXPECT_EQ(run("cat; read x || echo end"), "end");
}

TEST_F(GeneratorRun, ThatClosesItsOutputIsWaitedFor) {
    const std::string file = (folder_ / "late").string();
    EXPECT_EQ(run("echo hi; exec >&- 2>&-; sleep 0.5; : >" + file + "; exit 4"),
              "hi\r\nThe generator failed with exit status 4.");
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(GeneratorRun, IsNotWaitedForByItsChildren) {
    EXPECT_EQ(run("sleep 30 & echo hi"), "hi");
    EXPECT_LT(seconds_, 15);
}

TEST_F(GeneratorRun, KeepsTheCallerAlive) {
    run("sleep 0.5");
    EXPECT_GT(turns_, 5);
}

TEST_F(GeneratorRun, ShowsItsLinesWhileItRuns) {
    stopAt_ = "never";
    run("echo one; sleep 0.2; printf 'two\\nthr'; sleep 0.2; echo ee; sleep 0.2");
    EXPECT_EQ(watched_, "one|two|three|");
}

TEST_F(GeneratorRun, IsStoppedWithItsChildren) {
    const std::string file = (folder_ / "pid").string();
    stopAt_ = "started";
    EXPECT_EQ(run("sleep 60 & echo $! >" + file + "; echo started; wait; echo done"),
              "started\r\nThe generator was stopped.");
    EXPECT_LT(seconds_, 15);
    EXPECT_EQ(generator_.success(), Success::Failed);
    expectEnded(file);
}

TEST_F(GeneratorRun, StartsWithOrdinarySignals) {
    const auto old = std::signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(run("kill -PIPE $$; echo survived"), "The generator was ended by signal 13 (Broken pipe).");
    std::signal(SIGPIPE, old);
}

TEST_F(GeneratorRun, TakesAnOddTimeLimitForTheUsualOne) {
    for (const char* limit : {"", "soon", "0", "-5", "1e99"}) {
        set("GeneratorTimeLimit", limit);
        EXPECT_EQ(run("sleep 0.1; echo ok"), "ok") << limit;
    }
}

} // namespace
} // namespace zb
