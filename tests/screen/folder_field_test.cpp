#include "desktop/binders/folder_field_binder.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileSystemModel>
#include <QKeyEvent>
#include <QTreeView>

#include <set>
#include <string>

namespace zb::test {
namespace {

using ::testing::UnorderedElementsAre;

struct FolderBrowser : ::testing::Test {
    FolderBrowser() {
        for (const char* name : {"a/inner", "b/inner", "c/inner"})
            std::filesystem::create_directories(folder / name);
        dialog.dirProject.setText(folder.path().string());
        dialog.show();
    }

    QTreeView& view() { return program.widget<QTreeView>(dialog, "dirProject"); }
    QString path() const { return QString::fromStdString(folder.path().string()); }
    // The folders are read by a thread of the model.
    bool comesInView() {
        const auto& model = dynamic_cast<QFileSystemModel&>(*view().model());
        const auto isShown = [&] {
            const QModelIndex first = model.index(0, 0, model.index(path()));
            return model.rowCount(model.index(path())) == 3 &&
                   view().viewport()->rect().intersects(view().visualRect(first));
        };
        const QDeadlineTimer deadline(5000);
        while (!isShown() && !deadline.hasExpired())
            program.settle();
        return isShown();
    }
    void press(Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&view(), &event);
        program.settle();
    }

    TemporaryFolder folder;
    ProgramOnScreen program{"/"};
    frmNewProject& dialog = program.application.frmNewProject;
};

TEST_F(FolderBrowser, ShowsWhatLiesInItsFolderAtTheFirstLook) {
    EXPECT_TRUE(comesInView());
    EXPECT_TRUE(view().isExpanded(view().currentIndex()));
}

TEST_F(FolderBrowser, TheDialogOfTheSystemChoosesAFolderToo) {
    auto* binder =
        dynamic_cast<FolderFieldBinder*>(program.screen.binderOf(dialog)->binderOf(dialog.dirProject));
    ASSERT_NE(binder, nullptr);
    std::string startedIn;
    std::string answer;
    binder->pickFolder = [&](const std::string& start) {
        startedIn = start;
        return answer;
    };
    auto& button = program.widget<QAbstractButton>(dialog, "dirProject_Browse");
    button.click();
    EXPECT_EQ(startedIn, folder.path().string());
    EXPECT_EQ(dialog.txtLocation.text(), folder.path().string()) << "cancelled";
    answer = (folder / "b/inner").string();
    button.click();
    EXPECT_EQ(dialog.dirProject.text(), answer);
    EXPECT_EQ(dialog.txtLocation.text(), answer);
}

TEST_F(FolderBrowser, ArrowKeysPassByFoldersThatNobodyOpened) {
    ASSERT_TRUE(comesInView());
    std::set<std::string> passed;
    for (int step = 0; step < 3; ++step) {
        press(Qt::Key_Down);
        passed.insert(dialog.dirProject.text());
        EXPECT_FALSE(view().isExpanded(view().currentIndex()));
    }
    EXPECT_THAT(passed, UnorderedElementsAre((folder / "a").string(), (folder / "b").string(),
                                             (folder / "c").string()));
}

} // namespace
} // namespace zb::test
