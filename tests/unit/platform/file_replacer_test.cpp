#include "platform/file_replacer.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ended_process.h"
#include "support/temporary_folder.h"
#include "unit/platform/faulty_file_layer.h"

namespace zb {
namespace {

namespace fs = std::filesystem;
using test::FaultyFileLayer;
using test::namesIn;
using test::readFile;
using test::TemporaryFolder;
using test::writeFile;
using Names = std::set<std::string>;

unsigned modeOf(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(FileReplacer, WritesNewAndOldFiles) {
    const TemporaryFolder folder;
    const std::string large(300'000, 'x');
    EXPECT_TRUE(replaceFile(folder / "a.zbp", "first").ok());
    EXPECT_EQ(readFile(folder / "a.zbp"), "first");
    EXPECT_TRUE(replaceFile(folder / "a.zbp", large).ok());
    EXPECT_EQ(readFile(folder / "a.zbp"), large);
    EXPECT_TRUE(replaceFile(folder / "a.zbp", "").ok());
    EXPECT_EQ(readFile(folder / "a.zbp"), "");
    EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp"}));
}

TEST(FileReplacer, ACancelledWriteLeavesTheOldFile) {
    const TemporaryFolder folder;
    writeFile(folder / "a.smd", "old");
    LongWork cancelled;
    cancelled.cancel();
    SystemFileLayer files;
    EXPECT_THROW(static_cast<void>(replaceFile(files, folder / "a.smd", "new", Progress(cancelled))),
                 Cancelled);
    EXPECT_EQ(readFile(folder / "a.smd"), "old");
    EXPECT_EQ(namesIn(folder.path()), Names({"a.smd"}));
}

TEST(FileReplacer, WritesRelativePaths) {
    const TemporaryFolder folder;
    const fs::path relative = fs::proximate(folder / "a.zbp");
    EXPECT_TRUE(replaceFile(relative, "x").ok());
    EXPECT_EQ(readFile(folder / "a.zbp"), "x");
}

TEST(FileReplacer, TakesTheLongestNames) {
    const TemporaryFolder folder;
    std::string name;
    for (int i = 0; i < 85; ++i)
        name += "한";
    ASSERT_EQ(name.size(), 255U);
    EXPECT_TRUE(replaceFile(folder / name, "x").ok());
    EXPECT_EQ(namesIn(folder.path()), Names({name}));
}

struct Fault {
    std::string call;
    int number;
    std::string what;
};

class FileReplacerFault : public testing::TestWithParam<Fault> {};

TEST_P(FileReplacerFault, LeavesTheOldBytesAndNoLitter) {
    const TemporaryFolder folder;
    writeFile(folder / "real.zbp", "old");
    fs::permissions(folder / "real.zbp", fs::perms(0640));
    fs::create_symlink("real.zbp", folder / "a.zbp");
    FaultyFileLayer layer(GetParam().call, GetParam().number);
    const Result<void> result = replaceFile(layer, folder / "a.zbp", "new bytes");
    ASSERT_FALSE(result.ok());
    EXPECT_GT(layer.faults(), 0);
    EXPECT_EQ(result.error().number, GetParam().number);
    EXPECT_THAT(result.error().description,
                testing::StartsWith("Cannot " + GetParam().what + " " + folder.path().string()));
    EXPECT_THAT(result.error().description, testing::EndsWith(": " + describeSystemError(GetParam().number)));
    EXPECT_EQ(readFile(folder / "real.zbp"), "old");
    EXPECT_EQ(modeOf(folder / "real.zbp"), 0640U);
    EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp", "real.zbp"}));
}

INSTANTIATE_TEST_SUITE_P(
    Calls, FileReplacerFault,
    testing::Values(Fault{"status", EACCES, "write"}, Fault{"readLink", EIO, "follow the link"},
                    Fault{"checkWritable", EACCES, "write"}, Fault{"create", EROFS, "create"},
                    Fault{"write", EIO, "write"}, Fault{"laterWrite", ENOSPC, "write"},
                    Fault{"nothingWritten", ENOSPC, "write"}, Fault{"statusOf", EIO, "read the mode of"},
                    Fault{"setMode", EPERM, "set the mode of"}, Fault{"sync", EIO, "write"},
                    Fault{"close", EDQUOT, "write"}, Fault{"rename", EACCES, "replace"}),
    [](const auto& fault) { return fault.param.call; });

TEST(FileReplacer, DoesNotNeedEveryCall) {
    for (const char* call : {"syncFolder", "names", "setOwner"}) {
        const TemporaryFolder folder;
        writeFile(folder / "a.zbp", "old");
        FaultyFileLayer layer(call, EINVAL);
        EXPECT_TRUE(replaceFile(layer, folder / "a.zbp", "new").ok()) << call;
        EXPECT_EQ(readFile(folder / "a.zbp"), "new") << call;
        EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp"})) << call;
    }
}

TEST(FileReplacer, SurvivesAShortWrite) {
    const TemporaryFolder folder;
    const fs::path path = folder / "a.zbp";
    writeFile(path, "old");
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        const bool limited = ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
        const Result<void> result = replaceFile(path, std::string(5000, 'x'));
        ::_exit(limited && !result.ok() && result.error().number == EFBIG ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp"}));
}

// Runs as a user without rights to the folder; an administrator gives up its own first.
TEST(FileReplacer, LeavesAReadOnlyFolderAlone) {
    const TemporaryFolder folder;
    const fs::path path = folder / "a.zbp";
    writeFile(path, "old");
    fs::permissions(path, fs::perms(0666));
    fs::permissions(folder.path(), fs::perms(0555));
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        const bool lowered = ::geteuid() != 0 || ::setuid(kNobody) == 0;
        const Result<void> result = replaceFile(path, "new");
        ::_exit(lowered && !result.ok() && result.error().number == EACCES ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp"}));
}

TEST(FileReplacer, RefusesWhatIsNoFile) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "a.zbp");
    writeFile(folder / "a.zbp/inside", "kept");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(replaceFile(folder / "a.zbp", "new").error().number, EISDIR);
    EXPECT_EQ(replaceFile(folder / "pipe", "new").error().number, EINVAL);
    EXPECT_EQ(replaceFile(folder / "gone/a.zbp", "new").error().number, ENOENT);
    EXPECT_EQ(replaceFile("", "new").error().number, ENOENT);
    EXPECT_EQ(readFile(folder / "a.zbp/inside"), "kept");
    EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp", "pipe"}));
}

TEST(FileReplacer, FollowsLinks) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "far");
    writeFile(folder / "far/real.zbp", "old");
    fs::create_symlink("far/real.zbp", folder / "second");
    fs::create_symlink(folder / "second", folder / "first");
    fs::create_symlink("far/new.zbp", folder / "dangling");
    EXPECT_TRUE(replaceFile(folder / "first", "new").ok());
    EXPECT_TRUE(replaceFile(folder / "dangling", "made").ok());
    EXPECT_EQ(readFile(folder / "far/real.zbp"), "new");
    EXPECT_EQ(readFile(folder / "far/new.zbp"), "made");
    EXPECT_TRUE(fs::is_symlink(folder / "first"));
    EXPECT_TRUE(fs::is_symlink(folder / "second"));
    EXPECT_EQ(namesIn(folder / "far"), Names({"new.zbp", "real.zbp"}));
    EXPECT_EQ(namesIn(folder.path()), Names({"dangling", "far", "first", "second"}));
}

TEST(FileReplacer, EndsOnLinksInACircle) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(replaceFile(folder / "a", "new").error().number, ELOOP);
    EXPECT_EQ(namesIn(folder.path()), Names({"a", "b"}));
}

TEST(FileReplacer, KeepsTheMode) {
    const TemporaryFolder folder;
    for (const unsigned mode : {0600U, 0664U, 0755U, 0666U}) {
        writeFile(folder / "a.zbp", "old");
        fs::permissions(folder / "a.zbp", fs::perms(mode));
        EXPECT_TRUE(replaceFile(folder / "a.zbp", "new").ok());
        EXPECT_EQ(modeOf(folder / "a.zbp"), mode);
    }
}

TEST(FileReplacer, GivesNewFilesTheUsualMode) {
    const TemporaryFolder folder;
    writeFile(folder / "usual", "x");
    EXPECT_TRUE(replaceFile(folder / "a.zbp", "x").ok());
    EXPECT_EQ(modeOf(folder / "a.zbp"), modeOf(folder / "usual"));
}

TEST(FileReplacer, ClearsWhatAKilledProcessLeft) {
    const TemporaryFolder folder;
    const std::string dead = test::endedProcess();
    const std::string alive = ".a.zbp.zbtmp-" + std::to_string(::getppid());
    const std::string own = ".a.zbp.zbtmp-" + std::to_string(::getpid());
    const Names kept{alive, ".b.zbp.zbtmp-" + dead, ".a.zbp.zbtmp-", ".a.zbp.zbtmp-12x", ".a.zbp.zbtmp--3"};
    for (const std::string& name : kept)
        writeFile(folder / name, "kept");
    writeFile(folder / (".a.zbp.zbtmp-" + dead), "stale");
    writeFile(folder / own, "stale");
    EXPECT_TRUE(replaceFile(folder / "a.zbp", "new").ok());
    Names expected = kept;
    expected.insert("a.zbp");
    EXPECT_EQ(namesIn(folder.path()), expected);
}

TEST(FileLayer, MakesOneLevelOfFolders) {
    const TemporaryFolder folder;
    SystemFileLayer layer;
    EXPECT_TRUE(layer.makeFolder(folder / "one", 0700).ok());
    EXPECT_TRUE(fs::is_directory(folder / "one"));
    EXPECT_EQ(modeOf(folder / "one"), 0700U);
    EXPECT_EQ(layer.makeFolder(folder / "two/three", 0777).error(),
              (FileError{ENOENT, "No such file or directory"}));
    EXPECT_EQ(layer.makeFolder(folder / "one", 0777).error().number, EEXIST);
    EXPECT_FALSE(layer.remove(folder / "one").ok());
}

} // namespace
} // namespace zb
