// What the comparison of the committed pictures sees, and what it passes over.
#include "screen/pictures/picture_difference.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>

namespace zb::test {
namespace {

QImage committed(const char* name) {
    return QImage(QStringLiteral(ZB_SOURCE_FOLDER "/docs/pictures/") + QLatin1String(name))
        .convertToFormat(QImage::Format_RGB32);
}

// Coloured text on a light ground with its colour taken away: as dark as its darkest channel.
QImage withoutColours(QImage picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            const int grey = std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)});
            picture.setPixel(x, y, qRgb(grey, grey, grey));
        }
    }
    return picture;
}

QImage textIn(const QColor& colour, int shift = 0) {
    QImage picture(300, 60, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(colour);
    painter.drawText(QPointF(10 + shift / 4.0, 30), QStringLiteral("S1F1: S1 F1 W H->E, an item"));
    return picture;
}

TEST(PictureDifference, APictureIsLikeItself) {
    const QImage picture = committed("editor-light-100.png");
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(differenceOf(picture, picture), QString());
}

TEST(PictureDifference, TheEditorWithoutItsColoursIsAnother) {
    const QImage picture = committed("editor-light-100.png");
    ASSERT_FALSE(picture.isNull());
    EXPECT_NE(differenceOf(picture, withoutColours(picture)), QString());
}

TEST(PictureDifference, ABlueTextThatTurnsBlackIsSeen) {
    EXPECT_NE(differenceOf(textIn(QColor(16, 28, 177)), textIn(Qt::black)), QString());
}

TEST(PictureDifference, ARedMarkThatTurnsBlackIsSeen) {
    EXPECT_NE(differenceOf(textIn(Qt::red), textIn(Qt::black)), QString());
}

TEST(PictureDifference, LettersAQuarterOfAPixelAsideAreTheSame) {
    EXPECT_EQ(differenceOf(textIn(Qt::black), textIn(Qt::black, 1)), QString());
}

TEST(PictureDifference, AnotherSizeIsAnotherPicture) {
    EXPECT_NE(differenceOf(QImage(10, 10, QImage::Format_RGB32), QImage(10, 11, QImage::Format_RGB32)),
              QString());
}

TEST(PictureDifference, AMissingPictureIsAnother) {
    EXPECT_NE(differenceOf(QImage(10, 10, QImage::Format_RGB32), QImage()), QString());
}

} // namespace
} // namespace zb::test
