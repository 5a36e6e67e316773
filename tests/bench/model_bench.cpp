#include "bench/generated_project.h"
#include "controls/user_hands.h"
#include "model/model_reader.h"
#include "model/model_writer.h"
#include "model/sequence_lines.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "unit/shell/program.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace zb::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kLarge = 2000;

std::string receivedName(std::int64_t number) {
    return "Received" + std::to_string(number);
}

void addStatements(TRItemRecord& item) {
    const std::string& name = item.Name();
    item.setStatementText(" if ({CEID} == 100):\r\n  " + name + "='A'\r\n else:\r\n  " + name + "='B'");
    XmlElement condition = createElement("Condition");
    for (const char* type : {"if", "else"}) {
        XmlElement& statement = condition.append(createTextElement("Statement", "A"));
        setElementAttribute(setElementAttribute(statement, "Type", type), "Condition", "({CEID} == 100)");
    }
    item.setConditionNode(std::move(condition));
}

// Every fifth item has statements.
std::unique_ptr<TRItemRecord> item(int number) {
    auto record = std::make_unique<TRItemRecord>();
    record->setName("ITEM" + std::to_string(number));
    record->setType("STRING");
    record->setValue("PPID1[" + std::to_string(number) + "]");
    record->setABSValue("none");
    record->setStatementText("NONE");
    record->setConditionNode(createElement("Condition"));
    if (number % 5 == 0)
        addStatements(*record);
    return record;
}

std::unique_ptr<TRMessageRecord> received(std::int64_t number) {
    auto record = std::make_unique<TRMessageRecord>();
    record->setName(receivedName(number));
    record->setSECSMessage(messageName(static_cast<std::size_t>(number % 100 + 1)));
    record->setCondition("{CEID} == " + std::to_string(number));
    record->setReport(number % 2 == 0);
    record->setDirection(kToEquip);
    for (int each = 1; each <= 10; ++each)
        record->addTRItem(item(each));
    return record;
}

std::unique_ptr<TRMessageRecord> sent(std::int64_t number) {
    auto record = std::make_unique<TRMessageRecord>();
    record->setName("Sent" + std::to_string(number));
    record->setSECSMessage("Command");
    record->setDirection(kToHost);
    SECSMessageRecord block;
    block.parseSmd(
        "* A command\r\nCommand: S2 F41 W H<-E\r\n    L 2\r\n        A 5 RCMD 'START'\r\n        L 3\r\n"
        "            A 3 LOT 'L01'\r\n            A 8 PPID 'RECIPE-1'\r\n            U4 3 SLOTS 1 2 3.\r\n",
        kFormatSmd);
    record->setDataBlock(std::move(block));
    return record;
}

// The given number of received messages with 10 items each, a quarter as many sent ones, and a tenth as many
// sequences of 10 messages.
std::string modelledProject(std::int64_t messages) {
    TRModelStore model;
    for (std::int64_t number = 1; number <= messages; ++number) {
        model.addTRMessage(received(number));
        if (number % 4 == 0)
            model.addTRMessage(sent(number));
    }
    std::string text = projectText(100) + composeModelSections({}, model, {});
    for (std::int64_t number = 1; number <= messages; ++number) {
        if (number % 10 == 1)
            text += "SeqName\u00FFSequence" + std::to_string(number) + "\u00FF\u00FF\r\n";
        text += "SeqItem\u00FF" + std::to_string((number - 1) % 10 + 1) + "\u00FFToEquip\u00FF" +
                receivedName(number) + "\r\n";
    }
    return text;
}

struct Modelled {
    explicit Modelled(std::int64_t messages) : text(modelledProject(messages)) {
        fs::create_directories(folder / "Big");
        test::writeFile(path, encodeUtf16(text));
        program.application.start(path.string());
    }
    TRModelStore& model() { return *program.application.TRModelStore; }

    std::string text;
    test::TemporaryFolder folder;
    fs::path path = folder / "Big/Big.zbp";
    SystemFileLayer files;
    test::Program program{files};
    frmTRModeler& modeler = program.application.frmTRModeler;
};

void LoadModel(benchmark::State& state) {
    const std::string text = modelledProject(state.range(0));
    for (auto _ : state) {
        TRModelStore model;
        readModel(splitProject(text).model, model);
        benchmark::DoNotOptimize(model.TRMessages().size());
    }
    state.counters["MB"] = static_cast<double>(text.size()) / 1e6;
}

void SaveModel(benchmark::State& state) {
    Modelled project(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(composeModel(project.model()));
}

void LoadSequences(benchmark::State& state) {
    Modelled project(state.range(0));
    for (auto _ : state)
        project.modeler.sequenceView().show(readSequences(splitProject(project.text).sequences));
    state.counters["rows"] = static_cast<double>(project.modeler.lvwSequence.rows().size());
}

void ShowModel(benchmark::State& state) {
    Modelled project(state.range(0));
    for (auto _ : state)
        project.modeler.displayModel();
}

void OpenModeler(benchmark::State& state) {
    Modelled project(state.range(0));
    for (auto _ : state)
        project.modeler.openModelerProject(parseProject(project.text));
}

void SaveModeler(benchmark::State& state) {
    Modelled project(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(project.modeler.saveModelerProject());
}

void LookUpByName(benchmark::State& state) {
    Modelled project(state.range(0));
    std::int64_t number = 0;
    for (auto _ : state) {
        number = number % state.range(0) + 1;
        benchmark::DoNotOptimize(project.model().getTRMessage(receivedName(number)));
    }
}

void DeleteAndAddAMessage(benchmark::State& state) {
    Modelled project(state.range(0));
    for (auto _ : state) {
        project.model().deleteTRMessage("Received1");
        auto record = std::make_unique<TRMessageRecord>();
        record->setName("Received1");
        project.model().addTRMessage(std::move(record));
    }
}

void ClickOnAMessage(benchmark::State& state) {
    Modelled project(state.range(0));
    UserHands hands(project.program.application.desktop);
    project.program.application.showModeler();
    Node* root = project.modeler.tvwRcvTRMsg.nodes().firstRoot();
    Target target = Target::whole(project.modeler.tvwRcvTRMsg);
    for (auto _ : state) {
        for (Node* node : {root->child(), root->child()->child()}) {
            target.node = node;
            hands.click(target);
        }
    }
}

void ClickOnTheRoot(benchmark::State& state) {
    Modelled project(state.range(0));
    UserHands hands(project.program.application.desktop);
    project.program.application.showModeler();
    Target target = Target::whole(project.modeler.tvwRcvTRMsg);
    target.node = project.modeler.tvwRcvTRMsg.nodes().firstRoot();
    for (auto _ : state)
        hands.click(target);
}

BENCHMARK(LoadModel)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveModel)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadSequences)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowModel)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenModeler)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveModeler)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickOnAMessage)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClickOnTheRoot)->Arg(200)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(LookUpByName)->Arg(200)->Arg(kLarge);
BENCHMARK(DeleteAndAddAMessage)->Arg(200)->Arg(kLarge);

} // namespace
} // namespace zb::bench
