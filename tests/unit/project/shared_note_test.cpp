#include "project/shared_note.h"

#include "platform/file_layer.h"
#include "platform/process_start.h"
#include "platform/shared_folder.h"
#include "platform/this_host.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>

namespace zb::test {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct SharedNoteTest : ::testing::Test {
    SharedNote note(bool shared = true) {
        return SharedNote(files, [shared](const fs::path&) { return shared; });
    }
    std::string project() const { return (folder / "Line.zbp").string(); }
    fs::path noteOf(const std::string& host, long process) const {
        return folder / (".Line.zbp." + host + "-" + std::to_string(process) + ".lock");
    }
    /// A program of that machine has written its note so long ago.
    void leaveNote(const std::string& host, long process, std::uint64_t start, std::chrono::seconds ago) {
        const fs::path path = noteOf(host, process);
        writeFile(path, std::to_string(process) + "\n" + std::to_string(start) + "\n" + host + "\n");
        fs::last_write_time(path, fs::file_time_type::clock::now() - ago);
    }

    TemporaryFolder folder;
    SystemFileLayer files;
};

TEST_F(SharedNoteTest, IsBesideTheProjectWhileItIsOpen) {
    {
        SharedNote own = note();
        own.enter(project());
        EXPECT_TRUE(fs::exists(noteOf(hostName(), files.processId())));
        EXPECT_THAT(own.others(), IsEmpty()) << "its own note is none of another program";
    }
    EXPECT_THAT(namesIn(folder.path()), IsEmpty());
}

TEST_F(SharedNoteTest, IsNotWrittenInAFolderOfThisMachine) {
    SharedNote own = note(false);
    own.enter(project());
    EXPECT_THAT(namesIn(folder.path()), IsEmpty());
    EXPECT_THAT(own.others(), IsEmpty());
}

TEST_F(SharedNoteTest, FindsProgramsOfOtherMachines) {
    leaveNote("fab-7", 4711, 1, std::chrono::seconds(30));
    SharedNote own = note();
    own.enter(project());
    EXPECT_THAT(own.others(), ElementsAre(ProjectHolder{"fab-7", 4711}));
}

TEST_F(SharedNoteTest, ForgetsAMachineThatIsSilent) {
    leaveNote("fab-7", 4711, 1, std::chrono::minutes(5));
    SharedNote own = note();
    own.enter(project());
    EXPECT_THAT(own.others(), IsEmpty());
    EXPECT_FALSE(fs::exists(noteOf("fab-7", 4711)));
}

TEST_F(SharedNoteTest, ForgetsAProcessOfThisMachineThatHasEnded) {
    // A process of that number runs, but it began at another time.
    leaveNote(hostName(), 1, processStart(1).value_or(0) + 1, std::chrono::seconds(0));
    SharedNote own = note();
    own.enter(project());
    EXPECT_THAT(own.others(), IsEmpty());
    EXPECT_FALSE(fs::exists(noteOf(hostName(), 1)));
}

TEST_F(SharedNoteTest, FindsAProcessOfThisMachineThatRuns) {
    ASSERT_TRUE(processStart(1).has_value());
    leaveNote(hostName(), 1, *processStart(1), std::chrono::hours(5));
    SharedNote own = note();
    own.enter(project());
    EXPECT_THAT(own.others(), ElementsAre(ProjectHolder{hostName(), 1}));
}

TEST_F(SharedNoteTest, LeavesOtherFilesAlone) {
    writeFile(folder / ".Line.zbp.odd.lock", "not a note");
    writeFile(folder / ".Other.zbp.fab-7-1.lock", "1\n1\nfab-7\n");
    SharedNote own = note();
    own.enter(project());
    EXPECT_THAT(own.others(), IsEmpty());
    EXPECT_TRUE(fs::exists(folder / ".Line.zbp.odd.lock"));
    EXPECT_TRUE(fs::exists(folder / ".Other.zbp.fab-7-1.lock"));
}

TEST_F(SharedNoteTest, AProcessIsNamedByItsNumberAndStart) {
    EXPECT_TRUE(processStart(files.processId()).has_value());
    EXPECT_EQ(processStart(files.processId()), processStart(files.processId()));
    EXPECT_FALSE(processStart(0).has_value());
    EXPECT_FALSE(isSharedFolder("/proc"));
    EXPECT_FALSE(isSharedFolder("/no/such/folder"));
}

} // namespace
} // namespace zb::test
