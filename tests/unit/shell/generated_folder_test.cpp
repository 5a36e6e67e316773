#include "shell/generated_folder.h"

#include "unit/shell/program.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

namespace fs = std::filesystem;

/// A screen that opens folders.
class OpeningScreen final : public Screen {
public:
    std::vector<std::string> opened;
    bool opens = true;

    Answer showBox(const Box& /*box*/) override { return Answer::OK; }
    std::string pickFile(const FileDialog& /*dialog*/) override { return {}; }
    void runModal(Window& /*window*/) override {}
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}
    bool openFile(const std::string& path) override {
        opened.push_back(path);
        return opens;
    }
};

class GeneratedFolderTest : public testing::Test {
protected:
    GeneratedFolderTest() { fs::create_directories(folder_); }

    test::TemporaryFolder temporary_;
    fs::path folder_ = temporary_ / "ZeltoPlugIn/cpp";
    OpeningScreen screen_;
    SystemFileLayer files_;
    SettingsStore settings_ = SettingsStore::inMemory();
    test::FixedGenerator generator_;
    Application application_{screen_, settings_, files_, generator_, {"/", {}}};
    GeneratedFolder& shown_ = application_.generatedFolder;
};

TEST_F(GeneratedFolderTest, IsOpenedByTheNoticeAndByTheResult) {
    shown_.show("A remark.\r\nWritten: " + folder_.string() + "\r\n  plug_in.h");
    auto& strip = application_.frmWorkbench.notices;
    EXPECT_EQ(strip.lblNotice.text(), "The plug-in is in ZeltoPlugIn/cpp");
    shown_.mnuOpenGenerated.onClick();
    EXPECT_EQ(screen_.opened, std::vector<std::string>{folder_.string()});
    const KeyCommand* key = application_.desktop.keys().find(
        application_.frmResult, &application_.frmResult.rtbResult, {kKeyEnter, kControlKey});
    ASSERT_NE(key, nullptr);
    EXPECT_TRUE(key->run());
    EXPECT_EQ(screen_.opened.size(), 2U);
}

TEST_F(GeneratedFolderTest, SaysThatNothingOpensIt) {
    screen_.opens = false;
    shown_.show("Written: " + folder_.string());
    shown_.mnuOpenGenerated.onClick();
    EXPECT_EQ(application_.frmWorkbench.notices.lblNotice.text(),
              "No program on this system opens ZeltoPlugIn/cpp");
}

TEST_F(GeneratedFolderTest, IsNotOfferedWhenThereIsNone) {
    shown_.show("Written: " + folder_.string());
    shown_.show("Written: " + (temporary_ / "Other").string());
    shown_.mnuGeneratedMore.onOpen();
    EXPECT_FALSE(shown_.mnuOpenGenerated.enabled());
    EXPECT_EQ(application_.frmWorkbench.notices.lblNotice.text(), "");
}

} // namespace
} // namespace zb
