#include "lint/rule.h"

#include "lint/rule_selection.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace zb {
namespace {

std::string severityName(const Rule& rule) {
    return rule.severity == Severity::Error ? "error" : "warning";
}

/// The ids of docs/findings.md with the line after each.
std::vector<std::pair<std::string, std::string>> documentedRules() {
    std::istringstream lines(test::readFile(std::string(ZB_SOURCE_FOLDER) + "/docs/findings.md"));
    std::vector<std::pair<std::string, std::string>> rules;
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("### `"))
            continue;
        std::string next;
        std::getline(lines, next);
        rules.emplace_back(line.substr(5, line.size() - 6), next);
    }
    return rules;
}

TEST(Rules, AreSortedAndUnique) {
    std::set<std::string_view> ids;
    const auto rules = allRules();
    for (std::size_t at = 0; at < rules.size(); ++at) {
        EXPECT_TRUE(ids.insert(rules[at].id).second) << rules[at].id;
        EXPECT_FALSE(rules[at].title.empty()) << rules[at].id;
        const bool hasCheck = rules[at].message != nullptr || rules[at].link != nullptr ||
                              rules[at].trMessage != nullptr || rules[at].model != nullptr ||
                              rules[at].sequences != nullptr;
        EXPECT_EQ(hasCheck, rules[at].set == RuleSet::Standard) << rules[at].id;
        if (at > 0) {
            EXPECT_LT(std::pair(rules[at - 1].category, rules[at - 1].id),
                      std::pair(rules[at].category, rules[at].id));
        }
    }
}

TEST(Rules, AreAllDocumentedWithTheirCategoryAndSeverity) {
    std::vector<std::pair<std::string, std::string>> expected;
    for (const Rule& rule : allRules())
        expected.emplace_back(rule.id, "*" + std::string(categoryName(rule.category)) + ", " +
                                           severityName(rule) + ", " +
                                           (rule.set == RuleSet::Basic ? "always" : "standard") + ".*");
    auto documented = documentedRules();
    for (auto& [id, line] : documented)
        line.resize(std::min(line.size(), line.find(".*") + 2));
    EXPECT_EQ(documented, expected);
}

TEST(Rules, AreSelectedByIdStartOrCategory) {
    const Rule& rule = *findRule("smd.item.count");
    EXPECT_TRUE(selects("smd.item.count", rule));
    EXPECT_TRUE(selects("smd.item", rule));
    EXPECT_TRUE(selects("smd", rule));
    EXPECT_TRUE(selects("definition", rule));
    EXPECT_FALSE(selects("smd.it", rule));
    EXPECT_FALSE(selects("smd.item.", rule));
    EXPECT_FALSE(selects("model", rule));
    EXPECT_FALSE(selects("", rule));
    EXPECT_TRUE(selectsAnything("style"));
    EXPECT_FALSE(selectsAnything("smd.item.counts"));
}

TEST(RuleSelection, OnlyNamesWhatIsWanted) {
    const Finding doubt{Severity::Warning, {}, "text", "smd.name.twice"};
    const Finding fault{Severity::Error, {}, "text", "smd.item.count"};
    const Finding standard{Severity::Warning, {}, "text", "std.direction"};
    EXPECT_FALSE(RuleSelection{}.wants(doubt));
    EXPECT_TRUE(RuleSelection{}.wants(fault));
    EXPECT_FALSE(RuleSelection{}.wants(standard));
    EXPECT_TRUE((RuleSelection{.warnings = true}.wants(doubt)));
    EXPECT_TRUE((RuleSelection{.standard = true}.wants(standard)));
    EXPECT_TRUE((RuleSelection{.standard = true}.wants(doubt)));
    const RuleSelection only{.only = {"smd.name"}};
    EXPECT_TRUE(only.wants(doubt));
    EXPECT_FALSE(only.wants(fault));
    const RuleSelection except{.standard = true, .except = {"std", "definition"}};
    EXPECT_FALSE(except.wants(standard));
    EXPECT_FALSE(except.wants(fault));
    EXPECT_EQ((RuleSelection{.except = {"std", "sdt"}}.unknownSelector()), "sdt");
}

TEST(RuleSelection, StyleIsNoFailure) {
    EXPECT_TRUE(isFailure({Severity::Error, {}, "", "smd.stream"}));
    EXPECT_FALSE(isFailure({Severity::Warning, {}, "", "smd.name.twice"}));
    EXPECT_TRUE(isFailure({Severity::Warning, {}, "", "std.structure"}));
    EXPECT_FALSE(isFailure({Severity::Warning, {}, "", "style.item.name"}));
}

} // namespace
} // namespace zb
