// SPDX-License-Identifier: MIT
#include "batch/taskexamples.h"

#include <array>

namespace halvane {
namespace {

struct ExamplesOfTask {
    std::string_view task;
    std::array<const char*, 3> lines; ///< without the program's name; null for none
};

constexpr ExamplesOfTask examples_of_tasks[] = {
    {"prayer", {"prayer", "prayer --place Cairo --month 2026-02 --format csv --output -"}},
    {"moon", {"moon", "moon --place Makkah --from 2026-02-18 --to 2026-03-19 --output -"}},
    {"today", {"today", "today --place Cairo --set fajer-angle=19.5 --set isha-angle=17.5"}},
    {"next", {"next", "next --place Cairo --json"}},
    {"day",
     {"day", "day --place London --date 2026-06-21",
      "day --latitude 21.42 --longitude 39.83 --height 330 --zone 3 --format json"}},
    {"sun", {"sun --place Amman", "sun --place Oslo --date 2026-06-21 --format json"}},
    {"phases", {"phases --year 2026 --place Amman --output -"}},
    {"crescent",
     {"crescent --place Makkah --date 2026-02-18 --short",
      "crescent --month 2026-02 --set new-crescent=false --output -"}},
    {"map",
     {"map --month 2026-02 --output ramadan.gif", "map --fine --date 2026-02-18 --criterion yallop-1997 "
                                                  "--step 1 --format geojson --output zones.json"}},
    {"atlas", {"atlas --year 2026 --criterion mabims-2021 --output atlas.pdf"}},
    {"criteria", {"criteria", "criteria --format json"}},
    {"qibla-sun", {"qibla-sun --place Cairo --month 2026-02 --output -"}},
    {"qibla-shadow", {"qibla-shadow --place Cairo --from 2026-02-18 --output -"}},
    {"ephemeris", {"ephemeris --from 2026-02-18 --set object=0 --output -"}},
    {"telescope", {"telescope --date 2026-02-18 --set hour=18"}},
    {"timetable",
     {"timetable --month 2026-02 --place Amman --format pdf --output february.pdf",
      "timetable --year 2026 --place London --profile mwl --format ics --output london.ics"}},
    {"watch", {"watch --date 2026-02-18 --place Amman --format csv --output -"}},
    {"hijri",
     {"hijri", "hijri --year 1448 --compare umm-al-qura,turkey --output -",
      "hijri --convert 2026-02-18 --rule umm-al-qura"}},
};

} // namespace

std::vector<std::string> examples_of(std::string_view task) {
    std::vector<std::string> examples;
    for (const ExamplesOfTask& row : examples_of_tasks)
        for (const char* const line : row.lines)
            if (row.task == task && line != nullptr)
                examples.push_back(std::string("halvane-report ") + line);
    return examples;
}

} // namespace halvane
