#include "unit/console/cli.h"

namespace zb {
namespace {

namespace fs = std::filesystem;

class GenerateVerbTest : public Cli {};

TEST_F(GenerateVerbTest, WritesAPlugInNextToTheProject) {
    const Outcome run = runZbc({"generate", project_});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const std::size_t colon = run.out.find(": ");
    EXPECT_EQ(run.out.substr(0, colon), path("ZeltoPlugIn/cpp"));
    EXPECT_NE(run.out.find(": 2 messages, 0 received and 0 sent transactions, 0 sequences\n"),
              std::string::npos);
    EXPECT_TRUE(fs::exists(path("ZeltoPlugIn/cpp/messages/AreYouThere.h")));
}

TEST_F(GenerateVerbTest, WritesIntoAnotherFolder) {
    EXPECT_EQ(runZbc({"generate", project_, "-o", path("out"), "--lang", "cpp"}).status, 0);
    EXPECT_TRUE(fs::exists(path("out/plug_in.cpp")));
    EXPECT_FALSE(fs::exists(path("ZeltoPlugIn")));
}

TEST_F(GenerateVerbTest, RefusesAFolderThatIsNoPlugIn) {
    fs::create_directories(path("out"));
    write("out/own.txt", "x");
    expectFault({"generate", project_, "-o", path("out")}, 3,
                path("out") + ": cannot be written: the folder holds files that are no plug-in\n");
}

TEST_F(GenerateVerbTest, RefusesLanguagesThatItDoesNotHave) {
    expectFault({"generate", project_, "--lang", "cobol"}, 2,
                "zbc: there is no language cobol, only cpp, csharp and java (see zbc --help)\n");
}

} // namespace
} // namespace zb
