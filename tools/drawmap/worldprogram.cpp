// SPDX-License-Identifier: MIT
#include "tools/drawmap/worldprogram.h"

#include "tools/drawmap/picturefile.h"

#include <cstdio>
#include <exception>

#include <QGuiApplication>

namespace halvane {

int draw_world_picture(int argc, char* argv[], QImage (*draw)(const WorldLines& world)) {
    if (argc != 3) {
        std::fputs("usage: <program> <folder of land-50m.csv and borders-110m.csv> <picture.gif>\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv); // the text of the pictures needs its fonts
    try {
        save_as_gif(draw(read_world_lines(argv[1])), argv[2]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}

} // namespace halvane
