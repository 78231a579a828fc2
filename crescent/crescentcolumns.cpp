// SPDX-License-Identifier: MIT
#include "crescent/crescentcolumns.h"

#include "calendar/civildate.h"
#include "crescent/criteria.h"

#include <string>

namespace halvane {
namespace {

using C = Circumstances;

constexpr Column column(const char* key, const char* english, const char* arabic, ValueType type) {
    return {key, {english, arabic}, "", type};
}

constexpr Column number(const char* key, const char* english, const char* arabic, const char* unit = "deg") {
    return {key, {english, arabic}, unit, ValueType::number};
}

const char* name_of(ObservationTime time) {
    switch (time) {
    case ObservationTime::sun:
        return "sun";
    case ObservationTime::moon:
        return "moon";
    case ObservationTime::best:
        return "best";
    case ObservationTime::user:
        break;
    }
    return "user";
}

constexpr ColumnOf<C> columns[] = {
    {column("date", "Date", "التاريخ", ValueType::date),
     [](const C& c) -> Value { return civil_date(c.day); }},
    {column("new_crescent", "New crescent", "هلال أول الشهر", ValueType::flag),
     [](const C& c) -> Value { return c.choice.new_crescent; }},
    {column("hijri_year", "Hijri year", "السنة الهجرية", ValueType::whole),
     [](const C& c) -> Value { return static_cast<int>(c.hijri.year); }},
    {column("hijri_month", "Hijri month", "الشهر الهجري", ValueType::whole),
     [](const C& c) -> Value { return static_cast<int>(c.hijri.month); }},
    {column("geocentric", "Geocentric", "مركزي", ValueType::flag),
     [](const C& c) -> Value { return c.choice.geocentric; }},
    {column("time_of", "Calculated for", "وقت الحساب", ValueType::text),
     [](const C& c) -> Value { return std::string(name_of(c.choice.time)); }},
    {column("calculation", "Time of calculation", "لحظة الحساب", ValueType::moment),
     [](const C& c) -> Value { return MomentValue{c.calculation}; }},
    {number("julian_date", "Julian Date", "اليوم الجولياني", "d"),
     [](const C& c) -> Value { return c.universal; }},
    {column("summer_time", "Summer time", "التوقيت الصيفي", ValueType::flag),
     [](const C& c) -> Value { return c.summer_hours == 1; }},
    {number("delta_t", "Delta T", "فرق الزمن", "s"), [](const C& c) -> Value { return c.delta_t; }},
    {column("conjunction", "Conjunction Time", "وقت الاقتران", ValueType::moment),
     [](const C& c) -> Value { return MomentValue{c.conjunction}; }},
    {column("sun_event", "Sunset or sunrise", "غروب الشمس أو شروقها", ValueType::clock),
     [](const C& c) -> Value { return ClockValue{c.sun_event}; }},
    {column("moon_event", "Moonset or moonrise", "غروب القمر أو شروقه", ValueType::clock),
     [](const C& c) -> Value { return ClockValue{c.moon_event}; }},
    {number("moon_age", "Moon Age", "عمر القمر", "h"), [](const C& c) -> Value { return c.moon_age * 24; }},
    {number("lag", "Moon Lag Time", "مكث القمر", "h"), [](const C& c) -> Value { return c.lag; }},
    {number("moon_right_ascension", "Moon Right Ascension", "المطلع المستقيم للقمر"),
     [](const C& c) -> Value { return chosen_places(c).moon_right_ascension; }},
    {number("moon_declination", "Moon Declination", "ميل القمر"),
     [](const C& c) -> Value { return chosen_places(c).moon_declination; }},
    {number("sun_right_ascension", "Sun Right Ascension", "المطلع المستقيم للشمس"),
     [](const C& c) -> Value { return chosen_places(c).sun_right_ascension; }},
    {number("sun_declination", "Sun Declination", "ميل الشمس"),
     [](const C& c) -> Value { return chosen_places(c).sun_declination; }},
    {number("moon_longitude", "Moon Longitude", "الطول السماوي للقمر"),
     [](const C& c) -> Value { return chosen_places(c).moon_longitude; }},
    {number("moon_latitude", "Moon Latitude", "العرض السماوي للقمر"),
     [](const C& c) -> Value { return chosen_places(c).moon_latitude; }},
    {number("sun_longitude", "Sun Longitude", "الطول السماوي للشمس"),
     [](const C& c) -> Value { return chosen_places(c).sun_longitude; }},
    {number("sun_latitude", "Sun Latitude", "العرض السماوي للشمس"),
     [](const C& c) -> Value { return chosen_places(c).sun_latitude; }},
    {number("moon_altitude", "Moon Altitude", "ارتفاع القمر"),
     [](const C& c) -> Value { return c.quantities.moon_altitude; }},
    {number("moon_azimuth", "Moon Azimuth", "سمت القمر"),
     [](const C& c) -> Value { return c.quantities.moon_azimuth; }},
    {number("sun_altitude", "Sun Altitude", "ارتفاع الشمس"),
     [](const C& c) -> Value { return c.quantities.sun_altitude; }},
    {number("sun_azimuth", "Sun Azimuth", "سمت الشمس"),
     [](const C& c) -> Value { return c.quantities.sun_azimuth; }},
    {number("relative_altitude", "Relative Altitude", "فرق الارتفاع"),
     [](const C& c) -> Value { return c.quantities.relative_altitude(); }},
    {number("relative_azimuth", "Relative Azimuth", "فرق السمت"),
     [](const C& c) -> Value { return c.quantities.relative_azimuth(); }},
    {number("elongation", "Elongation", "الاستطالة"),
     [](const C& c) -> Value { return c.quantities.elongation; }},
    {number("phase_angle", "Phase Angle", "زاوية الطور"),
     [](const C& c) -> Value { return c.quantities.phase_angle; }},
    {number("width", "Crescent Width", "سمك الهلال"), [](const C& c) -> Value { return c.quantities.width; }},
    {number("semidiameter", "Moon Semi-Diameter", "نصف قطر القمر"),
     [](const C& c) -> Value { return c.quantities.semidiameter; }},
    {number("illumination", "Illumination", "الإضاءة", "%"),
     [](const C& c) -> Value { return c.quantities.illuminated_fraction * 100; }},
    {number("parallax", "Horizontal Parallax", "اختلاف المنظر الأفقي"),
     [](const C& c) -> Value { return c.moon.parallax; }},
    {number("magnitude", "Magnitude", "القدر", "mag"),
     [](const C& c) -> Value { return c.quantities.magnitude(); }},
    {number("distance", "Distance", "البعد", "km"), [](const C& c) -> Value { return c.moon.distance; }},
    {column("criterion", "Criterion", "المعيار", ValueType::text),
     [](const C& /*c*/) -> Value { return std::string(row_of(report_criterion).key); }},
    {number("best_relative_altitude", "Relative altitude at Best Time", "فرق الارتفاع في أفضل وقت"),
     [](const C& c) -> Value { return c.criterion.arcv; }},
    {number("best_width", "Crescent width at Best Time", "سمك الهلال في أفضل وقت", "arcmin"),
     [](const C& c) -> Value { return c.criterion.width; }},
    {number("q", "q", "q", ""), [](const C& c) -> Value { return c.criterion.value; }},
    {column("visibility", "Crescent Visibility", "رؤية الهلال", ValueType::text),
     [](const C& c) -> Value {
         return std::string(row_of(report_criterion).report.sentence(c.criterion.value));
     }},
};

} // namespace

ChosenPlaces chosen_places(const Circumstances& circumstances) {
    const MoonPlace& m = circumstances.moon;
    const SunPlace& s = circumstances.sun;
    if (circumstances.choice.geocentric)
        return {m.right_ascension, m.declination, s.right_ascension, s.declination,
                m.longitude,       m.latitude,    s.longitude,       s.latitude};
    return {m.topocentric_right_ascension, m.topocentric_declination, s.topocentric_right_ascension,
            s.topocentric_declination,     m.topocentric_longitude,   m.topocentric_latitude,
            s.topocentric_longitude,       s.topocentric_latitude};
}

std::span<const ColumnOf<Circumstances>> crescent_columns() {
    return columns;
}

} // namespace halvane
