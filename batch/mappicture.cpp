// SPDX-License-Identifier: MIT
#include "batch/mappicture.h"

#include "base/failure.h"
#include "crescent/gif.h"
#include "crescent/mapsheet.h"
#include "crescent/maptexts.h"
#include "crescent/sheetpainter.h"
#include "stored/outputfile.h"
#include "stored/programfiles.h"
#include "stored/textfile.h"
#include "system/path.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <gd.h>
#include <gdfontl.h>

namespace halvane {
namespace {

struct ImageEnd {
    void operator()(gdImage* image) const { gdImageDestroy(image); }
};
using Image = std::unique_ptr<gdImage, ImageEnd>;

Image read_map() {
    std::string bytes = whole_map_picture();
    Image map(gdImageCreateFromGifPtr(static_cast<int>(bytes.size()), bytes.data()));
    if (!map || gdImageSX(map.get()) != map_width || gdImageSY(map.get()) != map_height)
        throw broken_map_picture(map_picture_path());
    return map;
}

/// A pixel of a stencil, from the stencil's centre.
struct Dot {
    int x = 0;
    int y = 0;
};

/// What stands on a map many times is drawn once and stamped.
using Stencil = std::vector<Dot>;

/// The pixels that `draw(image, x, y, ink)` puts at most `room` from the point x, y.
template <class Draw>
Stencil stencil_of(int room, Draw draw) {
    const int side = 2 * room + 1;
    const Image image(gdImageCreate(side, side));
    const int ground = gdImageColorAllocate(image.get(), 255, 255, 255);
    const int ink = gdImageColorAllocate(image.get(), 0, 0, 0);
    draw(image.get(), room, room, ink);
    Stencil stencil;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (gdImageGetPixel(image.get(), x, y) != ground)
                stencil.push_back({x - room, y - room});
    return stencil;
}

Stencil circle_stencil() {
    constexpr int diameter = 2 * map_point_radius;
    return stencil_of(diameter, [](gdImage* image, int x, int y, int ink) {
        gdImageArc(image, x, y, diameter, diameter, 0, 360, ink);
    });
}

/// Draws `figure` about a point without soft edges, which the negative colour asks for: the rim would fill
/// the palette with shades. In the font of the system, else in the library's own.
void draw_figure(gdImage* image, char figure, int x, int y, int colour) {
    constexpr double points = map_mark_height * 0.75; // at 96 pixels to the inch
    std::string text(1, figure);
    std::string font = "sans:bold:lang=en";
    std::array<int, 8> corners{};
    gdFTUseFontConfig(1);
    if (gdImageStringFT(nullptr, corners.data(), 0, font.data(), points, 0, 0, 0, text.data()) != nullptr) {
        const gdFont* plain = gdFontGetLarge();
        gdImageChar(image, gdFontGetLarge(), x - plain->w / 2, y - plain->h / 2, figure, colour);
        return;
    }
    const int left = (corners[0] + corners[2]) / 2;
    const int base = (corners[1] + corners[7]) / 2;
    gdImageStringFT(image, nullptr, -colour, font.data(), points, 0, x - left, y - base, text.data());
}

Stencil figure_stencil(char figure) {
    return stencil_of(2 * map_mark_height, [figure](gdImage* image, int x, int y, int ink) {
        draw_figure(image, figure, x, y, ink);
    });
}

/// The map over a band of paper for the words.
class Canvas : public MapSurface {
public:
    Canvas() : image_(gdImageCreate(MapSheet::width, MapSheet::height)) {
        const Image map = read_map();
        const int paper = allocate(MapSheet::paper);
        allocate(MapSheet::ink);
        for (const VisibilityClass c : painted_classes)
            allocate(class_colour(c));
        gdImageFilledRectangle(image_.get(), 0, 0, gdImageSX(image_.get()) - 1, gdImageSY(image_.get()) - 1,
                               paper);
        gdImageCopy(image_.get(), map.get(), 0, 0, 0, 0, map_width, map_height);
    }

    /// The colour of the map as long as nothing is drawn over it.
    ClassColour bare_colour() const {
        return bare_map_colours([this](int x, int y) {
                   const int index = gdImageGetPixel(image_.get(), x, y);
                   return ClassColour{static_cast<unsigned char>(gdImageRed(image_.get(), index)),
                                      static_cast<unsigned char>(gdImageGreen(image_.get(), index)),
                                      static_cast<unsigned char>(gdImageBlue(image_.get(), index))};
               })
            .front();
    }

    void circle(const MapPixel& centre, const ClassColour& colour) override {
        stamp(circle_, static_cast<int>(std::lround(centre.x)), static_cast<int>(std::lround(centre.y)),
              index_of(colour));
    }

    void mark(const MapPixel& centre, char figure, const ClassColour& colour,
              const ClassColour& rim) override {
        constexpr int width = 2;
        const int x = static_cast<int>(centre.x);
        const int y = static_cast<int>(centre.y);
        const Stencil& stencil = figure_of(figure);
        for (int dy = -width; dy <= width; ++dy)
            for (int dx = -width; dx <= width; ++dx)
                stamp(stencil, x + dx, y + dy, index_of(rim));
        stamp(stencil, x, y, index_of(colour));
    }

    // The lines of a rectangle run through its corners, so that a square is a pixel wider than its side.
    void fill(const Square& square, const ClassColour& colour) override {
        gdImageFilledRectangle(image_.get(), square.left, square.top, square.left + square.side,
                               square.top + square.side, index_of(colour));
    }
    void outline(const Square& square, const ClassColour& colour) override {
        gdImageRectangle(image_.get(), square.left, square.top, square.left + square.side,
                         square.top + square.side, index_of(colour));
    }

    /// In a font of the system where there is one, the same in every locale, else in the library's own.
    void write(int left, int line, const std::string& text, const ClassColour& colour) override {
        constexpr double points = 11;
        constexpr int baseline = 15;
        const int top = MapSheet::line_top(line);
        const int ink = index_of(colour);
        std::string words = text;
        std::string font = "sans:lang=en";
        gdFTUseFontConfig(1);
        if (gdImageStringFT(image_.get(), nullptr, ink, font.data(), points, 0, left, top + baseline,
                            words.data()) != nullptr)
            gdImageString(image_.get(), gdFontGetLarge(), left, top,
                          reinterpret_cast<unsigned char*>(words.data()), ink);
    }

    GifPicture picture() const {
        GifPicture picture;
        picture.width = gdImageSX(image_.get());
        picture.height = gdImageSY(image_.get());
        for (int i = 0; i < gdImageColorsTotal(image_.get()); ++i)
            picture.palette.push_back({static_cast<std::uint8_t>(gdImageRed(image_.get(), i)),
                                       static_cast<std::uint8_t>(gdImageGreen(image_.get(), i)),
                                       static_cast<std::uint8_t>(gdImageBlue(image_.get(), i))});
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                picture.indices.push_back(static_cast<std::uint8_t>(gdImageGetPixel(image_.get(), x, y)));
        return picture;
    }

private:
    int allocate(const ClassColour& colour) {
        return gdImageColorAllocate(image_.get(), colour.red, colour.green, colour.blue);
    }

    void stamp(const Stencil& stencil, int x, int y, int colour) {
        for (const Dot& dot : stencil)
            gdImageSetPixel(image_.get(), x + dot.x, y + dot.y, colour);
    }

    const Stencil& figure_of(char figure) {
        const auto [place, is_new] = figures_.try_emplace(figure);
        if (is_new)
            place->second = figure_stencil(figure);
        return place->second;
    }

    /// In the palette; looked for there once.
    int index_of(const ClassColour& colour) {
        for (const auto& [known, index] : indices_)
            if (known == colour)
                return index;
        const int index = gdImageColorClosest(image_.get(), colour.red, colour.green, colour.blue);
        indices_.emplace_back(colour, index);
        return index;
    }

    Image image_;
    std::vector<std::pair<ClassColour, int>> indices_;
    std::map<char, Stencil> figures_;
    Stencil circle_ = circle_stencil();
};

} // namespace

void save_map_picture(const MapRun& run, const std::vector<MapPoint>& points, const std::string& path) {
    if (ProgramFiles().have(path_of(path)))
        throw RunTimeFailure(TwinWords{path + " is a file of the program; no picture replaces it.",
                                       path + " من ملفات البرنامج، و لا تحل صورة محله."});
    Canvas canvas;
    MapSheetContent content;
    content.points = points;
    content.information = map_information(run, Language::english);
    content.legend = map_legend(run.criterion);
    content.bare = canvas.bare_colour();
    paint_sheet(canvas, content);
    const std::vector<std::uint8_t> bytes = gif_bytes(canvas.picture());
    save_result(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

} // namespace halvane
