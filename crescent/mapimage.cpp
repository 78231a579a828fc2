// SPDX-License-Identifier: MIT
#include "crescent/mapimage.h"

#include "base/failure.h"
#include "crescent/mapview.h"
#include "panel/formlanguage.h"
#include "stored/textfile.h"

#include <QFontDatabase>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <unordered_map>

namespace halvane {

namespace {

/// The sheet of a map as an image.
class SheetImage : public MapSurface {
public:
    SheetImage(const QImage& map, Qt::LayoutDirection direction)
        : image_(MapSheet::width, MapSheet::height, QImage::Format_RGB32) {
        constexpr int font_height = 15; // pixels
        image_.fill(map_paper());
        painter_.begin(&image_);
        painter_.drawImage(0, 0, map);
        painter_.setLayoutDirection(direction);
        QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        font.setPixelSize(font_height);
        font.setStyleStrategy(QFont::NoSubpixelAntialias);
        painter_.setFont(font);
    }

    void circle(const MapPixel& centre, const ClassColour& colour) override {
        draw_map_circle(painter_, centre, colour);
    }

    void mark(const MapPixel& centre, char figure, const ClassColour& colour,
              const ClassColour& rim) override {
        constexpr double pixel_centre = 0.5;
        draw_map_mark(painter_, figure, {{centre.x + pixel_centre, centre.y + pixel_centre}, 1, colour, rim});
    }

    void fill(const Square& square, const ClassColour& colour) override {
        painter_.fillRect(place_of(square), shown(colour));
    }

    void outline(const Square& square, const ClassColour& colour) override {
        painter_.setPen(shown(colour));
        painter_.drawRect(place_of(square).adjusted(0, 0, -1, -1));
    }

    /// In the half of the band that `left` lies in.
    void write(int left, int line, const std::string& words, const ClassColour& colour) override {
        const int right = left < MapSheet::legend_left ? MapSheet::legend_left : MapSheet::width;
        const QRect place(left, MapSheet::line_top(line), right - left - MapSheet::margin,
                          MapSheet::line_height);
        painter_.setPen(shown(colour));
        painter_.drawText(mirrored(place), static_cast<int>(Qt::AlignLeading | Qt::AlignVCenter),
                          QString::fromStdString(words).trimmed());
    }

    QImage finished() {
        painter_.end();
        return image_;
    }

private:
    QRect mirrored(const QRect& place) const {
        return QStyle::visualRect(painter_.layoutDirection(), image_.rect(), place);
    }
    QRect place_of(const Square& square) const {
        return mirrored({square.left, square.top, square.side, square.side});
    }

    QImage image_;
    QPainter painter_;
};

/// Colours of a picture, at most 256 of them.
class Palette {
public:
    explicit Palette(const QImage& image) {
        for (const VisibilityClass c : painted_classes)
            add(shown(class_colour(c)).rgb());
        add_ramp();
        add_most_frequent(image);
    }

    std::uint8_t index_of(QRgb colour) {
        const auto known = index_.find(colour);
        if (known != index_.end())
            return known->second;
        const auto nearer = [colour](const RgbColour& a, const RgbColour& b) {
            return distance(a, colour) < distance(b, colour);
        };
        const auto found = std::min_element(colours_.begin(), colours_.end(), nearer);
        return index_[colour] = static_cast<std::uint8_t>(found - colours_.begin());
    }

    const std::vector<RgbColour>& colours() const { return colours_; }

private:
    static constexpr std::size_t most = 256;

    void add(QRgb colour) {
        if (colours_.size() == most || index_.count(colour) != 0)
            return;
        index_[colour] = static_cast<std::uint8_t>(colours_.size());
        colours_.push_back({static_cast<std::uint8_t>(qRed(colour)),
                            static_cast<std::uint8_t>(qGreen(colour)),
                            static_cast<std::uint8_t>(qBlue(colour))});
    }

    /// The shades between the words' ink and their paper.
    void add_ramp() {
        constexpr int steps = 8;
        const QColor ink = map_ink();
        const QColor paper = map_paper();
        const auto between = [](int from, int to, int step) { return from + (to - from) * step / steps; };
        for (int step = 0; step <= steps; ++step)
            add(qRgb(between(ink.red(), paper.red(), step), between(ink.green(), paper.green(), step),
                     between(ink.blue(), paper.blue(), step)));
    }

    void add_most_frequent(const QImage& image) {
        std::unordered_map<QRgb, int> counts;
        for (int y = 0; y < std::min(image.height(), map_height); ++y)
            for (int x = 0; x < image.width(); ++x)
                ++counts[image.pixel(x, y)];
        std::vector<std::pair<int, QRgb>> order;
        order.reserve(counts.size());
        for (const auto& [colour, count] : counts)
            order.emplace_back(-count, colour);
        std::sort(order.begin(), order.end());
        for (const auto& [count, colour] : order)
            add(colour);
    }

    static int distance(const RgbColour& a, QRgb b) {
        const int red = a.red - qRed(b);
        const int green = a.green - qGreen(b);
        const int blue = a.blue - qBlue(b);
        return red * red + green * green + blue * blue;
    }

    std::vector<RgbColour> colours_;
    std::unordered_map<QRgb, std::uint8_t> index_;
};

} // namespace

QColor shown(const ClassColour& colour) {
    return {colour.red, colour.green, colour.blue};
}

ClassColour plain(const QColor& colour) {
    const QRgb rgb = colour.rgb();
    return {static_cast<unsigned char>(qRed(rgb)), static_cast<unsigned char>(qGreen(rgb)),
            static_cast<unsigned char>(qBlue(rgb))};
}

std::vector<QColor> bare_colours(const QImage& map) {
    if (map.isNull())
        return {map_paper()};
    std::vector<QColor> colours;
    for (const ClassColour& bare :
         bare_map_colours([&map](int x, int y) { return plain(QColor(map.pixel(x, y))); }))
        colours.push_back(shown(bare));
    return colours;
}

QColor bare_colour(const QImage& map) {
    return bare_colours(map).front();
}

QImage read_map_image() {
    const QImage map = QImage::fromData(QByteArray::fromStdString(whole_map_picture()), "GIF");
    if (map.size() != QSize(map_width, map_height))
        throw broken_map_picture(map_picture_path());
    return map.convertToFormat(QImage::Format_RGB32);
}

QImage map_sheet(const QImage& map, const MapSheetContent& content) {
    SheetImage sheet(map, direction_of(content.language));
    paint_sheet(sheet, content);
    return sheet.finished();
}

GifPicture indexed_picture(const QImage& image) {
    Palette palette(image);
    GifPicture picture;
    picture.width = image.width();
    picture.height = image.height();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            picture.indices.push_back(palette.index_of(image.pixel(x, y)));
    picture.palette = palette.colours();
    return picture;
}

} // namespace halvane
