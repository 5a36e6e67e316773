#include "messages/libraries/published_layouts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>

namespace zb {
namespace {

using testing::ElementsAre;
using Reply = PublishedLayout::Reply;

const PublishedLayout& layoutOf(const std::vector<PublishedLayout>& layouts, int stream, int function) {
    return *std::ranges::find_if(layouts, [&](const PublishedLayout& layout) {
        return layout.stream == stream && layout.function == function;
    });
}

TEST(PublishedLayouts, HoldEachMessageOnceInOrder) {
    const auto layouts = publishedLayouts();
    EXPECT_EQ(layouts.size(), 354U);
    EXPECT_TRUE(std::ranges::is_sorted(layouts, std::ranges::less_equal(), [](const PublishedLayout& layout) {
        return 1000 * layout.stream + layout.function;
    }));
}

TEST(PublishedLayouts, ContainWhatIsPublishedOfAMessage) {
    const auto layouts = publishedLayouts();
    const PublishedLayout& data = layoutOf(layouts, 1, 2);
    EXPECT_EQ(data.title, "On Line Data");
    EXPECT_EQ(data.direction, "H<->E");
    EXPECT_EQ(data.reply, Reply::No);
    EXPECT_THAT(data.forms, ElementsAre("L[MDLN, SOFTREV]", "L[]"));
    EXPECT_THAT(layoutOf(layouts, 1, 1).forms, ElementsAre("-"));
    EXPECT_EQ(layoutOf(layouts, 1, 1).reply, Reply::Yes);
    EXPECT_EQ(layoutOf(layouts, 5, 1).reply, Reply::Optional);
}

TEST(PublishedLayouts, UseItemsWhoseFormatsArePublished) {
    const auto formats = publishedFormats();
    const std::regex itemName(R"([A-Z][A-Z0-9]*(?![A-Z0-9*\[]))");
    for (const PublishedLayout& layout : publishedLayouts()) {
        for (const std::string_view form : layout.forms) {
            const std::string text(form);
            for (std::sregex_iterator it(text.begin(), text.end(), itemName), end; it != end; ++it)
                EXPECT_TRUE(formats.contains(it->str())) << layout.title << ": " << it->str();
        }
    }
}

TEST(PublishedFormats, ListTheFormatsOfAnItem) {
    const auto formats = publishedFormats();
    EXPECT_THAT(formats.at("ACDS"), ElementsAre("I2", "U2"));
    EXPECT_THAT(formats.at("MDLN"), ElementsAre("A"));
    for (const auto& [name, list] : formats)
        for (const std::string_view format : list)
            EXPECT_TRUE(
                std::regex_match(std::string(format), std::regex("L|A|B|J|X|BOOLEAN|[IU][1248]|F[48]")))
                << name << ": " << format;
}

} // namespace
} // namespace zb
