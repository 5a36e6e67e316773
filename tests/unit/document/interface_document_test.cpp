#include "document/interface_document.h"

#include "document/interface_facts.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <memory>
#include <set>

namespace zb {
namespace {

using testing::HasSubstr;
using testing::Not;

/// A document, read by an XML library that the program does not use.
class ParsedPage {
public:
    explicit ParsedPage(const std::string& html)
        : document_(xmlReadMemory(html.data(), static_cast<int>(html.size()), "page", "UTF-8",
                                  XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NONET),
                    &xmlFreeDoc) {}

    bool isWellFormed() const { return document_ != nullptr; }

    /// The values of all attributes with the name.
    std::multiset<std::string> attributes(const std::string& name) const {
        std::multiset<std::string> values;
        collect(xmlDocGetRootElement(document_.get()), name, values);
        return values;
    }

    std::size_t elements(const std::string& name) const {
        std::size_t count = 0;
        visit(xmlDocGetRootElement(document_.get()), [&](const xmlNode& node) {
            count += name == reinterpret_cast<const char*>(node.name) ? 1U : 0U;
        });
        return count;
    }

private:
    template<typename Visit>
    static void visit(const xmlNode* node, Visit visitor) {
        for (; node != nullptr; node = node->next) {
            if (node->type == XML_ELEMENT_NODE)
                visitor(*node);
            visit(node->children, visitor);
        }
    }

    static void collect(xmlNode* root, const std::string& name, std::multiset<std::string>& values) {
        visit(root, [&](const xmlNode& node) {
            for (const xmlAttr* attribute = node.properties; attribute != nullptr;
                 attribute = attribute->next)
                if (name == reinterpret_cast<const char*>(attribute->name))
                    values.insert(reinterpret_cast<const char*>(attribute->children->content));
        });
    }

    std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document_;
};

InterfaceFacts factsOf(const std::string& projectText) {
    return interfaceFacts(parseProject(projectText), "Demo");
}

InterfaceFacts etcher() {
    const std::string bytes = test::readFile(std::string(ZB_SOURCE_FOLDER) + "/examples/etcher/Etcher.zbp");
    return interfaceFacts(parseProject(decodeProject(bytes).text), "Etcher");
}

constexpr const char* kHostile = "</td><script>alert(1)</script> \"&amp; '\x1B[31m \u202E |x| *b* `c`";

std::string hostileProject() {
    const std::string text = kHostile;
    return "\n###[PROJECT INFORMATION]\nProjectType=2\n## [EDIT SMD]\n* " + text +
           "\n<b>M: S1 F1 W H->E\n    A 16V N<i> '" + text +
           "'.\n###[TRANSACTION MODEL] 1\n## [TR MESSAGE] <u>" +
           "\n  SECSMessage <b>M\n  Condition ({N} == '" + text + "')\n  Direction 2\n  TRItem " + text +
           "\n    Value " + text + "\n    StatementText if (" + text +
           "):\n  EndTRItem\nEndTRMessage\n\n\n\n###[SEQUENCE TABLE]\nSeqName\u00FF" + text +
           "\u00FF\u00FF\nSeqItem\u00FF1\u00FFToHost\u00FF<u>\n";
}

TEST(InterfaceFacts, HoldMessagesByStreamWithTheirReplies) {
    const InterfaceFacts facts = etcher();
    ASSERT_EQ(facts.messages.size(), 55U);
    EXPECT_EQ(facts.messages.front().streamFunction, "S1F1");
    EXPECT_EQ(facts.messages.back().streamFunction, "S10F6");
    const DocumentedMessage& ask = facts.messages.front();
    ASSERT_EQ(ask.replies.size(), 2U);
    EXPECT_EQ(facts.messages[ask.replies[0]].name, "OnLineData");
    EXPECT_EQ(facts.messages[ask.replies[0]].items[1].meaning, "Equipment model");
    EXPECT_EQ(facts.sequences.size(), 3U);
    EXPECT_EQ(facts.sequences[0].steps[0].streamFunction, "S1F13");
}

TEST(InterfaceHtml, IsWellFormedAndItsLinksLeadSomewhere) {
    const std::string html = interfaceHtml(etcher());
    const ParsedPage page(html);
    ASSERT_TRUE(page.isWellFormed());
    const auto ids = page.attributes("id");
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size()) << "an id is used twice";
    const auto links = page.attributes("href");
    EXPECT_GT(links.size(), 100U);
    for (const std::string& link : links) {
        ASSERT_TRUE(link.starts_with('#')) << link;
        EXPECT_TRUE(ids.contains(link.substr(1))) << link;
    }
    EXPECT_EQ(page.elements("svg"), 3U);
    EXPECT_EQ(page.elements("section"), 55U);
    EXPECT_EQ(page.attributes("src").size(), 0U) << "nothing is loaded from elsewhere";
}

TEST(InterfaceHtml, IsTheSameForTheSameProject) {
    EXPECT_EQ(interfaceHtml(etcher()), interfaceHtml(etcher()));
    EXPECT_EQ(interfaceMarkdown(etcher()), interfaceMarkdown(etcher()));
}

TEST(InterfaceHtml, ShowsHostileTextsAsTheyAre) {
    const std::string html = interfaceHtml(factsOf(hostileProject()));
    const ParsedPage page(html);
    ASSERT_TRUE(page.isWellFormed());
    EXPECT_EQ(page.elements("script"), 0U);
    EXPECT_EQ(page.elements("b") + page.elements("i") + page.elements("u"), 0U);
    EXPECT_THAT(html, Not(HasSubstr("\x1B")));
    EXPECT_THAT(html, Not(HasSubstr("\u202E")));
    EXPECT_THAT(html, HasSubstr("&lt;script&gt;alert(1)"));
}

TEST(InterfaceHtml, ShowsADamagedProject) {
    const ParsedPage empty(interfaceHtml(factsOf("")));
    EXPECT_TRUE(empty.isWellFormed());
    const ParsedPage odd(interfaceHtml(factsOf(
        "## [EDIT SMD]\nA: SX FY\n    \xFF 1\n        L 2V\n            U3\n* d\nA: S1 F1 H->E\n  A 4 X.\n\n\n\n"
        "###[SEQUENCE TABLE]\nSeqItem\u00FF1\u00FFToHost\u00FFGone\nSeqName\u00FFS\u00FF\u00FF\n"
        "SeqItem\u00FF1\u00FFToHost\u00FFGone\n")));
    EXPECT_TRUE(odd.isWellFormed());
}

TEST(InterfaceMarkdown, EscapesWhatMarkdownWouldTake) {
    const std::string text = interfaceMarkdown(factsOf(hostileProject()));
    EXPECT_THAT(text, HasSubstr("\\<script\\>alert\\(1\\)"));
    EXPECT_THAT(text, HasSubstr("\\|x\\| \\*b\\* \\`c\\`"));
    EXPECT_THAT(replaceAll(text, "\\<", ""), Not(HasSubstr("<script")));
    EXPECT_THAT(text, Not(HasSubstr("\x1B")));
}

} // namespace
} // namespace zb
