#include "platform/text_file.h"
#include "shell/option_settings.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;

/// Notices when anybody opens, reads or runs a file of a folder.
class Watch {
public:
    explicit Watch(const fs::path& folder) : descriptor_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        ::inotify_add_watch(descriptor_, folder.c_str(), IN_OPEN | IN_ACCESS | IN_CREATE | IN_DELETE);
    }
    ~Watch() { ::close(descriptor_); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    bool sawAnything() const {
        std::array<char, 4096> events{};
        return ::read(descriptor_, events.data(), events.size()) > 0;
    }

private:
    int descriptor_;
};

class HostileProject : public testing::Test {
protected:
    HostileProject() {
        fs::create_directories(folder / "traps");
        fs::create_directories(folder / "Line");
        test::writeFile(trap, "#!/bin/sh\ntouch ran\n");
        fs::permissions(trap, fs::perms::owner_all);
        // Wherever a project can hold a text, and where it cannot.
        const std::string path = trap.string();
        test::writeFile(
            project, encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\nGenerator=" + path +
                                 "\r\nRecentProject=" + path + "\r\n## [EDIT SMD]\r\n* <img src=\"" + path +
                                 "\">\r\nM: S1 F1 H->E\r\n    A 9 N '" + path + "'.\r\n###[INCLUDE]\r\n" +
                                 path + "\r\n###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] " + path +
                                 "\r\n  SECSMessage M\r\n  Direction 1\r\n  Condition `" + path +
                                 "`\r\n  TRItem I\r\n" + "    Value $(" + path +
                                 ")\r\n  EndTRItem\r\nEndTRMessage\r\n" +
                                 "###[SEQUENCE TABLE]\r\nSeqName\u00FF" + path + "\u00FF\u00FF\r\n"));
    }

    test::TemporaryFolder folder;
    SystemFileLayer files;
    fs::path trap = folder / "traps/trap.zbp";
    fs::path project = folder / "Line/Line.zbp";
};

TEST_F(HostileProject, TheWatchSeesARead) {
    const Watch watch(folder / "traps");
    EXPECT_FALSE(watch.sawAnything());
    ASSERT_TRUE(readBytes(trap));
    EXPECT_TRUE(watch.sawAnything());
}

TEST_F(HostileProject, NothingThatItNamesIsOpenedOrRun) {
    const Watch watch(folder / "traps");
    test::Program program(files, (folder / "state").string());
    program.application.start(project.string());
    EXPECT_EQ(program.application.ProjectName, "Line");
    program.application.showModeler();
    EXPECT_FALSE(watch.sawAnything());
    EXPECT_FALSE(fs::exists("ran"));
}

TEST_F(HostileProject, NoSettingComesFromIt) {
    test::Program program(files, (folder / "state").string());
    program.application.start(project.string());
    EXPECT_EQ(readSetting(program.settings, kRecentProject), "");
}

} // namespace
} // namespace zb
