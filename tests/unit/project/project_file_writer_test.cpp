#include "project/project_file_writer.h"

#include "platform/file_layer.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <future>

namespace zb {
namespace {

using namespace std::chrono_literals;

struct ProjectWriting : testing::Test {
    test::TemporaryFolder folder;
    SystemFileLayer files;
    std::filesystem::path project = folder / "Line.zbp";
    std::filesystem::path state = folder / "state";
};

TEST_F(ProjectWriting, WhatIsReplacedIsAVersion) {
    test::writeFile(project, "old");
    ProjectFileWriter writer(files, state, project, 0ms);
    ASSERT_TRUE(writer.write("new"));
    EXPECT_TRUE(writer.kept());
    EXPECT_EQ(test::readFile(project), "new");
    const auto versions = ProjectHistory(files, state).versions(project);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(test::readFile(versions.front().path), "old");
}

TEST_F(ProjectWriting, TheFileIsWrittenWhereNoVersionCanBeKept) {
    test::writeFile(project, "old");
    test::writeFile(state, "no folder");
    ProjectFileWriter writer(files, state, project, 0ms);
    ASSERT_TRUE(writer.write("new"));
    EXPECT_FALSE(writer.kept());
    EXPECT_EQ(test::readFile(project), "new");
}

TEST_F(ProjectWriting, ASecondWriterOfTheFolderIsBusy) {
    std::filesystem::create_symlink(project, folder / "link.zbp");
    const ProjectFileWriter first(files, state, project, 0ms);
    EXPECT_FALSE(first.isBusy());
    EXPECT_TRUE(ProjectFileWriter(files, state, project, 20ms).isBusy());
}

TEST_F(ProjectWriting, ASecondWriterWaitsForTheFirst) {
    auto first = std::make_unique<ProjectFileWriter>(files, state, project, 0ms);
    auto second = std::async(std::launch::async,
                             [&] { return ProjectFileWriter(files, state, project, 60s).isBusy(); });
    first.reset();
    EXPECT_FALSE(second.get());
}

} // namespace
} // namespace zb
