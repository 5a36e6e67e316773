#include "messages/libraries/built_in.h"
#include "messages/libraries/published_layouts.h"
#include "unit/libraries/layout_text.h"
#include "unit/libraries/smd_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <optional>
#include <regex>
#include <set>

namespace zb::test {

namespace {

// A message whose name does not consist of its stream and function.
struct NamedForm {
    int stream = 0;
    int function = 0;
    std::size_t form = 0;                 // the form of the layout that it uses
    std::optional<std::string> direction; // if narrower than the layout's
};

const std::map<std::string, NamedForm>& namedForms() {
    static const std::map<std::string, NamedForm> kForms{
        {"AreYouThere", {1, 1, 0, std::nullopt}},
        {"OnLineData", {1, 2, 0, "H<-E"}},
        {"IAmHere", {1, 2, 1, "H->E"}},
        {"ConnectHost", {1, 13, 0, "H<-E"}},
        {"ConnectEquip", {1, 13, 1, "H->E"}},
        {"HostConnected", {1, 14, 1, "H->E"}},
        {"EquipConnected", {1, 14, 0, "H<-E"}},
        {"DateTimeRequest", {2, 17, 0, std::nullopt}},
        {"DateTimeData", {2, 18, 0, std::nullopt}},
    };
    return kForms;
}

std::vector<Message> semiMessages() {
    std::vector<Message> messages;
    for (const auto& block : semiLibraryBlocks())
        std::ranges::move(readSmdText(block), std::back_inserter(messages));
    return messages;
}

std::vector<std::string> namesOf(const std::vector<Message>& messages) {
    std::vector<std::string> names;
    names.reserve(messages.size());
    for (const auto& message : messages)
        names.push_back(message.name);
    return names;
}

std::string textOf(const std::string& name) {
    for (const auto& message : semiMessages())
        if (message.name == name)
            return message.text.substr(std::size_t{2} * 72 + message.title.size() + 4);
    return "no message " + name;
}

void visit(const std::vector<Item>& items, const std::function<void(const Item&)>& visitor) {
    for (const auto& item : items) {
        visitor(item);
        visit(item.children, visitor);
    }
}

// Runs `check` on every item of the SEMI library, and reports the place of a failure.
void forEachItem(const std::function<void(const Item&, const Message&)>& check) {
    for (const auto& message : semiMessages())
        visit(message.items, [&](const Item& item) {
            SCOPED_TRACE(message.name + ", " + item.type + " " + item.name);
            check(item, message);
        });
}

std::string upper(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

bool isText(const Item& item) {
    return item.type == "A" || item.type == "J" || item.type == "X";
}

std::regex valueForm(const std::string& type) {
    if (type == "BOOLEAN")
        return std::regex("True|False");
    if (type == "B")
        return std::regex("[0-9]|[1-9][0-9]|1[0-9][0-9]|2[0-4][0-9]|25[0-5]");
    if (type.front() == 'U')
        return std::regex("0|[1-9][0-9]{0,2}");
    return std::regex("-?(0|[1-9][0-9]{0,2})");
}

// "CEID" for the "CEID2" of a message that has both.
std::string dictionaryName(const std::string& name, const PublishedFormats& formats) {
    return formats.contains(name) ? name : std::regex_replace(name, std::regex("[0-9]+$"), "");
}

} // namespace

TEST(LibraryTexts, SemiHoldsItsMessagesInOrderInThreeBlocks) {
    std::vector<std::size_t> sizes;
    for (const auto& block : semiLibraryBlocks())
        sizes.push_back(readSmdText(block).size());
    EXPECT_THAT(sizes, testing::ElementsAre(176, 109, 72));
    EXPECT_EQ(namesOf(semiMessages()), readNames("semi-names.txt"));
}

TEST(LibraryTexts, GemHoldsItsMessagesInOrder) {
    const auto names = namesOf(readSmdText(gemLibraryText()));
    EXPECT_EQ(names.size(), 93U);
    EXPECT_EQ(names, readNames("gem-names.txt"));
}

TEST(LibraryTexts, GemSharesItsTextsWithSemi) {
    std::map<std::string, std::string> semi;
    for (const auto& message : semiMessages())
        semi.emplace(message.name, message.text);
    std::string expected;
    for (const auto& name : readNames("gem-names.txt"))
        expected += semi.at(name);
    EXPECT_EQ(gemLibraryText(), expected);
}

TEST(LibraryTexts, EveryLayoutHasItsMessage) {
    std::set<std::pair<int, int>> held;
    for (const auto& message : semiMessages())
        held.emplace(message.stream, message.function);
    std::set<std::pair<int, int>> published;
    for (const PublishedLayout& layout : publishedLayouts())
        published.emplace(layout.stream, layout.function);
    EXPECT_EQ(held, published);
}

TEST(LibraryTexts, MessageAgreesWithItsLayout) {
    std::map<std::pair<int, int>, PublishedLayout> layouts;
    for (const PublishedLayout& layout : publishedLayouts())
        layouts.emplace(std::pair{layout.stream, layout.function}, layout);
    for (const auto& message : semiMessages()) {
        SCOPED_TRACE(message.name);
        const auto& layout = layouts.at({message.stream, message.function});
        const auto named = namedForms().find(message.name);
        const auto form = named == namedForms().end() ? NamedForm{} : named->second;
        EXPECT_EQ(layoutOf(message), numberRepeatedItems(layout.forms.at(form.form)));
        EXPECT_EQ(message.title, layout.title);
        EXPECT_EQ(message.direction, form.direction.value_or(std::string(layout.direction)));
        EXPECT_EQ(message.wait, layout.reply != PublishedLayout::Reply::No);
    }
}

TEST(LibraryTexts, NameContainsStreamAndFunction) {
    for (const auto& message : semiMessages()) {
        SCOPED_TRACE(message.name);
        if (const auto named = namedForms().find(message.name); named != namedForms().end()) {
            EXPECT_EQ(message.stream, named->second.stream);
            EXPECT_EQ(message.function, named->second.function);
        } else {
            EXPECT_EQ(message.name,
                      "S" + std::to_string(message.stream) + "F" + std::to_string(message.function));
        }
    }
}

TEST(LibraryTexts, OnlyPrimariesWait) {
    for (const auto& message : semiMessages()) {
        SCOPED_TRACE(message.name);
        EXPECT_FALSE(message.wait && message.function % 2 == 0);
        EXPECT_EQ(message.autoReply, message.name == "AreYouThere" || message.name == "ConnectHost");
    }
}

TEST(LibraryTexts, WaitingPrimaryHasItsReplyInTheLibrary) {
    const auto messages = semiMessages();
    std::set<std::pair<int, int>> held;
    for (const auto& message : messages)
        held.emplace(message.stream, message.function);
    for (const auto& message : messages)
        EXPECT_EQ(message.wait,
                  message.function % 2 == 1 && held.contains({message.stream, message.function + 1}))
            << message.name;
}

TEST(LibraryTexts, TitleCannotPassForAMessage) {
    for (const auto& message : semiMessages())
        EXPECT_EQ(message.title.find(':'), std::string::npos) << message.title;
}

TEST(LibraryTexts, ItemNamesAreUniqueWithinAMessage) {
    for (const auto& message : semiMessages()) {
        SCOPED_TRACE(message.name);
        std::set<std::string> seen;
        visit(message.items, [&](const Item& item) {
            EXPECT_TRUE(item.name.empty() || seen.insert(upper(item.name)).second) << item.name << " twice";
        });
    }
}

TEST(LibraryTexts, ListCountsFitTheirItems) {
    forEachItem([](const Item& list, const Message&) {
        if (list.type != "L")
            return;
        EXPECT_TRUE(list.values.empty());
        if (list.variable) {
            EXPECT_EQ(list.children.size(), 1U);
            EXPECT_GE(list.count, 10);
        } else {
            EXPECT_EQ(static_cast<std::size_t>(list.count), list.children.size());
            EXPECT_EQ(list.name, "");
        }
    });
}

TEST(LibraryTexts, VariableListIsNamedAfterWhatItCounts) {
    forEachItem([](const Item& list, const Message&) {
        if (list.type != "L" || !list.variable || list.children.size() != 1)
            return;
        const auto& repeated = list.children.front();
        EXPECT_THAT(list.name, testing::MatchesRegex("[A-Z]+[A-Z0-9]*COUNT2?"));
        if (repeated.type != "L") {
            EXPECT_EQ(list.name, dictionaryName(repeated.name, publishedFormats()) + "COUNT");
        }
    });
}

TEST(LibraryTexts, ItemHasOneOfItsFormats) {
    const auto formats = publishedFormats();
    forEachItem([&](const Item& item, const Message&) {
        if (item.type == "L")
            return;
        const auto known = formats.find(dictionaryName(item.name, formats));
        ASSERT_NE(known, formats.end());
        EXPECT_THAT(known->second, testing::Contains(item.type));
    });
}

// The text is already what a build would make of it, so that a message from a library is unchanged when it is
// built.
TEST(LibraryTexts, ValueIsCanonicalForTypeAndCount) {
    forEachItem([](const Item& item, const Message&) {
        if (item.type == "L")
            return;
        ASSERT_FALSE(item.values.empty());
        EXPECT_EQ(item.quoted, isText(item));
        EXPECT_LE(item.count, 32767);
        const auto size = isText(item) ? item.values.front().size() : item.values.size();
        if (item.variable)
            EXPECT_LE(size, static_cast<std::size_t>(item.count));
        else
            EXPECT_EQ(size, static_cast<std::size_t>(item.count));
        for (const auto& value : item.values)
            EXPECT_TRUE(isText(item) || std::regex_match(value, valueForm(item.type))) << value;
    });
}

TEST(LibraryTexts, ItemLooksTheSameInEveryMessage) {
    const auto formats = publishedFormats();
    std::map<std::string, std::set<std::string>> forms;
    forEachItem([&](const Item& item, const Message&) {
        if (item.type == "L")
            return;
        auto form = item.type + " " + std::to_string(item.count) + (item.variable ? "V" : "");
        for (const auto& value : item.values)
            form += " " + value;
        forms[dictionaryName(item.name, formats)].insert(form);
    });
    std::erase_if(forms, [](const auto& entry) { return entry.second.size() == 1; });
    const std::map<std::string, std::set<std::string>> wanted{
        {"ALID", {"I2 1 0", "I2 20V 0"}},       // S5F5 requests several alarms in one item
        {"MDLN", {"A 6 HLVFAB", "A 6 HLVFAb"}}, // OnLineData has its own spelling
    };
    EXPECT_EQ(forms, wanted);
}

TEST(LibraryTexts, MessagesOfEachKindAreAsUsersKnowThem) {
    EXPECT_EQ(textOf("AreYouThere"), "AreYouThere: S1 F1 W <R> H<->E.\r\n");
    EXPECT_EQ(textOf("OnLineData"), "OnLineData: S1 F2 H<-E\r\n    <L 2\r\n        <A 6 MDLN 'HLVFAb'>\r\n"
                                    "        <A 6 SOFTREV 'V01R01'>\r\n    >.\r\n");
    EXPECT_EQ(textOf("IAmHere"), "IAmHere: S1 F2 H->E\r\n    <L 0>.\r\n");
    EXPECT_EQ(textOf("ConnectHost"),
              "ConnectHost: S1 F13 W <R> H<-E\r\n    <L 2\r\n        <A 6 MDLN 'HLVFAB'>\r\n"
              "        <A 6 SOFTREV 'V01R01'>\r\n    >.\r\n");
    EXPECT_EQ(textOf("S1F3"),
              "S1F3: S1 F3 W H->E\r\n    <L 20V SVIDCOUNT\r\n        <I2 1 SVID 0>\r\n    >.\r\n");
    EXPECT_EQ(textOf("S1F16"), "S1F16: S1 F16 H<-E\r\n    <B 1 OFLACK 0>.\r\n");
    EXPECT_TRUE(gemLibraryText().starts_with(std::string(70, '*') + "\r\n* Are You There Request\r\n" +
                                             std::string(70, '*') +
                                             "\r\nAreYouThere: S1 F1 W <R> H<->E.\r\n***"));
}

} // namespace zb::test
