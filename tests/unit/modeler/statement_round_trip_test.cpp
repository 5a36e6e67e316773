#include "model/statement_node.h"
#include "unit/modeler/statement_desk.h"

#include <random>
#include <vector>

namespace zb {
namespace {

using test::StatementDesk;

/// Generates trees as a user can build them: chains whose branches are bare, contain a value, or contain
/// another chain.
class Grower {
public:
    explicit Grower(unsigned seed) : random_(seed) {}

    void grow(StatementDesk& desk) { growChain(desk, desk.root(), 0); }

private:
    int pick(int count) { return std::uniform_int_distribution(0, count - 1)(random_); }

    std::string condition() {
        static const std::vector<std::string> kConditions{"({A} == 1)", "({SVID[1;2]} != 'a = b')",
                                                          "(({A} == 1) and (({B} == 'x') or ({C} != TRUE)))"};
        return kConditions[static_cast<std::size_t>(pick(static_cast<int>(kConditions.size())))];
    }

    void growChain(StatementDesk& desk, Node& parent, int level) {
        growBranch(desk, desk.add(parent, "if", condition()), level);
        for (int others = pick(3); others > 0; --others)
            growBranch(desk, desk.add(parent, "elif", condition()), level);
        if (pick(2) == 0)
            growBranch(desk, desk.add(parent, "else"), level);
    }

    void growBranch(StatementDesk& desk, Node& statement, int level) {
        const int kind = pick(5);
        if (kind < 2)
            desk.statements.addValueNode(statement, pick(2) == 0 ? "COUNT=3" : "NAME='it''s =(x):'");
        else if (kind < 4 && level < 4)
            growChain(desk, statement, level + 1);
        else if (statement.image() != kElseImage && pick(2) == 0)
            statement.setText(statement.image());
    }

    std::mt19937 random_;
};

// Nothing is lost when no line has the depth of the line before it, or when both have depth 1: there the lost
// character is the blank of the depth.
bool readsBackWhole(const std::string& text) {
    std::size_t previous = text.size();
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find("\r\n", start), text.size());
        const std::size_t depth = lineDepth(std::string_view(text).substr(start, end - start));
        if (depth == previous && depth != 1)
            return false;
        previous = depth;
        start = end + 2;
    }
    return true;
}

// The meaning of a line, derived from the lines alone.
std::string lineOf(const XmlElement& statement) {
    const std::string& type = getElementAttribute(statement, "Type");
    const std::string& condition = getElementAttribute(statement, "Condition");
    if (type.empty())
        return "bare";
    return condition == "NONE" ? type + ":" : type + " " + condition + ":";
}

void appendOutline(const XmlElement& element, std::size_t depth, std::string& outline) {
    for (const XmlElement& statement : element.children()) {
        outline += std::string(depth, ' ') + lineOf(statement) + "\n";
        if (!statement.text().empty())
            outline += std::string(depth + 1, ' ') + "value " + statement.text() + "\n";
        appendOutline(statement, depth + 1, outline);
    }
}

std::string outlineOf(const XmlElement& condition) {
    std::string outline;
    appendOutline(condition, 0, outline);
    return outline;
}

std::string outlineOf(const std::string& statementText) {
    std::string outline;
    for (std::size_t start = 0; start <= statementText.size();) {
        const std::size_t end = std::min(statementText.find("\r\n", start), statementText.size());
        const std::string line = statementText.substr(start, end - start);
        const std::string words = line.substr(lineDepth(line));
        outline += std::string(lineDepth(line), ' ');
        if (words == "if" || words == "elif")
            outline += "bare";
        else if (words == "COUNT=3")
            outline += "value 3";
        else if (words.starts_with("NAME="))
            outline += "value it''s =(x):";
        else
            outline += words;
        outline += "\n";
        start = end + 2;
    }
    return outline;
}

class StatementRoundTrip : public testing::TestWithParam<unsigned> {};

constexpr unsigned kTreesPerSeed = 100;

TEST_P(StatementRoundTrip, KeepsEveryTreeWhoseLinesLoseNothing) {
    int whole = 0;
    for (unsigned tree = 0; tree < kTreesPerSeed; ++tree) {
        StatementDesk desk;
        Grower(GetParam() * kTreesPerSeed + tree).grow(desk);
        const std::string text = statementTextOf(desk.root());
        StatementDesk again;
        again.statements.showStatementText(text);
        if (!readsBackWhole(text)) {
            EXPECT_NE(again.shape(), desk.shape()) << text;
            continue;
        }
        ++whole;
        ASSERT_EQ(again.shape(), desk.shape()) << text;
        EXPECT_EQ(statementTextOf(again.root()), text);
        EXPECT_EQ(conditionNodeOf(again.root()), conditionNodeOf(desk.root())) << text;
    }
    EXPECT_GT(whole, 10);
}

TEST_P(StatementRoundTrip, TextAndElementReportTheSame) {
    for (unsigned tree = 0; tree < kTreesPerSeed; ++tree) {
        StatementDesk desk;
        Grower(GetParam() * kTreesPerSeed + tree).grow(desk);
        const std::string text = statementTextOf(desk.root());
        ASSERT_EQ(outlineOf(conditionNodeOf(desk.root())), outlineOf(text)) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, StatementRoundTrip, testing::Range(1U, 6U));

} // namespace
} // namespace zb
