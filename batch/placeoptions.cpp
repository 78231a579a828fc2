// SPDX-License-Identifier: MIT
#include "batch/placeoptions.h"

#include "batch/listedlocation.h"
#include "batch/usagemistake.h"
#include "timetable/timetableplaces.h"

#include <CLI/CLI.hpp>

namespace halvane {
namespace {

TimetablePlace given_place_of(const PlaceOptions& options) {
    const GivenPlace given{
        "",          *options.latitude, *options.longitude, options.height.value_or(0), options.zone_name,
        options.zone};
    if (const std::optional<TwinWords> refused = refused_place(given))
        throw UsageMistake(refused->english);
    return given_place(given);
}

} // namespace

void add_place_options(CLI::App& command, PlaceOptions& options) {
    command.add_option("--place", options.place, "A place of the list; the stored one when none is given")
        ->type_name("NAME");
    command.add_option("--latitude", options.latitude, "North positive, with --longitude")->type_name("DEG");
    command.add_option("--longitude", options.longitude, "East positive")->type_name("DEG");
    command.add_option("--zone-name", options.zone_name, "Time zone, such as Asia/Amman")->type_name("IANA");
    command.add_option("--zone", options.zone, "Hours from Universal Time, all the year")->type_name("H");
    command.add_option("--height", options.height, "Above sea level, in metres")->type_name("M");
}

void check_place_options(const PlaceOptions& options) {
    if (options.latitude.has_value() != options.longitude.has_value())
        throw UsageMistake("--latitude and --longitude belong together");
    if (!options.place.empty() && options.by_numbers())
        throw UsageMistake("--place and --latitude with --longitude exclude each other");
    if ((options.zone || options.height) && !options.by_numbers())
        throw UsageMistake("--zone and --height belong to --latitude and --longitude");
    if (options.zone && !options.zone_name.empty())
        throw UsageMistake("--zone and --zone-name exclude each other");
    if (!options.zone_name.empty() && !is_zone_name(options.zone_name))
        throw UsageMistake("there is no time zone \"" + options.zone_name + "\"");
}

TimetablePlace place_of(const PlaceOptions& options) {
    if (options.by_numbers())
        return given_place_of(options);
    TimetablePlace place =
        options.place.empty() ? stored_place() : listed_place(listed_location(options.place));
    if (!options.zone_name.empty())
        place.zone = TimeZone(options.zone_name);
    return place;
}

} // namespace halvane
