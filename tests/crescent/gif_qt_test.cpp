// SPDX-License-Identifier: MIT
#include "tests/crescent/gif_pictures.h"

#include <QByteArray>
#include <QImage>
#include <cstdint>
#include <gtest/gtest.h>

namespace halvane::test {
namespace {

QImage read_with_qt(const std::vector<std::uint8_t>& file) {
    const QByteArray bytes(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size()));
    return QImage::fromData(bytes, "GIF").convertToFormat(QImage::Format_RGB32);
}

std::vector<RgbColour> colours_of(const QImage& image) {
    std::vector<RgbColour> colours;
    for (int row = 0; row < image.height(); ++row) {
        for (int column = 0; column < image.width(); ++column) {
            const QRgb pixel = image.pixel(column, row);
            colours.push_back({static_cast<std::uint8_t>(qRed(pixel)),
                               static_cast<std::uint8_t>(qGreen(pixel)),
                               static_cast<std::uint8_t>(qBlue(pixel))});
        }
    }
    return colours;
}

TEST(Gif, QtReadsBackEveryRandomIndexedPicture) {
    for (int number = 0; number < random_picture_count; ++number) {
        const GifPicture picture = random_indexed_picture(number);
        const QImage image = read_with_qt(gif_bytes(picture));
        ASSERT_EQ(image.width(), picture.width) << number;
        ASSERT_EQ(image.height(), picture.height) << number;
        ASSERT_TRUE(colours_of(image) == shown_colours(picture)) << "picture " << number;
    }
}

} // namespace
} // namespace halvane::test
