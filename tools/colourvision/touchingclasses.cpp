// SPDX-License-Identifier: MIT
// touchingclasses FOLDER LUNATIONS: the colours of the visibility map's classes, and how often each pair of
// them stands side by side on all maps of so many lunations from January 2020 on. FOLDER holds the delivered
// data.

#include "crescent/conjunction.h"
#include "crescent/mapimage.h"
#include "crescent/mapmarks.h"
#include "crescent/maptexts.h"
#include "ephemeris/series.h"
#include "events/phase.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "stored/programfolder.h"

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace halvane {
namespace {

class ClassReceiver : public MapReceiver {
public:
    void point(const MapPoint& point) override { classes.add(point); }
    bool go_on() override { return true; }
    MapClasses classes;
};

/// How often each pair of classes stands side by side.
using Contacts = std::map<std::pair<int, int>, int>;

void count_contact(const MapClasses& classes, int longitude, int latitude, int east, int north,
                   Contacts& contacts) {
    const auto here = classes.at(longitude, latitude);
    const auto there = classes.at(longitude + east, latitude + north);
    if (here && there && *here != *there)
        ++contacts[std::minmax(static_cast<int>(*here), static_cast<int>(*there))];
}

void count_contacts(const MapRun& run, Contacts& contacts) {
    ClassReceiver receiver;
    draw_visibility_map(loaded_theory(), run, receiver);
    for (int longitude = MapGrid::west; longitude <= MapGrid::east; longitude += MapGrid::step)
        for (int latitude = MapGrid::south; latitude <= MapGrid::north; latitude += MapGrid::step) {
            count_contact(receiver.classes, longitude, latitude, MapGrid::step, 0, contacts);
            count_contact(receiver.classes, longitude, latitude, 0, MapGrid::step, contacts);
        }
}

Contacts contacts_of_years(int lunations) {
    constexpr double january_2020 = 2458872.4; // near the New Moon of 24 January 2020
    Contacts contacts;
    for (int lunation = 0; lunation < lunations; ++lunation) {
        MapRun run;
        run.conjunction = map_conjunction(named_ephemeris(), january_2020 + synodic_month * lunation);
        for (const CrescentKind kind : {CrescentKind::new_crescent, CrescentKind::old_crescent})
            for (int criterion = 0; criterion < static_cast<int>(criteria().size()); ++criterion)
                for (int day = 0; day <= 2; ++day) {
                    run.kind = kind;
                    run.criterion = Criterion{criterion};
                    run.day = map_day(run.conjunction, kind, day);
                    count_contacts(run, contacts);
                }
    }
    return contacts;
}

void print_colour(VisibilityClass visibility, const ClassColour& colour) {
    std::printf("colour,%c,%d,%d,%d\n", class_mark(visibility), colour.red, colour.green, colour.blue);
}

void print_colours() {
    for (const VisibilityClass c : painted_classes)
        print_colour(c, class_colour(c));
    const std::vector<QColor> bare = bare_colours(read_map_image());
    for (const QColor& colour : {bare.at(0), bare.at(1)})
        print_colour(VisibilityClass::not_possible,
                     {static_cast<unsigned char>(colour.red()), static_cast<unsigned char>(colour.green()),
                      static_cast<unsigned char>(colour.blue())});
}

} // namespace
} // namespace halvane

int main(int count, char** arguments) {
    using namespace halvane;
    if (count != 3) {
        std::fprintf(stderr, "usage: touchingclasses FOLDER LUNATIONS\n");
        return 2;
    }
    set_program_folder(arguments[1]);
    load_series();
    print_colours();
    for (const auto& [pair, contacts] : contacts_of_years(std::stoi(arguments[2])))
        std::printf("contact,%d,%d,%d\n", pair.first, pair.second, contacts);
    return 0;
}
