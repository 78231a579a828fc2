// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/visibilitymap.h"
#include "finemap/mapdocument.h"

#include <functional>
#include <string>
#include <vector>

namespace halvane {

struct CrescentWatch;
struct MonthPage;
struct MonthSheet;
struct PageSettings;
struct Timetable;
struct WatchPage;

/// How a program of the batch comes to painted pages. halvane-report has no painter, so it becomes
/// halvane-paper, or halvane-map for the world map's picture: both have the same command line, and libraries
/// that would take longer to load than most tasks take. Any number of threads may ask for pages at once.
struct PageMaker {
    /// Asked once the command line is read, before anything is calculated. It returns where the other
    /// functions are there; else the process goes on as another program. Error  raises RunTimeFailure
    std::function<void()> begin = nullptr;
    /// The same for save_map. Where it is there, nothing else is asked of this.
    std::function<void()> begin_map = nullptr;
    /// Writes the world map's picture, as save_map_picture.
    std::function<void(const MapRun&, const std::vector<MapPoint>&, const std::string& path)> save_map =
        nullptr;
    /// The pages of a timetable as a PDF file's bytes.
    std::function<std::string(const Timetable&, const PageSettings&)> timetable_pdf = nullptr;
    /// The pages of a watch as a PDF file's bytes.
    std::function<std::string(const CrescentWatch&, const WatchPage&)> watch_pdf = nullptr;
    /// The same as a PNG picture, one page below the other. In     width  [pixels]
    std::function<std::string(const CrescentWatch&, const WatchPage&, int width)> watch_png = nullptr;
    /// The pages of Hijri months as a PDF file's bytes.
    std::function<std::string(const std::vector<MonthSheet>&, const MonthPage&)> hijri_pdf = nullptr;
    /// A file of maps, as draw_maps of the room finemap/.
    std::function<void(const MapDocument&, const WorldOutline&, MapFormat, const TakeBytes&)> draw_maps =
        nullptr;
};

} // namespace halvane
