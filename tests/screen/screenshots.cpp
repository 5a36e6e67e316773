// Pictures of the windows in use: zeltobench-screenshots PROJECT.zbp FOLDER light|dark SUFFIX. The scale
// comes from the environment (QT_SCALE_FACTOR), the platform from the make target.
#include "platform/text.h"
#include "project/project_text.h"
#include "screen/pictures/modeler_pictures.h"
#include "screen/pictures/photographer.h"
#include "screen/support/palettes.h"
#include "screen/support/program_on_screen.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFileSystemModel>
#include <QMainWindow>
#include <QTreeView>

#include <cstdio>
#include <filesystem>

namespace {

using zb::test::Photographer;
using zb::test::ProgramOnScreen;

void selectSomething(zb::Application& application) {
    zb::NodeTree& tree = application.frmSECSEditor.liveTree();
    for (int index = 1; zb::Node* node = tree.at(index); ++index) {
        if (node->level() < 2 || node->text().find(" '") == std::string::npos)
            continue;
        zb::Target target = zb::Target::whole(application.frmSECSEditor.tvwEdit);
        target.node = node;
        zb::UserHands(application.desktop).click(target);
        return;
    }
}

// A path that is the same on every machine.
const std::string kFolder = "/home/engineer/projects";

void photographNewProject(ProgramOnScreen& program, Photographer& camera) {
    zb::frmNewProject& dialog = program.application.frmNewProject;
    const std::string real = std::filesystem::path(program.application.ProjectPath).parent_path().string();
    dialog.drvProject.add("/ [system]");
    dialog.drvProject.setText("/ [system]");
    dialog.dirProject.setText(real);
    dialog.txtLocation.setText(kFolder);
    dialog.txtProjectName.setText("Etcher2");
    dialog.show();
    auto& folders = program.widget<QTreeView>(dialog, "dirProject");
    const auto& model = dynamic_cast<const QFileSystemModel&>(*folders.model());
    const QModelIndex root = model.index(QString::fromStdString(real));
    folders.setRootIndex(root);
    // The folders are read by a thread of the model.
    const QDeadlineTimer deadline(5000);
    while (model.rowCount(root) == 0 && !deadline.hasExpired())
        program.settle();
    camera.take(program.form(dialog), QStringLiteral("new-project"));
    dialog.hide();
}

// At a time that is the same on every day.
void photographWorkbench(ProgramOnScreen& program, Photographer& camera) {
    zb::frmWorkbench& workbench = program.application.frmWorkbench;
    for (const char* text : {"Saved Etcher.zbp, 19:45", "Built Etcher.smd, 55 messages, 19:46"}) {
        program.application.desktop.post({text});
        workbench.log.lvwLog.rows().back()->setCell(0,
                                                    std::string(text).substr(std::string(text).size() - 5));
    }
    workbench.log.open();
    camera.take(*program.screen.mainWindow(), QStringLiteral("workbench"));
    workbench.log.close();
    zb::UserHands(program.application.desktop).click(zb::Target::whole(workbench.notices.cmdCloseNotice));
    zb::UserHands(program.application.desktop).click(zb::Target::whole(workbench.notices.cmdCloseNotice));
}

/// With two faults, which go again.
void photographProblems(ProgramOnScreen& program, Photographer& camera) {
    zb::NodeTree& tree = program.application.frmSECSEditor.liveTree();
    zb::ProblemsPane& problems = program.application.frmWorkbench.problems;
    zb::Node* alarm = tree.find("AlarmReport");
    zb::Node* list = alarm->child();
    const std::string text = list->text();
    list->setText("L 4");
    problems.finish();
    problems.open();
    camera.take(*program.screen.mainWindow(), QStringLiteral("problems"));
    list->setText(text);
    problems.finish();
    problems.close();
}

void photographPanes(ProgramOnScreen& program, Photographer& camera) {
    zb::frmSECSEditor& editor = program.application.frmSECSEditor;
    zb::frmWorkbench& workbench = program.application.frmWorkbench;
    zb::UserHands hands(program.application.desktop);
    QMainWindow& main = *program.screen.mainWindow();
    workbench.keys.open();
    camera.take(main, QStringLiteral("keys"));
    zb::Target message = zb::Target::whole(editor.tvwEdit);
    message.node = editor.liveTree().find("AreYouThere");
    hands.click(message);
    message.node = editor.liveTree().find("OnLineData");
    hands.controlClick(message);
    workbench.marks.open();
    hands.paste(workbench.marks.txtPattern, "S{stream}F{function}");
    camera.take(main, QStringLiteral("marks"));
    workbench.go.open();
    hands.paste(workbench.go.txtGo, "rola");
    camera.take(main, QStringLiteral("go"));
    workbench.search.open();
    hands.paste(workbench.search.txtSearch, "ECID");
    hands.click(zb::Target::whole(workbench.search.cmdSearchAll));
    camera.take(main, QStringLiteral("search"));
    workbench.search.close();
    selectSomething(program.application);
}

void photographCompare(ProgramOnScreen& program, Photographer& camera) {
    zb::Application& application = program.application;
    std::string text = application.work.composeWork();
    text = zb::replaceAll(text, "AreYouThere: S1 F1 W <R>", "AreYouThere: S1 F1 <R>");
    text = zb::replaceAll(text, "A 6 SOFTREV 'V04R21'", "A 20V SOFTREV 'V03R07'");
    application.comparisons.compareWithProject("Version 3", zb::parseProject(text), zb::CompareScope::Whole);
    camera.take(*program.screen.mainWindow(), QStringLiteral("compare"));
    application.frmCompare.hide();
}

/// An alarm whose reply comes too late, in a sequence that has begun.
void photographRehearsal(ProgramOnScreen& program, Photographer& camera) {
    zb::Application& application = program.application;
    zb::frmRehearsal& window = application.frmRehearsal;
    window.open();
    const auto folder = std::filesystem::path(application.ProjectPath).parent_path();
    window.recording.txtRecording.setText((folder / "odd.log").string());
    zb::UserHands(application.desktop).click(zb::Target::whole(window.recording.cmdReadRecording));
    window.finish();
    constexpr std::size_t kLateReply = 16;
    window.timeline.select(kLateReply);
    window.recording.txtRecording.setText(kFolder + "/odd.log");
    window.txtTyped.setText("S5F1 W\n<L <B 0x80> <U4 3011> <A 'RF fault'>>.");
    zb::UserHands(application.desktop)
        .click(zb::Target::whole(application.frmWorkbench.notices.cmdCloseNotice));
    camera.take(*program.screen.mainWindow(), QStringLiteral("rehearsal"));
    window.forget();
}

void photograph(ProgramOnScreen& program, Photographer& camera) {
    zb::Application& application = program.application;
    QMainWindow& main = *program.screen.mainWindow();
    // At twice the scale a smaller window keeps the file small.
    main.resize(main.devicePixelRatioF() > 1 ? QSize(1080, 600) : QSize(1240, 760));
    application.frmMain.stbMain.setText("Status", kFolder + "/" + application.ProjectName);
    program.settle();
    selectSomething(application);
    camera.take(main, QStringLiteral("editor"));
    photographWorkbench(program, camera);
    photographProblems(program, camera);
    photographPanes(program, camera);
    photographCompare(program, camera);
    photographRehearsal(program, camera);
    application.frmFind.showFind();
    application.frmFind.txtFindWhat.setText("S6F11");
    camera.take(program.form(application.frmFind), QStringLiteral("find"));
    application.frmFind.hide();
    photographNewProject(program, camera);
    camera.takeDialog(application.frmOption, QStringLiteral("option"));
    application.frmResult.addErrorMsg("Generated 42 classes for " + application.ProjectName);
    camera.takeDialog(application.frmResult, QStringLiteral("result"));
    camera.takeDialog(application.frmAbout, QStringLiteral("about"));
}

bool photographStart(const QString& folder, const QString& suffix) {
    ProgramOnScreen program("/");
    program.application.start("");
    program.screen.mainWindow()->resize(860, 520);
    program.screen.mainWindow()->activateWindow();
    Photographer camera(program, folder, suffix);
    camera.take(*program.screen.mainWindow(), QStringLiteral("start"));
    return !camera.failed();
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication qt(argc, argv);
    if (argc != 5) {
        std::fprintf(stderr, "usage: zeltobench-screenshots PROJECT.zbp FOLDER light|dark SUFFIX\n");
        return 2;
    }
    const bool dark = QByteArray(argv[3]) == "dark";
    zb::test::dress(qt, dark ? zb::test::Shade::Dark : zb::test::Shade::Light);
    const zb::Pictures pictures;
    QApplication::setWindowIcon(pictures.icon("zeltobench"));
    const QString folder = QString::fromLocal8Bit(argv[2]);
    const QString suffix = QString::fromLocal8Bit(argv[4]);
    const bool startTaken = photographStart(folder, suffix);
    ProgramOnScreen program("/");
    program.application.start(argv[1]);
    Photographer camera(program, folder, suffix);
    photograph(program, camera);
    zb::test::photographModeler(program, camera);
    return startTaken && !camera.failed() ? 0 : 1;
}
