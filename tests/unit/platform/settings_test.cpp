#include "platform/folder_lock.h"
#include "platform/settings.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <future>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace zb {
namespace {

using test::namesIn;
using test::readFile;
using test::TemporaryFolder;
using test::writeFile;
using Names = std::set<std::string>;

void expectRegistryManners(SettingsStore& store) {
    EXPECT_EQ(store.readRegValue(kSettingsKey, "RecentProject"), "");
    store.writeRegValue(kSettingsKey, "RecentProject", "C:\\한글 \"x\"\\a.zbp ");
    store.writeRegValue(kSettingsKey, "SRCGen", "0");
    store.writeRegValue("SOFTWARE\\Other", "SRCGen", "73");
    EXPECT_EQ(store.readRegValue(kSettingsKey, "RecentProject"), "C:\\한글 \"x\"\\a.zbp ");
    EXPECT_EQ(store.readRegValue(kSettingsKey, "SRCGen"), "0");
    EXPECT_EQ(store.readRegValue("SOFTWARE\\Other", "SRCGen"), "73");
    EXPECT_EQ(store.readRegValue(kSettingsKey, "PlugInType"), "");
    store.writeRegValue(kSettingsKey, "RecentProject", "");
    EXPECT_EQ(store.readRegValue(kSettingsKey, "RecentProject"), "");
    EXPECT_EQ(store.stored(kSettingsKey, "RecentProject"), "");
    EXPECT_EQ(store.stored(kSettingsKey, "PlugInType"), std::nullopt);
}

void expectLongValuesToBeForgotten(SettingsStore& store) {
    store.writeRegValue("k", "fits", std::string(255, 'x'));
    store.writeRegValue("k", "long", std::string(256, 'x'));
    EXPECT_EQ(store.readRegValue("k", "fits"), std::string(255, 'x'));
    EXPECT_EQ(store.readRegValue("k", "long"), "");
    EXPECT_EQ(store.stored("k", "long"), std::string(256, 'x'));
    store.writeRegValue("k", "korean", std::string(254, 'x') + "한");
    EXPECT_EQ(store.readRegValue("k", "korean"), std::string(254, 'x') + "한");
    store.setCodePage(CodePage(949));
    EXPECT_EQ(store.readRegValue("k", "korean"), "");
}

void expectOptions(SettingsStore& store) {
    EXPECT_EQ(store.getOption("MessageFormat"), "NotExist");
    EXPECT_EQ(store.storedOption("MessageFormat"), std::nullopt);
    store.setOption("MessageFormat", "mdf");
    EXPECT_EQ(store.getOption("MessageFormat"), "mdf");
    EXPECT_EQ(store.getOption("AnsiCodePage"), "NotExist");
}

TEST(SettingsInMemory, BehaveAsInAFile) {
    SettingsStore store = SettingsStore::inMemory();
    expectRegistryManners(store);
    expectLongValuesToBeForgotten(store);
    expectOptions(store);
}

TEST(SettingsInAFile, OutlastTheStore) {
    const TemporaryFolder folder;
    SettingsStore store(folder / "new/zeltobench");
    expectRegistryManners(store);
    expectLongValuesToBeForgotten(store);
    expectOptions(store);
    EXPECT_EQ(SettingsStore(folder / "new/zeltobench").readRegValue(kSettingsKey, "SRCGen"), "0");
    EXPECT_EQ(SettingsStore(folder / "new/zeltobench").getOption("MessageFormat"), "mdf");
    EXPECT_EQ(namesIn(folder / "new/zeltobench"), Names({"settings.json"}));
}

TEST(SettingsInAFile, AreReadableByPeople) {
    const TemporaryFolder folder;
    SettingsStore store(folder.path());
    store.writeRegValue(kSettingsKey, "SRCGen", "0");
    store.setOption("MessageFormat", "mdf");
    EXPECT_EQ(readFile(folder / "settings.json"),
              "{\n"
              "  \"HKEY_LOCAL_MACHINE\": {\n"
              "    \"SOFTWARE\\\\Halvern Works, Inc.\\\\Zeltorium .NET\\\\Zeltobench\": {\n"
              "      \"SRCGen\": \"0\"\n"
              "    }\n"
              "  },\n"
              "  \"Zeltobench\": {\n"
              "    \"ZeltobenchOption\": {\n"
              "      \"MessageFormat\": \"mdf\"\n"
              "    }\n"
              "  }\n"
              "}\n");
}

TEST(SettingsInAFile, ReadingMakesNothing) {
    const TemporaryFolder folder;
    const SettingsStore store(folder / "config");
    EXPECT_EQ(store.readRegValue("k", "v"), "");
    EXPECT_EQ(store.getOption("v"), "NotExist");
    EXPECT_EQ(namesIn(folder.path()), Names());
}

TEST(SettingsInAFile, KeepWhatOthersWrote) {
    const TemporaryFolder folder;
    SettingsStore first(folder.path());
    SettingsStore second(folder.path());
    first.writeRegValue("k", "a", "1");
    second.writeRegValue("k", "b", "2");
    first.writeRegValue("k", "c", "3");
    EXPECT_EQ(second.readRegValue("k", "a") + second.readRegValue("k", "b") + second.readRegValue("k", "c"),
              "123");
    writeFile(folder / "settings.json", R"({"mine": [1, null], "Zeltobench": {"Other": {"x": 5}}})");
    first.setOption("MessageFormat", "mdf");
    EXPECT_EQ(readFile(folder / "settings.json"),
              "{\n  \"mine\": [\n    1,\n    null\n  ],\n"
              "  \"Zeltobench\": {\n    \"Other\": {\n      \"x\": 5\n    },\n"
              "    \"ZeltobenchOption\": {\n"
              "      \"MessageFormat\": \"mdf\"\n    }\n  }\n}\n");
}

TEST(SettingsInAFile, LoseNothingToProcessesSideBySide) {
    const TemporaryFolder folder;
    constexpr int kProcesses = 4;
    constexpr int kValues = 10;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            SettingsStore store(folder.path());
            for (int value = 0; value < kValues; ++value)
                store.writeRegValue("k", std::to_string(process) + "-" + std::to_string(value), "set");
            ::_exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children)
        ::waitpid(child, nullptr, 0);
    const SettingsStore store(folder.path());
    for (int process = 0; process < kProcesses; ++process) {
        for (int value = 0; value < kValues; ++value) {
            EXPECT_EQ(store.readRegValue("k", std::to_string(process) + "-" + std::to_string(value)), "set")
                << process << '-' << value;
        }
    }
}

class DamagedSettings : public testing::TestWithParam<std::string> {};

TEST_P(DamagedSettings, CountAsEmptyAndAreKept) {
    const TemporaryFolder folder;
    writeFile(folder / "settings.json", GetParam());
    SettingsStore store(folder.path());
    EXPECT_EQ(store.readRegValue("k", "v"), "");
    EXPECT_EQ(store.getOption("v"), "NotExist");
    EXPECT_EQ(readFile(folder / "settings.json"), GetParam());
    store.writeRegValue("k", "v", "1");
    EXPECT_EQ(store.readRegValue("k", "v"), "1");
    EXPECT_EQ(readFile(folder / "settings.json.damaged-1"), GetParam());
    writeFile(folder / "settings.json", GetParam());
    store.writeRegValue("k", "v", "2");
    EXPECT_EQ(store.readRegValue("k", "v"), "2");
    EXPECT_EQ(namesIn(folder.path()),
              Names({"settings.json", "settings.json.damaged-1", "settings.json.damaged-2"}));
}

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedSettings,
    testing::Values("", "{", "[]", "5", "{\"a\": \"\xFF\"}", "{} {}", R"({"HKEY_LOCAL_MACHINE": 5})",
                    R"({"HKEY_LOCAL_MACHINE": {"k": "v"}})", R"({"Zeltobench": {"ZeltobenchOption": []}})",
                    "{\"deep\": " + std::string(100'000, '[') + std::string(100'000, ']') + "}",
                    std::string(100'000, '['), std::string("\0\0\0", 3)));

TEST(SettingsInAFile, SkipValuesThatAreNoText) {
    const TemporaryFolder folder;
    writeFile(folder / "settings.json", R"({"Zeltobench": {"ZeltobenchOption": {"MessageFormat": 5}}})");
    const SettingsStore store(folder.path());
    EXPECT_EQ(store.getOption("MessageFormat"), "NotExist");
}

TEST(SettingsInAFile, ReportAFailedWriteOnStandardError) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "x");
    SettingsStore blocked(folder / "file/config");
    testing::internal::CaptureStderr();
    blocked.writeRegValue("k", "v\x1B[31m", "1");
    const std::string reported = testing::internal::GetCapturedStderr();
    EXPECT_THAT(reported, testing::StartsWith("The setting v?[31m was not saved: Cannot "));
    EXPECT_EQ(std::count(reported.begin(), reported.end(), '\n'), 1);
}

TEST(SettingsInAFile, WaitForAnotherProgramThatWrites) {
    const TemporaryFolder folder;
    SettingsStore store(folder.path());
    auto lock = std::make_unique<FolderLock>(folder.path(), std::chrono::milliseconds(0));
    auto written = std::async(std::launch::async, [&] { store.writeRegValue("k", "v", "1"); });
    // Longer than a second, after which a write was once given up.
    EXPECT_EQ(written.wait_for(std::chrono::milliseconds(1500)), std::future_status::timeout);
    EXPECT_EQ(store.readRegValue("k", "v"), "");
    lock.reset();
    written.get();
    EXPECT_EQ(store.readRegValue("k", "v"), "1");
}

TEST(SettingsInAFile, FailSilently) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "x");
    SettingsStore blocked(folder / "file/config");
    blocked.writeRegValue("k", "v", "1");
    EXPECT_EQ(blocked.readRegValue("k", "v"), "");
    std::filesystem::create_directories(folder / "config/settings.json");
    SettingsStore occupied(folder / "config");
    occupied.writeRegValue("k", "v", "1");
    EXPECT_EQ(occupied.readRegValue("k", "v"), "");
    EXPECT_EQ(namesIn(folder / "config"), Names({"settings.json"}));
}

TEST(SettingsInAFile, TakeBytesThatAreNoText) {
    const TemporaryFolder folder;
    SettingsStore store(folder.path());
    store.writeRegValue("k\xFF", "v\xFF", "x\xFFy");
    EXPECT_EQ(store.readRegValue("k\xFF", "v\xFF"), "x\uFFFDy");
}

// Restores the variables, since other tests share the process.
class SettingsFolder : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"ZELTOBENCH_CONFIG", "XDG_CONFIG_HOME", "HOME"}) {
            const char* const value = std::getenv(name);
            old_.emplace_back(name, value == nullptr ? std::nullopt : std::optional<std::string>(value));
        }
    }
    void TearDown() override {
        for (const auto& [name, value] : old_) {
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
        }
    }
    static void set(const std::string& own, const std::string& config, const std::string& home) {
        ::setenv("ZELTOBENCH_CONFIG", own.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", config.c_str(), 1);
        ::setenv("HOME", home.c_str(), 1);
    }

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> old_;
};

TEST_F(SettingsFolder, IsChosenByTheEnvironment) {
    set("", "", "/home/me");
    EXPECT_EQ(settingsFolder(), "/home/me/.config/zeltobench");
    set("", "/config", "/home/me");
    EXPECT_EQ(settingsFolder(), "/config/zeltobench");
    set("", "config", "/home/me");
    EXPECT_EQ(settingsFolder(), "/home/me/.config/zeltobench");
    set("/own", "/config", "/home/me");
    EXPECT_EQ(settingsFolder(), "/own");
}

} // namespace
} // namespace zb
