#include "editor/splitter.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zb {
namespace {

/// The tree column from 1000 to 3000, its gap of 60 after it, tree from 400 to 5400.
Splitter placed() {
    Splitter splitter(2000);
    splitter.place({.left = 1000, .top = 400, .height = 5000, .gap = 60});
    return splitter;
}

struct Point {
    int x;
    int y;
    bool inside;
};

std::ostream& operator<<(std::ostream& out, const Point& point) {
    return out << point.x << ',' << point.y;
}

class SplitterZone : public testing::TestWithParam<Point> {};

TEST_P(SplitterZone, AnswersOverTheGapAlone) {
    Splitter splitter = placed();
    const Point& point = GetParam();
    EXPECT_EQ(splitter.inZone(point.x, point.y), point.inside);
    EXPECT_EQ(splitter.mouseMove(point.x, point.y, false), point.inside ? Pointer::Sizing : Pointer::Default);
}

INSTANTIATE_TEST_SUITE_P(Edges, SplitterZone,
                         testing::Values(Point{3000, 1000, false}, Point{3001, 1000, true},
                                         Point{3059, 1000, true}, Point{3060, 1000, false},
                                         Point{3030, 399, false}, Point{3030, 400, true},
                                         Point{3030, 5099, true}, Point{3030, 5100, false}));

TEST(Splitter, MovesTheGapByTheDistanceMoved) {
    Splitter splitter = placed();
    splitter.leftButtonDown(3030, 1000);
    splitter.mouseMove(3130, 1000, true);
    EXPECT_EQ(splitter.width(), 2100);
    splitter.mouseMove(2830, 9000, true);
    EXPECT_EQ(splitter.width(), 1800);
}

TEST(Splitter, RefusesAWidthBelow500) {
    Splitter splitter = placed();
    splitter.leftButtonDown(3030, 1000);
    splitter.mouseMove(1530, 1000, true);
    EXPECT_EQ(splitter.width(), 500);
    splitter.mouseMove(1529, 1000, true);
    EXPECT_EQ(splitter.width(), 500);
    splitter.mouseMove(1600, 1000, true);
    EXPECT_EQ(splitter.width(), 570);
}

TEST(Splitter, DragsNothingThatWasPressedOutsideOfTheGap) {
    Splitter splitter = placed();
    splitter.leftButtonDown(2990, 1000);
    splitter.mouseMove(3200, 1000, true);
    EXPECT_EQ(splitter.width(), 2000);
}

TEST(Splitter, EndsTheDragWhenAnyButtonGoesUp) {
    Splitter splitter = placed();
    splitter.leftButtonDown(3030, 1000);
    EXPECT_TRUE(splitter.dragging());
    splitter.buttonUp();
    splitter.mouseMove(3200, 1000, true);
    EXPECT_EQ(splitter.width(), 2000);
}

TEST(Splitter, MovesOnlyWithTheLeftButtonDown) {
    Splitter splitter = placed();
    splitter.leftButtonDown(3030, 1000);
    splitter.mouseMove(3200, 1000, false);
    EXPECT_EQ(splitter.width(), 2000);
}

} // namespace
} // namespace zb
