#include "crescent/mapimage.h"

#include "base/failure.h"
#include "crescent/legendlabel.h"
#include "crescent/mapsheet.h"
#include "crescent/mapview.h"
#include "stored/textfile.h"

#include <QFontDatabase>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace halvane {

namespace {

const QColor paper = map_paper();
const QColor ink = map_ink();

void paint_points(QPainter& painter, const std::vector<MapPoint>& points) {
    painter.setClipRect(0, 0, map_width, map_height);
    MapClasses classes;
    for (const MapPoint& point : points) {
        draw_map_point(painter, point);
        classes.add(point);
    }
    constexpr double pixel_centre = 0.5;
    for (const MapMark& mark : map_marks(classes))
        draw_map_mark(painter, mark.visibility,
                      {std::round(mark.centre.x) + pixel_centre, std::round(mark.centre.y) + pixel_centre},
                      1);
    painter.setClipping(false);
}

/// Writes the words of the band below the map; `place` is as in English.
void write_line(QPainter& painter, QRect place, const QString& words) {
    const QRect sheet(0, 0, MapSheet::width, MapSheet::height);
    painter.setPen(ink);
    painter.drawText(QStyle::visualRect(painter.layoutDirection(), sheet, place),
                     static_cast<int>(Qt::AlignLeading | Qt::AlignVCenter), words.trimmed());
}

QRect line_place(int left, int line) {
    return {left, MapSheet::line_top(line),
            MapSheet::legend_left - left % MapSheet::legend_left - MapSheet::margin, MapSheet::line_height};
}

void write_information(QPainter& painter, const MapSheetContent& content) {
    for (int line = 0; line < content.information.size(); ++line)
        write_line(painter, line_place(MapSheet::margin, line), content.information[line]);
}

void write_legend(QPainter& painter, const MapSheetContent& content) {
    const QRect sheet(0, 0, MapSheet::width, MapSheet::height);
    const QColor bare = bare_colour(content.map);
    int line = 0;
    for (const LegendLine& entry : content.legend) {
        const QRect place(MapSheet::legend_left, MapSheet::swatch_top(line), MapSheet::swatch,
                          MapSheet::swatch);
        painter.setPen(ink);
        painter.setBrush(legend_colour(entry, bare));
        painter.drawRect(QStyle::visualRect(painter.layoutDirection(), sheet, place).adjusted(0, 0, -1, -1));
        write_line(painter, line_place(MapSheet::mark_left, line),
                   QString(QLatin1Char(class_mark(entry.visibility))));
        write_line(painter, line_place(MapSheet::words_left, line), legend_words(entry, content.language));
        ++line;
    }
}

/// Colours of a picture, at most 256 of them.
class Palette {
public:
    explicit Palette(const QImage& image) {
        for (const VisibilityClass c : painted_classes) {
            const ClassColour colour = class_colour(c);
            add(qRgb(colour.red, colour.green, colour.blue));
        }
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

QColor map_ink() {
    return {34, 40, 49};
}

QColor map_paper() {
    return {255, 255, 255};
}

std::vector<QColor> bare_colours(const QImage& map) {
    if (map.isNull())
        return {map_paper()};
    std::vector<QColor> colours;
    for (const ClassColour& bare : bare_map_colours([&map](int x, int y) {
             const QRgb pixel = map.pixel(x, y);
             return ClassColour{static_cast<unsigned char>(qRed(pixel)),
                                static_cast<unsigned char>(qGreen(pixel)),
                                static_cast<unsigned char>(qBlue(pixel))};
         }))
        colours.emplace_back(bare.red, bare.green, bare.blue);
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

QImage map_sheet(const MapSheetContent& content) {
    constexpr int font_height = 15; // pixels
    QImage sheet(MapSheet::width, MapSheet::height, QImage::Format_RGB32);
    sheet.fill(paper);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, content.map);
    paint_points(painter, content.points);
    painter.setLayoutDirection(content.language == Language::arabic ? Qt::RightToLeft : Qt::LeftToRight);
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(font_height);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    painter.setFont(font);
    write_information(painter, content);
    write_legend(painter, content);
    return sheet;
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
