#include "controls/combo.h"
#include "controls/combo_journal.h"
#include "controls/desktop.h"
#include "controls/window.h"
#include "silent_screen.h"

#include <gmock/gmock.h>

#include <random>
#include <string>
#include <vector>

namespace zb {
namespace {

using testing::ElementsAre;

class ComboEntriesTest : public testing::Test {
protected:
    ComboEntriesTest() {
        combo.bell = [this](Change change) { rings += change == Change::Rows ? 1 : 0; };
    }
    void fill(const std::vector<std::string>& entries) {
        for (const std::string& entry : entries)
            combo.add(entry);
        rings = 0;
    }

    SilentScreen screen;
    Desktop desktop{screen};
    Window window{desktop, "frmCombo"};
    Combo combo{window, "cboCombo"};
    int rings = 0;
};

TEST_F(ComboEntriesTest, TheFirstEntryOfEachTextGoesInOnePass) {
    fill({"a", "b", "a", "c", "b"});
    combo.setText("b");
    combo.removeAll({"b", "a", "nowhere"});
    EXPECT_THAT(combo.entries(), ElementsAre("a", "c", "b"));
    EXPECT_EQ(combo.text(), "");
    EXPECT_EQ(rings, 1);
}

TEST_F(ComboEntriesTest, ManyEntriesGoAndReturnInOnePassEach) {
    constexpr int kCount = 100;
    std::vector<std::string> all;
    all.reserve(kCount);
    for (int number = 0; number < kCount; ++number)
        all.push_back("Message" + std::to_string(number));
    fill(all);
    ComboJournal journal(combo);
    journal.setRecording(true);
    std::vector<std::string> odd;
    for (std::size_t at = 1; at < all.size(); at += 2)
        odd.push_back(all[at]);
    combo.removeAll(odd);
    const std::vector<std::string> even = combo.entries();
    const auto part = journal.take();
    journal.setRecording(false);
    rings = 0;
    part->undo();
    EXPECT_EQ(combo.entries(), all);
    EXPECT_EQ(rings, 1);
    part->redo();
    EXPECT_EQ(combo.entries(), even);
    EXPECT_EQ(rings, 2);
}

TEST_F(ComboEntriesTest, AnyChangesAreUndoneAndRedone) {
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        combo.clear();
        fill({"a", "b", "c", "d", "e", "f"});
        ComboJournal journal(combo);
        journal.setRecording(true);
        const std::vector<std::string> before = combo.entries();
        for (int step = 0; step < 12; ++step) {
            const std::size_t count = combo.entries().size();
            if (random() % 2 == 0)
                combo.insertAt(random() % (count + 1), "n" + std::to_string(step));
            else if (count > 0)
                combo.removeAt(random() % count);
        }
        const std::vector<std::string> after = combo.entries();
        const auto part = journal.take();
        journal.setRecording(false);
        ASSERT_NE(part, nullptr);
        part->undo();
        ASSERT_EQ(combo.entries(), before) << "round " << round;
        part->redo();
        ASSERT_EQ(combo.entries(), after) << "round " << round;
        part->undo();
        ASSERT_EQ(combo.entries(), before) << "round " << round;
    }
}

} // namespace
} // namespace zb
