#include "messages/mdf_text.h"
#include "unit/messages/workbench.h"

#include "platform/text_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <random>

namespace zb {
namespace {

/// Random messages that pass all checks and are in canonical form.
class ProjectMaker {
public:
    explicit ProjectMaker(unsigned seed) : random_(seed) {}

    void fill(NodeTree& tree, int messages) {
        for (int i = 1; i <= messages; ++i) {
            tree.add(nullptr, Relation::Last, "");
            tree.add(nullptr, Relation::Last,
                     pick({"", "Are You There", "\xED\x95\x9C\xEA\xB8\x80 \xEC\x83\x81\xED\x83\x9C",
                           "* stars *", "a > b.", "50% <L 1>"}))
                .setBold(true);
            const std::string name = "M" + std::to_string(i);
            Node& message =
                tree.add(nullptr, Relation::Last,
                         name + ": S" + std::to_string(number(0, 128)) + " F" +
                             std::to_string(number(0, 255)) + pick({"", " W"}) + pick({"", " <R>"}) +
                             pick({"", " <NL>"}) + pick({" H->E", " H<-E", " H<->E"}));
            tree.setKey(message, name);
            names_ = 0;
            addItems(tree, message, number(0, 4), 0);
        }
    }

private:
    int number(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }
    std::string pick(const std::vector<std::string>& from) {
        return from[static_cast<std::size_t>(number(0, static_cast<int>(from.size()) - 1))];
    }
    std::string newName() { return " N" + std::to_string(++names_); }

    void addItems(NodeTree& tree, Node& above, int count, int depth) {
        for (int i = 0; i < count; ++i) {
            if (depth < 4 && number(0, 2) == 0) {
                const int children = number(0, 3);
                const bool variable = children <= 1 && number(0, 1) == 1;
                const std::string text = variable ? "L 20V" + newName() : "L " + std::to_string(children);
                addItems(tree, tree.add(&above, Relation::Child, text), children, depth + 1);
            } else {
                tree.add(&above, Relation::Child, leaf());
            }
        }
    }

    std::string leaf() {
        const std::string name = number(0, 1) == 1 ? newName() : "";
        const std::string key = pick({"", " [K]"});
        switch (number(0, 3)) {
        case 0:
            return "A 20V" + name + " '" + pick({"", "a b", " x ", "it's", "<L 1>", "a.", "\xED\x95\x9C"}) +
                   "'" + key;
        case 1:
            return "U2 2" + name + " 1 65535" + key;
        case 2:
            return "BOOLEAN 1" + name + pick({" True", " False"}) + key;
        default:
            return "F8 3V" + name + pick({" -1.5", "", " 1E+20 2"}) + key;
        }
    }

    std::mt19937 random_;
    int names_ = 0;
};

class GeneratedProjects : public testing::TestWithParam<unsigned> {
protected:
    GeneratedProjects() {
        bench.codePage = CodePage(949);
        ProjectMaker(GetParam()).fill(bench.tree, 30);
        before = test::outline(bench.tree);
    }

    std::string build(WalkMode mode) {
        EXPECT_EQ(bench.walk(mode).status, "");
        return mode == WalkMode::BuildMdf ? composeMdf(bench.store->getMessages()) : bench.store->allTexts();
    }

    std::string addAll(const std::vector<SECSMessageRecord>& records) {
        test::Workbench again;
        for (const SECSMessageRecord& record : records)
            EXPECT_EQ(addMessageToTree(again.tree, record), "");
        return test::outline(again.tree);
    }

    test::Workbench bench;
    std::string before;
};

TEST_P(GeneratedProjects, ASaveIsReadBackAsItWas) {
    const std::string saved = bench.saved();
    test::Workbench again;
    again.read(decodeProject(encodeUtf16(saved)).text);
    EXPECT_EQ(test::outline(again.tree), before);
    EXPECT_EQ(again.saved(), saved);
}

TEST_P(GeneratedProjects, TheCheckedWalkFindsNothingToChange) {
    bench.walk(WalkMode::Modeler);
    EXPECT_EQ(bench.faults, std::vector<std::string>());
    EXPECT_EQ(test::outline(bench.tree), before);
}

TEST_P(GeneratedProjects, ASmdFileIsReadBackAsItWas) {
    const std::string text = build(WalkMode::BuildSmd);
    Findings findings;
    SmdTextSplitter splitter(text, &findings);
    std::vector<SECSMessageRecord> records;
    while (const auto message = splitter.next()) {
        const std::string one = "* " + std::string(message->description) + "\r\n" +
                                std::string(message->head) + (message->body.empty() ? "." : "") + "\r\n" +
                                std::string(message->body);
        EXPECT_EQ(records.emplace_back().parseSmd(one, kFormatSmd), "") << one;
    }
    EXPECT_EQ(findings, Findings());
    EXPECT_EQ(addAll(records), before);
}

TEST_P(GeneratedProjects, AnMdfFileIsReadBackAsItWas) {
    Findings findings;
    EXPECT_EQ(addAll(parseMdf(build(WalkMode::BuildMdf), findings)), before);
    EXPECT_EQ(findings, Findings());
}

TEST_P(GeneratedProjects, TheStoreHoldsTheMessagesOfTheTree) {
    bench.saved();
    std::vector<SECSMessageRecord> records;
    for (const SECSMessageRecord* record : bench.store->getMessages())
        records.push_back(*record);
    EXPECT_EQ(addAll(records), before);
}

INSTANTIATE_TEST_SUITE_P(RoundTrip, GeneratedProjects, testing::Range(1U, 21U));

} // namespace
} // namespace zb
