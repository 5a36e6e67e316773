#include "model/model_writer.h"
#include "model/tr_model_store.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

std::unique_ptr<TRMessageRecord> message(std::string name, int direction = kToHost) {
    auto record = std::make_unique<TRMessageRecord>();
    record->setName(std::move(name));
    record->setDirection(direction);
    return record;
}

std::unique_ptr<TRItemRecord> item(std::string name) {
    auto record = std::make_unique<TRItemRecord>();
    record->setName(std::move(name));
    return record;
}

template<typename Records>
std::vector<std::string> namesOf(const Records& records) {
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const auto& record : records)
        names.push_back(record->Name());
    return names;
}

using Names = std::vector<std::string>;

TEST(TRModelStore, IsEmptyAtFirst) {
    const TRModelStore store;
    EXPECT_TRUE(store.TRMessages().empty());
    EXPECT_EQ(store.getTRMessage(""), nullptr);
    EXPECT_EQ(composeModel(store), "");
}

TEST(TRModelStore, KeepsTheOrderOfAdding) {
    TRModelStore store;
    for (const char* name : {"Zeta", "Alpha", "Mid"})
        store.addTRMessage(message(name));
    EXPECT_EQ(namesOf(store.TRMessages()), (Names{"Zeta", "Alpha", "Mid"}));
    store.deleteTRMessage("Alpha");
    store.addTRMessage(message("Alpha"));
    EXPECT_EQ(namesOf(store.TRMessages()), (Names{"Zeta", "Mid", "Alpha"}));
}

TEST(TRModelStore, FindsNamesExactly) {
    TRModelStore store;
    store.addTRMessage(message("Start"));
    EXPECT_NE(store.getTRMessage("Start"), nullptr);
    EXPECT_EQ(store.getTRMessage("start"), nullptr);
    EXPECT_EQ(store.getTRMessage("Start "), nullptr);
    EXPECT_EQ(store.getTRMessage(""), nullptr);
}

TEST(TRModelStore, TakesNoSecondRecordOfAName) {
    TRModelStore store;
    store.addTRMessage(message("A", kToHost));
    store.addTRMessage(message("A", kToEquip));
    EXPECT_EQ(namesOf(store.TRMessages()), Names{"A"});
    EXPECT_EQ(store.getTRMessage("A")->Direction(), kToHost);
}

TEST(TRModelStore, IgnoresTheDeletionOfAnUnknownName) {
    TRModelStore store;
    store.addTRMessage(message("A"));
    store.deleteTRMessage("Receive TRMessages");
    store.deleteTRMessage("A_LOT");
    EXPECT_EQ(namesOf(store.TRMessages()), Names{"A"});
}

TEST(TRModelStore, DeletesByTheNameOfTheRecordItself) {
    TRModelStore store;
    store.addTRMessage(message("A name that is longer than any short string"));
    store.deleteTRMessage(store.TRMessages().front()->Name());
    EXPECT_TRUE(store.TRMessages().empty());
    EXPECT_EQ(store.getTRMessage("A name that is longer than any short string"), nullptr);
}

TEST(TRModelStore, ClearsBothDirections) {
    TRModelStore store;
    store.addTRMessage(message("In", kToHost));
    store.addTRMessage(message("Out", kToEquip));
    store.clearTRMessages();
    EXPECT_TRUE(store.TRMessages().empty());
    EXPECT_EQ(store.getTRMessage("In"), nullptr);
    store.addTRMessage(message("In"));
    EXPECT_NE(store.getTRMessage("In"), nullptr);
}

TEST(TRModelStore, AChangedRecordIsAChangedModel) {
    TRModelStore store;
    store.addTRMessage(message("A"));
    store.getTRMessage("A")->setCondition("CEID = 1");
    EXPECT_EQ(store.TRMessages().front()->Condition(), "CEID = 1");
}

/// Names are found the same way whether there are few of them or many.
class NamesInAModel : public testing::TestWithParam<int> {
protected:
    NamesInAModel() {
        for (int number = 0; number < GetParam(); ++number)
            store_.addTRMessage(message("Other" + std::to_string(number)));
    }

    TRModelStore store_;
};

TEST_P(NamesInAModel, FollowARecordThatIsRenamed) {
    store_.addTRMessage(message("Old"));
    store_.getTRMessage("Old")->setName("New");
    EXPECT_EQ(store_.getTRMessage("Old"), nullptr);
    ASSERT_NE(store_.getTRMessage("New"), nullptr);
    store_.addTRMessage(message("Old"));
    EXPECT_NE(store_.getTRMessage("Old"), store_.getTRMessage("New"));
    store_.addTRMessage(message("New", kToEquip));
    EXPECT_EQ(store_.getTRMessage("New")->Direction(), kToHost);
}

TEST_P(NamesInAModel, LeadToTheSecondOfTwoOnceTheFirstIsGone) {
    store_.addTRMessage(message("A", kToHost));
    store_.addTRMessage(message("B", kToEquip));
    store_.getTRMessage("B")->setName("A");
    EXPECT_EQ(store_.getTRMessage("A")->Direction(), kToHost);
    store_.deleteTRMessage("A");
    ASSERT_NE(store_.getTRMessage("A"), nullptr);
    EXPECT_EQ(store_.getTRMessage("A")->Direction(), kToEquip);
    store_.deleteTRMessage("A");
    EXPECT_EQ(store_.getTRMessage("A"), nullptr);
}

TEST_P(NamesInAModel, AreFreeAgainWhenTheirRecordsAreGone) {
    for (int round = 0; round < 3; ++round) {
        for (int number = 0; number < 40; ++number)
            store_.addTRMessage(message("N" + std::to_string(number), round));
        for (int number = 39; number >= 0; --number) {
            const std::string name = "N" + std::to_string(number);
            ASSERT_NE(store_.getTRMessage(name), nullptr);
            ASSERT_EQ(store_.getTRMessage(name)->Direction(), round);
            store_.deleteTRMessage(name);
            ASSERT_EQ(store_.getTRMessage(name), nullptr);
        }
        ASSERT_EQ(store_.TRMessages().size(), static_cast<std::size_t>(round == 0 ? GetParam() : 0));
        store_.clearTRMessages();
    }
}

/// The positions of all changes, in their order.
class Positions final : public TRModelRecorder {
public:
    void beforeChange(std::size_t position, const TRMessageRecord& message) override {
        noted.emplace_back(position, message.Name());
    }
    void afterAdd(std::size_t /*position*/) override {}
    void afterRemove(std::size_t position, std::unique_ptr<TRMessageRecord> message) override {
        noted.emplace_back(position, message->Name());
    }

    std::vector<std::pair<std::size_t, std::string>> noted;
};

TEST_P(NamesInAModel, HaveTheirPositionsInAnyOrderOfAsking) {
    Positions positions;
    store_.setRecorder(&positions);
    const std::size_t count = store_.TRMessages().size();
    // Forwards, backwards and across.
    std::vector<std::size_t> order;
    for (std::size_t at = 0; at < 3 * count; ++at)
        order.push_back(at < count ? at : at < 2 * count ? 2 * count - 1 - at : (at * 7) % count);
    for (const std::size_t at : order)
        store_.changeTRMessage("Other" + std::to_string(at));
    ASSERT_EQ(positions.noted.size(), order.size());
    for (std::size_t at = 0; at < order.size(); ++at)
        EXPECT_EQ(positions.noted[at], std::pair(order[at], "Other" + std::to_string(order[at])));
}

TEST_P(NamesInAModel, HaveTheirPositionsAfterOthersAreGone) {
    Positions positions;
    store_.setRecorder(&positions);
    // The last search ended at a position that is gone.
    for (std::size_t left = store_.TRMessages().size(); left > 0;) {
        const std::string last = store_.TRMessages().back()->Name();
        const std::string first = store_.TRMessages().front()->Name();
        positions.noted.clear();
        store_.deleteTRMessage(last);
        EXPECT_EQ(positions.noted, (decltype(positions.noted){{--left, last}}));
        if (left > 0) {
            store_.changeTRMessage(first);
            EXPECT_EQ(positions.noted.back(), std::pair(std::size_t{0}, first));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(FewAndMany, NamesInAModel, testing::Values(0, 15, 16, 17, 60));

TEST(TRModelStore, ReceivesWhatTheOtherSideSends) {
    TRModelStore store;
    store.setProjectType(1);
    EXPECT_EQ(store.ReceivedDirection(), 1);
    EXPECT_EQ(store.SentDirection(), 2);
    for (const int otherType : {2, 0, 3, -1}) {
        store.setProjectType(otherType);
        EXPECT_EQ(store.ReceivedDirection(), 2) << otherType;
        EXPECT_EQ(store.SentDirection(), 1) << otherType;
    }
}

TEST(TRMessageRecord, KeepsItsItemsInTheOrderOfAdding) {
    TRMessageRecord record;
    for (const char* name : {"PORT", "CST", "LOT"})
        EXPECT_TRUE(record.addTRItem(item(name)));
    EXPECT_FALSE(record.addTRItem(item("CST")));
    EXPECT_TRUE(record.addTRItem(item("cst")));
    EXPECT_EQ(namesOf(record.TRItems()), (Names{"PORT", "CST", "LOT", "cst"}));
    record.deleteTRItem("CST");
    record.deleteTRItem("NONE");
    EXPECT_EQ(namesOf(record.TRItems()), (Names{"PORT", "LOT", "cst"}));
    EXPECT_EQ(record.getTRItem("CST"), nullptr);
    EXPECT_EQ(record.getTRItem("LOT"), record.TRItems()[1].get());
}

TEST(TRMessageRecord, HasNoDataBlockUntilOneIsSet) {
    TRMessageRecord record;
    record.newDataBlock();
    EXPECT_FALSE(record.DataBlock());
    EXPECT_FALSE(record.DataBlockNode());
    SECSMessageRecord block;
    ASSERT_EQ(block.parseSmd("* Hello\r\nHi: S1 F1 W H->E\r\n    A 2 X 'ab'.\r\n", kFormatSmd), "");
    record.setDataBlock(block);
    ASSERT_TRUE(record.DataBlock());
    EXPECT_EQ(record.DataBlock()->getName(), "Hi");
    ASSERT_TRUE(record.DataBlockNode());
    EXPECT_EQ(record.DataBlockNode()->name(), "DataBlock");
}

TEST(TRItemRecord, DistinguishesNoConditionFromAnEmptyOne) {
    TRItemRecord record;
    EXPECT_FALSE(record.ConditionNode());
    record.setConditionNode(createElement("Condition"));
    ASSERT_TRUE(record.ConditionNode());
    EXPECT_TRUE(record.ConditionNode()->children().empty());
    record.setConditionNode(std::nullopt);
    EXPECT_FALSE(record.ConditionNode());
}

} // namespace
} // namespace zb
