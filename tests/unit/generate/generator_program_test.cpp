#include "generate/generator_program.h"
#include "platform/code_page.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace zb::generate {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class GeneratorProgram : public testing::Test {
protected:
    GeneratorProgram() {
        fs::copy_file(ZB_SOURCE_FOLDER "/examples/etcher/Etcher.zbp", project());
        set(kPlugInType, "1");
        set(kSrcGen, "73");
    }
    std::string project() const { return (temporary_ / "Etcher.zbp").string(); }
    void set(std::string_view name, std::string_view value) {
        settings_.writeRegValue(kSettingsKey, name, value);
    }
    int run(const std::vector<std::string>& arguments) {
        std::ostringstream out;
        const int status = runGeneratorProgram(arguments, settings_, CodePage(1252), out);
        text_ = out.str();
        return status;
    }
    bool isWritten(const std::string& language) const {
        return fs::exists(temporary_ / ("ZeltoPlugIn/" + language + "/README.md"));
    }

    test::TemporaryFolder temporary_;
    SettingsStore settings_ = SettingsStore::inMemory();
    std::string text_;
};

TEST_F(GeneratorProgram, WritesCppInPlaceOfActiveX) {
    EXPECT_EQ(run({project()}), 0);
    EXPECT_TRUE(isWritten("cpp"));
    EXPECT_THAT(text_,
                HasSubstr("ActiveX is not offered by this generator; the plug-in is written in C++20.\n"));
    EXPECT_THAT(text_, HasSubstr("Written: " + (temporary_ / "ZeltoPlugIn/cpp").string() + "\n"));
    EXPECT_THAT(text_, HasSubstr("55 messages, 15 received and 14 sent transactions, 3 sequences\n"));
    EXPECT_THAT(text_, HasSubstr("  plug_in.h\n"));
    EXPECT_THAT(text_, HasSubstr("  messages/ (55 files)\n"));
}

TEST_F(GeneratorProgram, WritesTheLanguageOfTheSetting) {
    set(kPlugInType, "4");
    EXPECT_EQ(run({project()}), 0);
    EXPECT_TRUE(isWritten("java"));
    EXPECT_THAT(text_, testing::StartsWith("Written: "));
    set(kPlugInType, "5");
    EXPECT_EQ(run({project()}), 0);
    EXPECT_TRUE(isWritten("csharp"));
    EXPECT_THAT(text_, testing::StartsWith("Written: "));
}

TEST_F(GeneratorProgram, DescribesItself) {
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_THAT(text_, testing::StartsWith("Usage: ZeltoGenerator PROJECT.zbp\n"));
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_THAT(text_, testing::MatchesRegex("ZeltoGenerator [0-9.]+\n"));
}

TEST_F(GeneratorProgram, SaysWhatItWouldWriteWithoutTheOption) {
    set(kSrcGen, "1");
    EXPECT_EQ(run({project()}), 0);
    EXPECT_FALSE(isWritten("cpp"));
    EXPECT_THAT(text_, HasSubstr("Would be written, with the option Generate Source: "));
}

TEST_F(GeneratorProgram, ReportsWhatItCannotRead) {
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(run({(temporary_ / "None.zbp").string()}), 3);
    test::writeFile(temporary_ / "No.zbp", "no project");
    EXPECT_EQ(run({(temporary_ / "No.zbp").string()}), 1);
    fs::create_directories(temporary_ / "ZeltoPlugIn/cpp");
    test::writeFile(temporary_ / "ZeltoPlugIn/cpp/own.txt", "x");
    EXPECT_EQ(run({project()}), 3);
    EXPECT_THAT(text_, HasSubstr("cannot be written: the folder holds files that are no plug-in\n"));
}

} // namespace
} // namespace zb::generate
