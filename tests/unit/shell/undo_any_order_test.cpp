// A user who does anything in any order. After each undo the documents must be what they were before the
// step, and after each redo what they were after it. ZB_UNDO_SEQUENCES sets how many users there are.
#include "support/temporary_folder.h"
#include "unit/shell/undo_any_order.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace zb {
namespace {

namespace fs = std::filesystem;

using test::UndoAnyOrder;

std::size_t sequences() {
    const char* set = std::getenv("ZB_UNDO_SEQUENCES");
    return set == nullptr ? 300 : static_cast<std::size_t>(std::atol(set));
}

constexpr std::size_t kRanges = 4;

/// One of the ranges of seeds, which can run beside each other.
class UndoInAnyOrder : public testing::TestWithParam<std::size_t> {};

TEST_P(UndoInAnyOrder, GoesBackAndForthExactly) {
    constexpr std::size_t kUsersOfAProgram = 8;
    const std::size_t first = GetParam() * sequences() / kRanges + 1;
    const std::size_t end = (GetParam() + 1) * sequences() / kRanges + 1;
    const test::TemporaryFolder folder;
    std::unique_ptr<UndoAnyOrder> program;
    std::size_t made = 0;
    for (std::size_t seed = first; seed < end; ++seed) {
        // A save or build of one user must not change what the next one opens.
        const fs::path project = folder / ("Line" + std::to_string(seed)) / "Line.zbp";
        fs::create_directories(project.parent_path());
        fs::copy_file(fs::path(ZB_SOURCE_FOLDER) /
                          (seed % 3 == 0 ? "examples/faulty/Faulty.zbp" : "examples/etcher/Etcher.zbp"),
                      project);
        if (program == nullptr || program->ended() || (seed - first) % kUsersOfAProgram == 0)
            program = std::make_unique<UndoAnyOrder>();
        program->open(static_cast<unsigned>(seed), project);
        program->run();
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "seed " << seed;
        made += program->made();
        fs::remove_all(project.parent_path());
    }
    // Users who change nothing would prove nothing.
    EXPECT_GT(made, 3 * (end - first));
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoInAnyOrder, testing::Range<std::size_t>(0, kRanges));

} // namespace
} // namespace zb
