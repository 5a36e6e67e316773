#include "golden/golden_text.h"
#include "messages/definition_check.h"
#include "messages/smd/smd_writer.h"
#include "outputs/definition_document.h"
#include "outputs/transaction_check.h"
#include "platform/file_layer.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "support/temporary_folder.h"
#include "support/tmd_reader.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>
#include <set>

namespace zb::test {

namespace {

/// A sample project, read into a separate program.
class Examples : public ::testing::Test {
protected:
    void open(const std::string& name) {
        bytes_ = readFile(sourceFolder() / "examples" / name);
        ASSERT_FALSE(bytes_.empty()) << name;
        parseProject(decodeProject(bytes_).text).messages.fill(tree_);
    }

    std::string walk(WalkMode mode) {
        return SmdWriter(codePage_).buildMessageText(mode, tree_, store_).status;
    }

    CodePage codePage_{1252};
    NodeTree tree_;
    SECSMessageStore store_;
    std::string bytes_;
};

std::string linesOf(const Findings& findings, const std::string& file) {
    std::string lines;
    for (const Finding& finding : findings) {
        lines += file + ": " + finding.place.message + ": ";
        if (!finding.place.item.empty())
            lines += finding.place.item + ": ";
        if (finding.severity == Severity::Warning)
            lines += "warning: ";
        lines += finding.text + "\n";
    }
    return lines;
}

} // namespace

TEST_F(Examples, EtcherHasNoFault) {
    open("etcher/Etcher.zbp");
    EXPECT_EQ(linesOf(checkDefinitions(tree_, codePage_), "Etcher.zbp"), "");
}

TEST_F(Examples, EtcherBuilds) {
    open("etcher/Etcher.zbp");
    EXPECT_EQ(walk(WalkMode::BuildSmd), "");
    expectGolden(composeDefinitions(store_, DefinitionForm::Smd), "etcher/Etcher.smd");
}

/// A copy of a sample project, open in a whole program.
class OpenExample : public ::testing::Test {
protected:
    explicit OpenExample(const std::string& name)
        : bytes_(readFile(sourceFolder() / "examples" / name)), path_(folder_ / name), program_(files_) {
        std::filesystem::create_directories(path_.parent_path());
        writeFile(path_, bytes_);
        program_.application.start(path_.string());
    }

    Findings transactionFindings() { return checkTransactions(program_.application.view()); }

    std::string bytes_;
    TemporaryFolder folder_;
    std::filesystem::path path_;
    SystemFileLayer files_;
    Program program_;
};

struct EtcherProgram : OpenExample {
    EtcherProgram() : OpenExample("etcher/Etcher.zbp") {}
};

struct FaultyProgram : OpenExample {
    FaultyProgram() : OpenExample("faulty/Faulty.zbp") {}
};

// Its items are in canonical form, so that a look at the modeler and a save cause no change in version
// control.
TEST_F(EtcherProgram, IsSavedUnchangedAfterALookAtTheModeler) {
    program_.application.showModeler();
    EXPECT_TRUE(program_.screen.boxes.empty());
    EXPECT_TRUE(program_.application.projects.saveProject());
    EXPECT_TRUE(readFile(path_) == bytes_) << "the file differs from what a save writes";
}

TEST_F(EtcherProgram, BuildsItsTransactionModel) {
    program_.application.showModeler();
    EXPECT_EQ(linesOf(transactionFindings(), "Etcher.zbp"), "");
    EXPECT_TRUE(program_.application.builds.buildTmd());
    EXPECT_TRUE(program_.screen.boxes.empty());
    const std::string tmd = readFile(program_.application.tmdFilePath());
    expectGolden(tmd, "etcher/Etcher.tmd");
    const TmdReader reader(tmd);
    EXPECT_EQ(reader.fault(), "");
    EXPECT_EQ(reader.schemaFault((sourceFolder() / "docs/tmd.rng").string()), "");
    EXPECT_EQ(reader.value("count(//Sequences/*)"), "3");
    // conditions with an index, and with one for each of two lists around the item
    EXPECT_NE(reader.value("string(//LimitPressure/@Condition)").find("{ECID[2]}"), std::string::npos);
    EXPECT_NE(reader.value("string(//ReportOfPressure/@Condition)").find("{VID[1;1]}"), std::string::npos);
    EXPECT_EQ(reader.value("count(//MODE/Condition/Statement/Statement)"), "3");
}

TEST_F(Examples, EtcherShowsEveryTypeAndDirection) {
    open("etcher/Etcher.zbp");
    EXPECT_EQ(walk(WalkMode::Modeler), "");
    std::set<std::string> types;
    std::set<std::string> directions;
    std::set<int> streams;
    for (const SECSMessageRecord* record : store_.getMessages()) {
        directions.emplace(record->getDirection());
        streams.insert(record->getStream());
        for (const SECSItemRecord& item : record->getItems())
            types.insert(item.getType());
    }
    EXPECT_EQ(types, (std::set<std::string>{"A", "B", "BOOLEAN", "F4", "F8", "I1", "I2", "I4", "I8", "J", "L",
                                            "U1", "U2", "U4", "U8", "X"}));
    EXPECT_EQ(directions, (std::set<std::string>{"H->E", "H<-E", "H<->E"}));
    EXPECT_EQ(streams, (std::set<int>{1, 2, 5, 6, 7, 9, 10}));
}

TEST_F(FaultyProgram, ReportsEachOfItsFaults) {
    // A save walk also fills the store with faulty messages.
    program_.application.projects.saveProject();
    auto findings = checkDefinitions(program_.application.frmSECSEditor.liveTree(), CodePage(1252));
    for (Finding& finding : transactionFindings())
        findings.push_back(std::move(finding));
    expectGolden(linesOf(findings, "Faulty.zbp"), "faulty/check.txt");
}

} // namespace zb::test
