#include "lint/project_check.h"
#include "messages/message_nodes.h"
#include "messages/smd/smd_reader.h"
#include "project/project_messages.h"
#include "unit/lint/checked_project.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace zb::test {
namespace {

/// Keeps the findings of each message, and checks again only what a change concerns.
class LiveFindings {
public:
    explicit LiveFindings(const NodeTree& tree) {
        for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next())
            if (isMessageNode(*node))
                index_.put(*node, MessageSummary::of(CheckedMessage::of(*node)));
        for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next())
            if (isMessageNode(*node))
                check(*node);
    }

    void changed(const Node& node) {
        const CheckedMessage message = CheckedMessage::of(node);
        std::set<const Node*> concerned{&node};
        const auto takeBeside = [&](int stream, int function) {
            for (const Node* beside : index_.nodesBeside(stream, function))
                concerned.insert(beside);
        };
        const CheckedMessage& before = messages_.at(&node);
        takeBeside(before.stream, before.function);
        index_.put(node, MessageSummary::of(message));
        takeBeside(message.stream, message.function);
        for (const Node* each : concerned)
            check(*each);
    }

    std::multiset<std::string> places() const {
        std::multiset<std::string> places;
        for (const auto& [node, findings] : findings_)
            for (const std::string& place : placesOf(findings))
                places.insert(place);
        return places;
    }

private:
    void check(const Node& node) {
        CheckedMessage message = CheckedMessage::of(node);
        Findings& findings = findings_[&node];
        findings = check_.checkMessage(message, index_);
        for (Finding& finding : check_.checkLinks(message, index_))
            findings.push_back(std::move(finding));
        messages_.insert_or_assign(&node, std::move(message));
    }

    StandardCheck check_{CodePage(1252)};
    MessageIndex index_;
    std::map<const Node*, CheckedMessage> messages_;
    std::map<const Node*, Findings> findings_;
};

std::multiset<std::string> allPlaces(const NodeTree& tree) {
    const auto places = placesOf(StandardCheck(CodePage(1252)).checkMessages(tree));
    return {places.begin(), places.end()};
}

TEST(LiveChecks, FindTheSameAsACheckOfTheWholeProject) {
    NodeTree tree;
    readSmdSection(tree, "* d\nAsk: S1 F17 W H->E.\n* d\nAnswer: S1 F18 H<-E\n    B 1 ONLACK 0.\n"
                         "* d\nOne: S6 F11 W H<-E\n    L 3\n        U4 1 DATAID 0\n        U4 1 CEID 1 [K]\n"
                         "        L 0.\n"
                         "* d\nTwo: S6 F11 W H<-E\n    L 3\n        U4 1 DATAID 0\n        U4 1 CEID 2 [K]\n"
                         "        L 0.\n"
                         "* d\nTaken: S6 F12 H->E\n    B 1 ACKC6 0.\n");
    LiveFindings live(tree);
    const auto expectSame = [&](const std::string& what) {
        EXPECT_EQ(live.places(), allPlaces(tree)) << what;
    };
    const auto change = [&](const char* message, int item, const char* text) {
        Node* node = tree.find(message);
        Node* changed = item == 0 ? node : tree.at(node->index() + item);
        changed->setText(text);
        live.changed(*node);
        expectSame(text);
    };
    expectSame("at first");
    EXPECT_EQ(live.places().size(), 0U);
    change("Answer", 0, "Answer: S2 F18 H<-E");
    EXPECT_FALSE(live.places().empty());
    change("Answer", 0, "Answer: S1 F18 H<-E");
    change("Two", 3, "U4 1 CEID 1 [K]");
    change("One", 3, "U4 1 CEID 1");
    change("Two", 3, "U4 1 CEID 2");
    change("One", 0, "One: S6 F13 W H<-E");
    change("Taken", 0, "Taken: S6 F14 H->E");
    change("One", 0, "One: S6 F11 W H<-E");
    change("Ask", 0, "Ask: S1 F17 H<-E");
    change("Ask", 0, "Ask: SX F17 H<-E");
}

} // namespace
} // namespace zb::test
