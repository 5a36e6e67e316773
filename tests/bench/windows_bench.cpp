// From the event of a user's action to the painted window, against the number of messages. The budget is a
// frame (16 ms) at 1,000 messages and 150 ms at 10,000.
#include "bench/generated_model.h"
#include "bench/generated_project.h"
#include "desktop/models/node_tree_view.h"
#include "project/project_text.h"
#include "screen/support/palettes.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPushButton>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>

namespace {

using namespace zb;

/// A window with a generated project, opened once for all figures of its size.
struct Desk {
    explicit Desk(const std::string& project) : program(folder.path().string()) {
        std::ofstream(path, std::ios::binary) << project;
    }

    void open() {
        program.application.start(path.string());
        program.screen.mainWindow()->resize(1240, 760);
        program.settle();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }

    /// Runs everything that the event has caused, and paints the whole window: more than the screen would
    /// have to do.
    void paint() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        program.screen.mainWindow()->repaint();
    }

    Target item(int index) {
        Target target = Target::whole(editor().tvwEdit);
        target.node = editor().liveTree().at(index);
        return target;
    }

    test::TemporaryFolder folder;
    std::filesystem::path path = folder / "Large.zbp";
    test::ProgramOnScreen program;
};

enum class Steps { Kept, NotKept };

/// The windows opened so far: opening a project of ten thousand messages takes longer than measuring.
class Desks {
public:
    explicit Desks(Steps steps) : steps_(steps) {}

    Desk& of(const benchmark::State& state) {
        auto& desk = desks_[state.range(0)];
        if (!desk) {
            desk = std::make_unique<Desk>(bench::projectText(static_cast<std::size_t>(state.range(0))));
            desk->open();
            if (steps_ == Steps::NotKept)
                desk->program.application.editorHistory.steps.stop();
        }
        return *desk;
    }

private:
    Steps steps_;
    std::map<std::int64_t, std::unique_ptr<Desk>> desks_;
};

void sendKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &up);
}

void ClickOnANode(benchmark::State& state, Desks& desks) {
    Desk& desk = desks.of(state);
    auto& view = desk.program.widget<NodeTreeView>(desk.editor(), "tvwEdit");
    int index = 5;
    for (auto _ : state) {
        // Alternates between the ends of the tree, so that each click scrolls.
        index = index == 5 ? static_cast<int>(desk.editor().liveTree().count()) - 2 : 5;
        Node& node = *desk.editor().liveTree().at(index);
        view.reveal(node);
        const QModelIndex row = static_cast<NodeTreeModel*>(view.model())->indexOf(&node);
        const QPointF place(view.viewport()->width() - 2, view.visualRect(row).center().y());
        QMouseEvent down(QEvent::MouseButtonPress, place, view.mapToGlobal(place), Qt::LeftButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.viewport(), &down);
        QMouseEvent up(QEvent::MouseButtonRelease, place, view.mapToGlobal(place), Qt::LeftButton,
                       Qt::NoButton, {});
        QCoreApplication::sendEvent(view.viewport(), &up);
        desk.paint();
    }
}

void KeyInAField(benchmark::State& state, Desks& desks) {
    Desk& desk = desks.of(state);
    UserHands(desk.program.application.desktop).click(desk.item(6));
    auto& line = desk.program.widget<QLineEdit>(desk.editor(), "txtItemName");
    bool more = true;
    for (auto _ : state) {
        if (more)
            sendKey(line, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        else
            sendKey(line, Qt::Key_Backspace, Qt::NoModifier, QString());
        more = !more;
        desk.paint();
    }
}

void PasteIntoAField(benchmark::State& state, Desks& desks) {
    Desk& desk = desks.of(state);
    auto& line = desk.program.widget<QLineEdit>(desk.editor(), "txtDescription");
    QGuiApplication::clipboard()->setText(QStringLiteral("A description from elsewhere"));
    for (auto _ : state) {
        sendKey(line, Qt::Key_A, Qt::ControlModifier, {});
        sendKey(line, Qt::Key_V, Qt::ControlModifier, {});
        desk.paint();
    }
}

void AddAMessage(benchmark::State& state, Desks& desks) {
    Desk& desk = desks.of(state);
    auto& button = desk.program.widget<QPushButton>(desk.editor(), "cmdMsgAdd");
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        desk.editor().txtStream.setText("99");
        desk.editor().txtFunction.setText("2");
        desk.editor().txtMsgName.setText("Added" + std::to_string(++number));
        state.ResumeTiming();
        button.click();
        desk.paint();
    }
    if (desk.editor().liveTree().find("Added1") == nullptr)
        state.SkipWithError("nothing was added");
}

void PasteAMessage(benchmark::State& state, Desks& desks) {
    Desk& desk = desks.of(state);
    Target separator = desk.item(1);
    UserHands hands(desk.program.application.desktop);
    hands.click(separator);
    hands.click(Target::whole(*desk.editor().find("mnuCopy")));
    // A click determines what can be pasted here.
    hands.click(separator);
    std::string refusal;
    const std::size_t before = desk.editor().liveTree().count();
    for (auto _ : state) {
        refusal = hands.click(Target::whole(*desk.editor().find("mnuPasteNext")));
        desk.paint();
    }
    if (desk.editor().liveTree().count() == before)
        state.SkipWithError(("nothing was pasted: " + refusal).c_str());
}

/// The document Compare with the project beside one with 100 changes.
class ComparedDesk {
public:
    explicit ComparedDesk(std::size_t messages)
        : desk_(bench::projectText(messages)), before_(bench::changedText(messages, 5)) {
        desk_.open();
    }

    void open() {
        desk_.program.application.comparisons.compareWithProject("Before", parseProject(before_),
                                                                 CompareScope::Whole);
        desk_.paint();
    }
    void click(Control& control) {
        UserHands(desk_.program.application.desktop).click(Target::whole(control));
        desk_.paint();
    }
    frmCompare& window() { return desk_.program.application.frmCompare; }

private:
    Desk desk_;
    std::string before_;
};

using ComparedDesks = std::map<std::int64_t, std::unique_ptr<ComparedDesk>>;

ComparedDesk& comparedDesk(ComparedDesks& desks, const benchmark::State& state) {
    auto& desk = desks[state.range(0)];
    if (!desk)
        desk = std::make_unique<ComparedDesk>(static_cast<std::size_t>(state.range(0)));
    return *desk;
}

void OpenCompare(benchmark::State& state, ComparedDesks& desks) {
    ComparedDesk& desk = comparedDesk(desks, state);
    for (auto _ : state)
        desk.open();
    if (desk.window().lblCount.text() != "1 of 100")
        state.SkipWithError("there are not 100 differences");
}

void ShowAllRows(benchmark::State& state, ComparedDesks& desks) {
    ComparedDesk& desk = comparedDesk(desks, state);
    for (auto _ : state) {
        desk.click(desk.window().chkOnlyDifferences);
        state.PauseTiming();
        state.counters["rows"] = static_cast<double>(desk.window().tvwProject.nodes().count());
        desk.click(desk.window().chkOnlyDifferences);
        state.ResumeTiming();
    }
}

void NextDifference(benchmark::State& state, ComparedDesks& desks) {
    ComparedDesk& desk = comparedDesk(desks, state);
    for (auto _ : state)
        desk.click(desk.window().cmdNext.enabled() ? desk.window().cmdNext : desk.window().cmdPrevious);
}

void TakeADifference(benchmark::State& state, ComparedDesks& desks) {
    ComparedDesk& desk = comparedDesk(desks, state);
    const std::string before = desk.window().lblCount.text();
    for (auto _ : state)
        desk.click(desk.window().cmdTakeLeft);
    if (desk.window().lblCount.text() == before)
        state.SkipWithError("nothing was taken");
}

/// From the start of the program to the painted window. Twice the size must not take more than 2.2 times as
/// long.
void open(benchmark::State& state, const std::string& project) {
    for (auto _ : state) {
        state.PauseTiming();
        auto desk = std::make_unique<Desk>(project);
        state.ResumeTiming();
        desk->open();
        desk->paint();
        state.PauseTiming();
        state.counters["nodes"] = static_cast<double>(desk->editor().liveTree().count());
        state.counters["transactionNodes"] =
            static_cast<double>(desk->program.application.frmTRModeler.tvwRcvTRMsg.nodes().count());
        desk.reset();
        state.ResumeTiming();
    }
}

void OpenMessages(benchmark::State& state) {
    open(state, bench::projectText(static_cast<std::size_t>(state.range(0))));
}

void OpenTransactions(benchmark::State& state) {
    open(state, bench::projectText(100) + bench::modelText(static_cast<std::size_t>(state.range(0))));
}

template<typename DeskMap>
void measure(const char* name, void (*run)(benchmark::State&, DeskMap&), DeskMap& desks, int iterations) {
    benchmark::RegisterBenchmark(name, [run, &desks](benchmark::State& state) { run(state, desks); })
        ->Arg(1000)
        ->Arg(10000)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(iterations);
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    QApplication qt(argc, argv);
    zb::test::dress(qt, zb::test::Shade::Light);
    benchmark::Initialize(&argc, argv);
    Desks desks(Steps::Kept);
    Desks without(Steps::NotKept);
    measure("ClickOnANode", &ClickOnANode, desks, 100);
    measure("KeyInAField", &KeyInAField, desks, 100);
    measure("PasteIntoAField", &PasteIntoAField, desks, 100);
    measure("AddAMessage", &AddAMessage, desks, 50);
    measure("PasteAMessage", &PasteAMessage, desks, 20);
    measure("KeyInAFieldWithoutSteps", &KeyInAField, without, 100);
    measure("AddAMessageWithoutSteps", &AddAMessage, without, 50);
    measure("PasteAMessageWithoutSteps", &PasteAMessage, without, 20);
    ComparedDesks compared;
    measure("OpenCompare", &OpenCompare, compared, 5);
    measure("ShowAllRows", &ShowAllRows, compared, 3);
    measure("NextDifference", &NextDifference, compared, 20);
    measure("TakeADifference", &TakeADifference, compared, 5);
    for (const int messages : {10'000, 50'000, 100'000})
        benchmark::RegisterBenchmark("OpenMessages", &OpenMessages)
            ->Arg(messages)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
    for (const int messages : {25'000, 50'000})
        benchmark::RegisterBenchmark("OpenTransactions", &OpenTransactions)
            ->Arg(messages)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
