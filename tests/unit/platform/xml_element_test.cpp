#include "platform/xml_element.h"

#include <gtest/gtest.h>

namespace zb::test {
namespace {

TEST(XmlElement, AttributesKeepTheirOrderAndAreReplacedHoweverManyThereAre) {
    constexpr std::size_t kCount = 100;
    XmlElement element("Element");
    for (int round = 0; round < 2; ++round)
        for (std::size_t number = 0; number < kCount; ++number)
            setElementAttribute(element, "a" + std::to_string(number),
                                std::to_string(round) + "/" + std::to_string(number));
    XmlElement copy = element;
    setElementAttribute(copy, "a99", "of the copy");
    setElementAttribute(copy, "more", "of the copy");
    ASSERT_EQ(element.attributes().size(), kCount);
    for (std::size_t number = 0; number < kCount; ++number)
        EXPECT_EQ(element.attributes()[number],
                  (XmlAttribute{"a" + std::to_string(number), "1/" + std::to_string(number)}));
    EXPECT_EQ(copy.attributes().size(), kCount + 1);
    EXPECT_EQ(getElementAttribute(copy, "a99"), "of the copy");
}

} // namespace
} // namespace zb::test
