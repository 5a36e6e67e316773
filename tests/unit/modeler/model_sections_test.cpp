#include "modeler/model_sections.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kProject = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n"
                                 "## [EDIT SMD]\r\n* One\r\nA: S1 F1 H->E.\r\n"
                                 "###[MODEL]\r\nmessage A\r\n\r\n  item B\r\n"
                                 "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\nSeqName\u00FFMain\u00FF\u00FF\r\n";

TEST(ModelSections, TakesTheLinesBehindTheMessages) {
    const ModelSections sections = ModelSections::parse(kProject);
    EXPECT_EQ(sections.foreignLines(), (Lines{"###[MODEL]", "message A", "", "  item B"}));
    EXPECT_EQ(sections.sequenceLines(), (Lines{"SeqName\u00FFMain\u00FF\u00FF"}));
}

TEST(ModelSections, WritesBackWhatItRead) {
    const ModelSections sections = ModelSections::parse(kProject);
    EXPECT_EQ(sections.compose(""), "###[MODEL]\r\nmessage A\r\n\r\n  item B\r\n"
                                    "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\nSeqName\u00FFMain\u00FF\u00FF\r\n");
    EXPECT_EQ(ModelSections::parse(sections.compose("")).compose(""), sections.compose(""));
}

TEST(ModelSections, OfAProjectWithoutAModelAreTheEmptySequenceTable) {
    const ModelSections sections = ModelSections::parse("\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n");
    EXPECT_TRUE(sections.foreignLines().empty());
    EXPECT_EQ(sections.compose(""), "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n");
}

TEST(ModelSections, KeepLinesThatLookLikeMarkersInsideTheSequenceTable) {
    const ModelSections sections = ModelSections::parse("###[SEQUENCE TABLE]\r\n## [EDIT SMD]\r\n###[X]\r\n");
    EXPECT_EQ(sections.sequenceLines(), (Lines{"## [EDIT SMD]", "###[X]"}));
}

TEST(ModelSections, AreEmptyOnceCleared) {
    ModelSections sections = ModelSections::parse(kProject);
    sections.clear();
    EXPECT_EQ(sections.compose(""), "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n");
}

} // namespace
} // namespace zb
