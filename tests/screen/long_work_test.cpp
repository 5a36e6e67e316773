#include "bench/generated_project.h"
#include "platform/setting_names.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace zb::test {
namespace {

using Work = std::function<void(const Progress&)>;

QDialog* progressDialog() {
    const QWidgetList tops = QApplication::topLevelWidgets();
    for (QWidget* top : tops) {
        if (top->objectName() == QLatin1String("progress") && top->isVisible())
            return qobject_cast<QDialog*>(top);
    }
    return nullptr;
}

/// Looks at the windows again and again while the event loop runs.
class Onlooker {
public:
    /// Acts on the dialog at each look at it.
    explicit Onlooker(std::function<void(QDialog&)> act) : act_(std::move(act)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { look(); });
        constexpr int kOften = 5; // ms
        timer_.start(kOften);
    }

    bool sawDialog() const { return saw_; }
    int looks() const { return looks_; }

private:
    void look() {
        ++looks_;
        QDialog* dialog = progressDialog();
        if (dialog == nullptr)
            return;
        saw_ = true;
        act_(*dialog);
    }

    std::function<void(QDialog&)> act_;
    QTimer timer_;
    bool saw_ = false;
    int looks_ = 0;
};

void pressCancel(QDialog& dialog) {
    dialog.findChild<QPushButton*>()->click();
}

void runUntilCancelled(const Progress& progress) {
    for (;;) {
        progress.at(1, 2);
        std::this_thread::yield();
    }
}

struct LongWorkOnScreen : ::testing::Test {
    LongWorkOnScreen() {
        program.application.start("");
        program.settle();
    }
    ProgramOnScreen program{"/"};
};

TEST_F(LongWorkOnScreen, AShortWorkShowsNothing) {
    bool done = false;
    Onlooker onlooker([](QDialog& /*dialog*/) {});
    EXPECT_TRUE(program.screen.doLongWork("Opening", [&](const Progress& /*progress*/) { done = true; }));
    EXPECT_TRUE(done);
    EXPECT_EQ(onlooker.looks(), 0);
}

TEST_F(LongWorkOnScreen, TheCancelButtonEndsTheWork) {
    Onlooker onlooker(pressCancel);
    EXPECT_FALSE(program.screen.doLongWork("Opening", runUntilCancelled));
    EXPECT_TRUE(onlooker.sawDialog());
    EXPECT_EQ(progressDialog(), nullptr);
}

TEST_F(LongWorkOnScreen, EscapeEndsTheWork) {
    Onlooker onlooker([](QDialog& dialog) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&dialog, &escape);
    });
    EXPECT_FALSE(program.screen.doLongWork("Opening", runUntilCancelled));
}

TEST_F(LongWorkOnScreen, TheDialogShowsWhatIsDoneAndHowFarAsPlainText) {
    std::atomic<bool> seen = false;
    int looks = 0;
    int value = 0;
    QString text;
    Onlooker onlooker([&](QDialog& dialog) {
        value = dialog.findChild<QProgressBar*>()->value();
        text = dialog.findChild<QLabel*>()->text();
        EXPECT_EQ(dialog.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        constexpr int kPatience = 2000; // looks
        seen = value > 0 || ++looks > kPatience;
    });
    EXPECT_TRUE(program.screen.doLongWork("Opening <b>Large</b>", [&](const Progress& progress) {
        while (!seen)
            progress.part(0.5, 1).at(1, 2);
    }));
    EXPECT_EQ(value, 750);
    EXPECT_EQ(text, "Opening <b>Large</b>");
}

TEST_F(LongWorkOnScreen, WhatTheWorkThrowsReachesTheCaller) {
    const Work fails = [](const Progress& /*progress*/) { throw std::bad_alloc(); };
    EXPECT_THROW(program.screen.doLongWork("Opening", fails), std::bad_alloc);
    EXPECT_EQ(progressDialog(), nullptr);
}

/// A project that takes longer to read than a moment.
struct LargeProject : ::testing::Test {
    LargeProject() {
        constexpr std::size_t kMessages = 100'000;
        text = bench::projectText(kMessages);
        std::ofstream(path, std::ios::binary) << text;
    }

    int messages() {
        return static_cast<int>(program.application.frmSECSEditor.cboSECSMessage.entries().size());
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder / "Large.zbp";
    std::string text;
    ProgramOnScreen program{folder.path().string()};
};

TEST_F(LargeProject, OpensAtTheStartWithItsProgressShown) {
    program.settings.writeRegValue(kSettingsKey, kRecentProject, path.string());
    Onlooker onlooker([](QDialog& /*dialog*/) {});
    program.application.start("");
    EXPECT_TRUE(onlooker.sawDialog());
    // The event loop ran all the time that the project was read.
    EXPECT_GT(onlooker.looks(), 10);
    EXPECT_EQ(program.application.ProjectName, "Large");
    EXPECT_EQ(messages(), 100'000);
}

TEST_F(LargeProject, IsNotOpenedWhenItsStartIsCancelled) {
    program.settings.writeRegValue(kSettingsKey, kRecentProject, path.string());
    Onlooker onlooker([&](QDialog& dialog) {
        EXPECT_TRUE(program.screen.mainWindow()->isVisible());
        pressCancel(dialog);
    });
    program.application.start("");
    EXPECT_TRUE(onlooker.sawDialog());
    EXPECT_EQ(program.application.ProjectName, "");
    EXPECT_EQ(program.application.ProjectPath, "");
    EXPECT_EQ(messages(), 0);
    EXPECT_FALSE(program.application.frmSECSEditor.visible());
    EXPECT_EQ(program.settings.readRegValue(kSettingsKey, kRecentProject), path.string());
    EXPECT_EQ(std::filesystem::file_size(path), text.size());
}

/// The same project, open, with a definition file of an earlier build.
struct LargeBuild : LargeProject {
    LargeBuild() {
        program.application.start(path.string());
        std::ofstream(target) << "old";
    }

    std::string targetText() {
        std::ifstream file(target, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::filesystem::path target = folder / "ZeltoInfo/Large.smd";
};

TEST_F(LargeBuild, ShowsItsProgress) {
    QString shown;
    Onlooker onlooker([&](QDialog& dialog) { shown = dialog.findChild<QLabel*>()->text(); });
    EXPECT_TRUE(program.application.builds.buildSmd());
    EXPECT_EQ(shown, "Building Large.smd");
    EXPECT_GT(onlooker.looks(), 10);
    EXPECT_GT(targetText().size(), 1'000'000U);
}

TEST_F(LargeBuild, LeavesTheFileWhenItIsCancelled) {
    Node& item = *program.application.frmSECSEditor.liveTree().find("Message1")->child();
    item.setText("U4 2 DATAID 0");
    Onlooker onlooker(pressCancel);
    EXPECT_FALSE(program.application.builds.buildSmd());
    EXPECT_TRUE(onlooker.sawDialog());
    EXPECT_EQ(targetText(), "old");
    EXPECT_EQ(item.text(), "U4 2 DATAID 0");
}

TEST_F(LargeBuild, StaysInTheEditorWhenTheWayToTheModelerIsCancelled) {
    Onlooker onlooker(pressCancel);
    program.application.showModeler();
    EXPECT_TRUE(onlooker.sawDialog());
    EXPECT_FALSE(program.application.frmTRModeler.visible());
    EXPECT_TRUE(program.application.frmSECSEditor.visible());
}

} // namespace
} // namespace zb::test
