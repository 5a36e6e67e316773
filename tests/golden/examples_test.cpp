#include "golden/golden_text.h"
#include "messages/definition_check.h"
#include "messages/smd_reader.h"
#include "messages/smd_writer.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "platform/stores/desktop.h"
#include "platform/text_file.h"
#include "support/silent_screen.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <set>

namespace zb::test {

namespace {

/// A sample project, read into a program of its own.
class Examples : public ::testing::Test {
protected:
    void open(const std::string& name) {
        bytes_ = readFile(sourceFolder() / "examples" / name);
        ASSERT_FALSE(bytes_.empty()) << name;
        readSmdText(tree_, decodeProject(bytes_).text, pane_);
    }

    std::string walk(const std::string& path, std::string_view mode) {
        return SmdWriter(state_, pane_).buildMessageText(path, mode, tree_);
    }

    /// The whole project file, as a save would write it.
    std::string saved() {
        std::string sections = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n";
        state_.projectSections = &sections;
        EXPECT_EQ(walk("", "SAVE_PROJECT"), "");
        state_.projectSections = nullptr;
        return encodeUtf16(sections + "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n");
    }

    SilentScreen screen_;
    Desktop desktop_{screen_};
    SettingsStore settings_ = SettingsStore::inMemory();
    SystemFileLayer files_;
    ModuleState state_{desktop_, settings_, files_};
    NoEditorPane pane_;
    NodeTree tree_;
    std::string bytes_;
};

std::string linesOf(const std::vector<DefinitionFinding>& findings, const std::string& file) {
    std::string lines;
    for (const DefinitionFinding& finding : findings) {
        lines += file + ": " + finding.message + ": ";
        if (!finding.itemPath.empty())
            lines += finding.itemPath + ": ";
        if (finding.severity == DefinitionFinding::Severity::Warning)
            lines += "warning: ";
        lines += finding.text + "\n";
    }
    return lines;
}

} // namespace

TEST_F(Examples, EtcherHasNoFault) {
    open("etcher/Etcher.zbp");
    EXPECT_EQ(linesOf(checkDefinitions(tree_, state_.codePage), "Etcher.zbp"), "");
}

TEST_F(Examples, EtcherBuilds) {
    open("etcher/Etcher.zbp");
    const TemporaryFolder folder;
    const std::string target = (folder / "Etcher.smd").string();
    EXPECT_EQ(walk(target, "BUILD_SMD"), "");
    EXPECT_TRUE(screen_.boxes.empty());
    expectGolden(readFile(target), "etcher/Etcher.smd");
}

// Its items stand in canonical form, so that a look at the modeler and a save leave no trace in version
// control.
TEST_F(Examples, EtcherIsSavedAsItStandsAfterACheckedWalk) {
    open("etcher/Etcher.zbp");
    EXPECT_EQ(walk("Etcher", "MODELER"), "");
    EXPECT_TRUE(screen_.boxes.empty());
    EXPECT_TRUE(saved() == bytes_) << "the file differs from what a save writes";
}

TEST_F(Examples, EtcherShowsEveryTypeAndDirection) {
    open("etcher/Etcher.zbp");
    EXPECT_EQ(walk("Etcher", "MODELER"), "");
    std::set<std::string> types;
    std::set<std::string> directions;
    std::set<int> streams;
    for (const SECSMessageRecord* record : state_.SECSMessageStore->getMessages()) {
        directions.insert(record->getDirection());
        streams.insert(record->getStream());
        for (const SECSItemRecord& item : record->getItems())
            types.insert(item.getType());
    }
    EXPECT_EQ(types, (std::set<std::string>{"A", "B", "BOOLEAN", "F4", "F8", "I1", "I2", "I4", "I8", "J", "L",
                                            "U1", "U2", "U4", "U8", "X"}));
    EXPECT_EQ(directions, (std::set<std::string>{"H->E", "H<-E", "H<->E"}));
    EXPECT_EQ(streams, (std::set<int>{1, 2, 5, 6, 7, 9, 10}));
}

TEST_F(Examples, FaultyTellsEachOfItsFaults) {
    open("faulty/Faulty.zbp");
    expectGolden(linesOf(checkDefinitions(tree_, state_.codePage), "Faulty.zbp"), "faulty/check.txt");
}

} // namespace zb::test
