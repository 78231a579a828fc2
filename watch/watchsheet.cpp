// SPDX-License-Identifier: MIT
#include "watch/watchsheet.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/moddateconv.h"
#include "calendar/modday.h"
#include "ephemeris/modgeneral.h"
#include "timetable/placewords.h"
#include "watch/localmoment.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace halvane {
namespace {

constexpr double minutes_per_hour = 60;
constexpr double seconds_per_hour = 3600;
constexpr double degrees_per_hour = 15;
constexpr const char* minus = "\u2212";
constexpr const char* none = "–";

/// A number within words of either language.
TwinWords figures(const std::string& text) {
    return {text, left_to_right(text)};
}

TwinWords degrees_words(double angle, int decimals = 2) {
    return figures(fixed_number(angle, decimals) + "°");
}

TwinWords angle_or_none(const std::optional<double>& angle) {
    return angle ? alike(fixed_number(*angle, 2)) : alike(none);
}

/// "22h 47m 12s" of hours, "12° 03' 45"" of degrees; rounded to the second.
std::string sexagesimal(double value, std::array<const char*, 3> marks) {
    const long seconds = std::lround(std::fabs(value) * seconds_per_hour);
    const auto two = [](long number) { return format_number(static_cast<double>(number), "00"); };
    return (value < 0 && seconds > 0 ? minus : std::string()) + two(seconds / 3600) + marks[0] + " " +
           two(seconds / 60 % 60) + marks[1] + " " + two(seconds % 60) + marks[2];
}

TwinWords equatorial_words(const EquatorialPlace& place) {
    constexpr double day = 24;
    constexpr double half_second = 0.5 / seconds_per_hour;
    double hours = place.right_ascension / degrees_per_hour;
    if (hours >= day - half_second)
        hours -= day;
    return figures(sexagesimal(std::fabs(hours), {"h", "m", "s"}) + ",  " +
                   sexagesimal(place.declination, {"°", "'", "\""}));
}

/// "1 h 04 min", "64 min", "3 d 4 h"
TwinWords span_words(double minutes) {
    const long whole = std::lround(std::fabs(minutes));
    const std::string sign = minutes < 0 && whole > 0 ? minus : "";
    const long hours = whole / 60;
    if (hours == 0)
        return {sign + std::to_string(whole) + " min", left_to_right(sign + std::to_string(whole)) + " د"};
    const std::string rest = format_number(static_cast<double>(whole % 60), "00");
    return {sign + std::to_string(hours) + " h " + rest + " min",
            left_to_right(sign + std::to_string(hours)) + " س " + rest + " د"};
}

TwinWords hijri_words(const HijriDate& date) {
    const auto in = [&](Language language) {
        return plain_number(date.day) + " " + hijri_month_name(date.month, language) + " " +
               plain_number(date.year);
    };
    return {in(Language::english), in(Language::arabic)};
}

/// "17 February 2026, 12:01:25"
TwinWords moment_words(const LocalMoment& moment) {
    const TwinWords date = date_words(civil_date(moment.jd));
    return {date.english + ", " + clock_of(moment), date.arabic + "، " + clock_of(moment)};
}

TwinWords value_words(const CataloguedCriterion& criterion, double value) {
    constexpr int decimals = 3;
    constexpr int decimals_of_minutes = 1;
    const std::string_view unit = criterion.unit;
    if (unit == "deg")
        return figures(fixed_number(value, decimals) + "°");
    if (unit == "min") {
        const std::string text = fixed_number(value, decimals_of_minutes);
        return {text + " min", left_to_right(text) + " د"};
    }
    return figures(fixed_number(value, decimals));
}

struct ColumnText {
    WatchColumn column;
    TwinWords (*cell)(const WatchRow& row);
};

TwinWords angle(double value) {
    return alike(fixed_number(value, 2));
}

/// The columns between the clock and the sky's brightness.
std::vector<ColumnText> number_columns() {
    constexpr TwinText moon{"Moon", "القمر"};
    constexpr TwinText sun{"Sun", "الشمس"};
    constexpr TwinText nothing{"", ""};
    constexpr TwinText altitude{"Alt.", "الارتفاع"};
    constexpr TwinText seen{"Alt. seen", "الظاهري"};
    constexpr TwinText azimuth{"Azimuth", "السمت"};
    return {{{moon, altitude, "°"}, [](const WatchRow& row) { return angle(row.places.moon_altitude); }},
            {{moon, seen, "°"}, [](const WatchRow& row) { return angle_or_none(row.moon_apparent); }},
            {{moon, azimuth, "°"}, [](const WatchRow& row) { return angle(row.places.moon_azimuth); }},
            {{sun, altitude, "°"}, [](const WatchRow& row) { return angle(row.places.sun_altitude); }},
            {{sun, seen, "°"}, [](const WatchRow& row) { return angle_or_none(row.sun_apparent); }},
            {{sun, azimuth, "°"}, [](const WatchRow& row) { return angle(row.places.sun_azimuth); }},
            {{nothing, {"Elong.", "الاستطالة"}, "°"},
             [](const WatchRow& row) { return angle(row.places.elongation); }},
            {{nothing, {"ARCV", "ARCV"}, "°"},
             [](const WatchRow& row) { return angle(row.places.relative_altitude()); }},
            {{nothing, {"DAZ", "DAZ"}, "°"},
             [](const WatchRow& row) { return angle(rev180(row.places.relative_azimuth())); }},
            {{nothing, {"Width", "السمك"}, "'"},
             [](const WatchRow& row) { return angle(row.places.width_minutes()); }},
            {{nothing, {"Lit", "المضاء"}, "%"},
             [](const WatchRow& row) { return angle(100 * row.places.illuminated_fraction); }}};
}

/// The side of an upright view that an angle from the zenith lies on, which grows to the left.
TwinText side_of(bool left) {
    return left ? TwinText{"left", "يسار"} : TwinText{"right", "يمين"};
}

/// Lays out the texts of one watch.
class SheetMaker {
public:
    explicit SheetMaker(const CrescentWatch& watch)
        : watch_(watch), place_(watch.settings.place), is_new_(watch.is_new()) {}

    WatchSheet run() {
        WatchSheet sheet;
        take_head(sheet);
        take_facts(sheet.facts);
        take_warnings(sheet.warnings);
        take_table(sheet);
        if (watch_.pointing)
            take_pointing(sheet, *watch_.pointing);
        take_verdicts(sheet);
        take_notes(sheet.notes);
        return sheet;
    }

private:
    LocalMoment local(double universal) const { return local_moment(place_, universal); }
    std::string clock(double universal) const { return clock_of(local(universal)); }

    void take_head(WatchSheet& sheet) const {
        constexpr double one_week = 7; // into the month that begins, or back into the one that ends
        const HijriDate month =
            hijri_of_day_number(std::floor(watch_.conjunction + 0.5 + (is_new_ ? one_week : -one_week)));
        const double day = watch_.settings.day;
        const DateNumbers date = civil_date(day);
        const auto in = [&](Language language) {
            return hijri_month_name(month.month, language) + " " + plain_number(month.year);
        };
        const TwinText kind = is_new_ ? TwinText{"New crescent of ", "هلال أول شهر "}
                                      : TwinText{"Old crescent of ", "هلال آخر شهر "};
        sheet.title = {kind.english + in(Language::english), kind.arabic + in(Language::arabic)};
        const TwinText part = is_new_ ? TwinText{"Evening of ", "مساء "} : TwinText{"Morning of ", "صباح "};
        const double noon = day + 0.5;
        const TwinWords words = date_words(date);
        sheet.evening = {part.english + weekday_name(noon, Language::english) + " " + words.english,
                         part.arabic + weekday_name(noon, Language::arabic) + " " + words.arabic};
        const TwinWords hijri = hijri_words(hijri_of_civil(date.year, date.month, date.day));
        sheet.hijri = {hijri.english + " (tabular)", hijri.arabic + " (حسابي)"};
        sheet.place = alike(place_.location.name);
        sheet.coordinates = coordinates_words(place_.location);
        const std::array<int, 1> offsets{local(watch_.sun_event).offset};
        sheet.zone = zone_words(place_, offsets);
    }

    /// "17:24:31, azimuth 257.93°, West-southwest"
    TwinWords event_words(double universal, double azimuth) const {
        const TwinText wind = compass_words(azimuth);
        const std::string degrees = fixed_number(azimuth, 1) + "°";
        return {clock(universal) + ", azimuth " + degrees + ", " + wind.english,
                clock(universal) + "، السمت " + left_to_right(degrees) + "، " + wind.arabic};
    }

    void take_facts(std::vector<WatchFact>& facts) const {
        const TwinWords universal = moment_words(universal_moment(watch_.conjunction));
        const LocalMoment here = local(watch_.conjunction);
        const TwinWords local_words = moment_words(here);
        facts.push_back({TwinText{"Conjunction, Universal Time", "الاقتران، التوقيت العالمي"}, universal});
        facts.push_back({TwinText{"Conjunction, local clock", "الاقتران، الساعة المحلية"}, local_words});
        facts.push_back({is_new_ ? TwinText{"Age at sunset", "العمر عند الغروب"}
                                 : TwinText{"Sunrise to conjunction", "من الشروق إلى الاقتران"},
                         age_words(watch_.sun_event)});
        facts.push_back({is_new_ ? TwinText{"Age at Best Time", "العمر عند أفضل وقت"}
                                 : TwinText{"Best Time to conjunction", "من أفضل وقت إلى الاقتران"},
                         watch_.best_time ? age_words(*watch_.best_time) : alike(none)});
        facts.push_back(
            {sun_event_words(kind()), event_words(watch_.sun_event, sun_row().places.sun_azimuth)});
        facts.push_back({moon_event_words(kind()), moon_words()});
        facts.push_back({TwinText{"Lag of the Moon", "مكث القمر"}, lag_words()});
        facts.push_back({TwinText{"Best Time", "أفضل وقت"}, best_time_words()});
    }

    CrescentKind kind() const { return watch_.settings.kind; }
    const WatchRow& sun_row() const { return is_new_ ? watch_.rows.front() : watch_.rows.back(); }
    const WatchRow& moon_row() const { return is_new_ ? watch_.rows.back() : watch_.rows.front(); }

    TwinWords moon_words() const {
        if (!watch_.moon_event.universal)
            return watch_.moon_event.missing == NoEvent::up
                       ? TwinText{"stays above the horizon", "لا يغيب تحت الأفق"}
                   : watch_.moon_event.missing == NoEvent::down
                       ? TwinText{"stays below the horizon", "لا يظهر فوق الأفق"}
                       : TwinText{"none within twelve hours", "لا يوجد خلال اثنتي عشرة ساعة"};
        if (!watch_.moon_is_up())
            return alike(clock(*watch_.moon_event.universal));
        return event_words(*watch_.moon_event.universal, moon_row().places.moon_azimuth);
    }

    TwinWords lag_words() const {
        const auto lag = watch_.lag();
        return lag ? span_words(*lag) : TwinWords(TwinText{none, none});
    }

    TwinWords best_time_words() const {
        if (!watch_.best_time)
            return TwinText{none, none};
        const TwinText sky = words_of(sky_brightness(watch_.pointing->places.sun_altitude));
        return {clock(*watch_.best_time) + ", " + sky.english, clock(*watch_.best_time) + "، " + sky.arabic};
    }

    TwinWords age_words(double universal) const {
        return span_words(watch_.age(universal) * minutes_per_hour);
    }

    void take_warnings(std::vector<TwinWords>& warnings) const {
        if (watch_.age(watch_.sun_event) < 0)
            warnings.emplace_back(
                is_new_
                    ? TwinText{"The conjunction is still to come at sunset: there is no new crescent yet.",
                               "الاقتران لم يحدث بعد عند الغروب: لا هلال بعد."}
                    : TwinText{"The conjunction is past at sunrise: there is no old crescent any more.",
                               "الاقتران حدث قبل الشروق: لم يعد هناك هلال."});
        if (const auto lag = watch_.lag()) {
            if (*lag <= 0)
                warnings.push_back(moon_goes_first(span_words(-*lag)));
        } else {
            warnings.push_back(no_moon_event());
        }
    }

    TwinWords moon_goes_first(const TwinWords& span) const {
        if (is_new_)
            return {"The Moon sets " + span.english +
                        " before the Sun: it is below the horizon at sunset, and nothing can be seen.",
                    "يغرب القمر قبل الشمس بمقدار " + span.arabic +
                        "، فهو تحت الأفق عند غروب الشمس و لا يمكن رؤية شيء."};
        return {"The Moon rises " + span.english +
                    " after the Sun: it is below the horizon until sunrise, and nothing can be seen.",
                "يشرق القمر بعد الشمس بمقدار " + span.arabic +
                    "، فهو تحت الأفق حتى شروق الشمس و لا يمكن رؤية شيء."};
    }

    TwinWords no_moon_event() const {
        switch (watch_.moon_event.missing) {
        case NoEvent::up:
            return TwinText{
                "The Moon stays above the horizon: there is no lag and no Best Time, and the table goes "
                "as far as the night.",
                "يبقى القمر فوق الأفق: لا مكث و لا أفضل وقت، و الجدول لليل كله."};
        case NoEvent::down:
            return TwinText{"The Moon stays below the horizon all day: nothing can be seen.",
                            "يبقى القمر تحت الأفق طوال اليوم: لا يمكن رؤية شيء."};
        default:
            break;
        }
        return TwinText{"The Moon neither rises nor sets within twelve hours of the Sun's event.",
                        "لا يشرق القمر و لا يغرب خلال اثنتي عشرة ساعة."};
    }

    void take_table(WatchSheet& sheet) const {
        const std::vector<ColumnText> numbers = number_columns();
        const TwinText nothing{"", ""};
        sheet.columns.push_back({nothing, TwinText{"Clock", "الساعة"}, ""});
        for (const ColumnText& column : numbers)
            sheet.columns.push_back(column.column);
        sheet.columns.push_back({nothing, TwinText{"Sky", "السماء"}, ""});
        for (const WatchRow& row : watch_.rows) {
            WatchTableRow made;
            made.cells.push_back(alike(clock(row.universal)));
            for (const ColumnText& column : numbers)
                made.cells.push_back(column.cell(row));
            made.cells.emplace_back(words_of(row.brightness));
            if (row.universal == watch_.sun_event)
                made.event = sun_event_words(kind());
            else if (row.universal == watch_.moon_event.universal)
                made.event = moon_event_words(kind());
            sheet.rows.push_back(std::move(made));
        }
    }

    void take_pointing(WatchSheet& sheet, const WatchPointing& pointing) const {
        const TwinText moment =
            watch_.best_time ? TwinText{"Best Time", "أفضل وقت"} : sun_event_words(kind());
        sheet.pointing_title = {
            std::string("Telescope at ") + moment.english + ", " + clock(pointing.universal),
            std::string("التلسكوب عند ") + moment.arabic + "، " + clock(pointing.universal)};
        sheet.pointing = {
            {TwinText{"Right ascension, declination of date", "المطلع المستقيم و الميل للتاريخ"},
             equatorial_words(pointing.of_date)},
            {TwinText{"Right ascension, declination J2000", "المطلع المستقيم و الميل J2000"},
             equatorial_words(pointing.j2000)},
            {TwinText{"Hour angle", "الزاوية الساعية"},
             figures(sexagesimal(pointing.hour_angle / degrees_per_hour, {"h", "m", "s"}))},
            {TwinText{"Altitude, airless and seen", "الارتفاع بلا انكسار و الظاهري"},
             altitude_words(pointing)},
            {TwinText{"Azimuth", "السمت"}, degrees_words(pointing.places.moon_azimuth)},
            {TwinText{"From the Sun in altitude", "عن الشمس في الارتفاع"},
             offset_words(pointing.altitude_offset)},
            {TwinText{"From the Sun in azimuth", "عن الشمس في السمت"},
             azimuth_words(pointing.azimuth_offset)},
            {TwinText{"From the Sun along a great circle", "عن الشمس على دائرة عظمى"},
             degrees_words(pointing.from_sun.separation)},
            {TwinText{"Its position angle at the Sun", "زاوية موضعه عند الشمس"},
             degrees_words(pointing.from_sun.angle, 1)},
            {TwinText{"Position angle of the bright limb", "زاوية موضع الحافة المضيئة"},
             degrees_words(pointing.bright_limb, 1)},
            {TwinText{"Semidiameter, width", "نصف القطر و السمك"},
             figures(fixed_number(pointing.places.semidiameter * 60, 2) + "', " +
                     fixed_number(pointing.places.width_minutes(), 2) + "'")},
            {TwinText{"Lit part, phase angle", "الجزء المضاء و زاوية الطور"},
             figures(fixed_number(100 * pointing.places.illuminated_fraction, 2) + "%, " +
                     fixed_number(pointing.places.phase_angle, 2) + "°")}};
        sheet.orientation = {limb_words(pointing), horns_words(pointing)};
    }

    static TwinWords altitude_words(const WatchPointing& pointing) {
        const double altitude = pointing.places.moon_altitude;
        const std::string seen = altitude >= lowest_refracted
                                     ? fixed_number(apparent_altitude(altitude), 2) + "°"
                                     : std::string(none);
        return figures(fixed_number(altitude, 2) + "°, " + seen);
    }

    static TwinWords offset_words(double offset) {
        const std::string degrees = fixed_number(std::fabs(offset), 2) + "°";
        return offset < 0 ? TwinWords{degrees + " lower", left_to_right(degrees) + " إلى أسفل"}
                          : TwinWords{degrees + " higher", left_to_right(degrees) + " إلى أعلى"};
    }

    static TwinWords azimuth_words(double offset) {
        const std::string degrees = fixed_number(std::fabs(offset), 2) + "°";
        const TwinText side = side_of(offset < 0);
        return {degrees + " to the " + side.english, left_to_right(degrees) + " إلى ال" + side.arabic};
    }

    /// Where the bright limb points to.
    static TwinWords limb_words(const WatchPointing& pointing) {
        const double down = pointing.zenith_angle - 180; // positive to the right of the foot
        const std::string degrees = fixed_number(std::fabs(down), 0) + "°";
        if (degrees == "0°")
            return TwinText{"The bright limb points straight down.", "الحافة المضيئة إلى أسفل تماما."};
        const TwinText side = side_of(down < 0);
        return {"The bright limb points " + degrees + " to the " + side.english + " of straight down.",
                "الحافة المضيئة " + left_to_right(degrees) + " إلى " + side.arabic + " الأسفل."};
    }

    static TwinWords horns_words(const WatchPointing& pointing) {
        const std::string degrees = fixed_number(pointing.horns_tilt(), 0) + "°";
        if (degrees == "0°")
            return TwinText{"Both horns are alike high.", "القرنان على ارتفاع واحد."};
        const TwinText side = side_of(pointing.higher_horn() < 0);
        return {"The line of the horns is tilted " + degrees + "; the " + side.english +
                    " horn is the higher.",
                "خط القرنين مائل " + left_to_right(degrees) + "، و القرن الأعلى إلى ال" + side.arabic + "."};
    }

    void take_verdicts(WatchSheet& sheet) const {
        sheet.verdicts_title = TwinText{"What the criteria say", "حكم المعايير"};
        for (const WatchVerdict& verdict : watch_.verdicts) {
            VerdictWords words;
            words.name = verdict.criterion->name;
            words.value = verdict.value ? value_words(*verdict.criterion, *verdict.value) : alike(none);
            words.meaning = verdict.value ? verdict.criterion->bands()[verdict.visibility].text
                                          : TwinText{"no answer", "لا جواب"};
            sheet.verdicts.push_back(words);
        }
    }

    static void take_notes(std::vector<TwinWords>& notes) {
        notes.emplace_back(
            TwinText{"All places are topocentric and airless; \"Alt. seen\" adds the refraction of standard "
                     "air, down to "
                     "an airless altitude of \u22121°. Azimuths are from the north through the east. Sunset "
                     "and moonset "
                     "are those of the sea's horizon.",
                     "كل المواضع سطحية بلا انكسار؛ و \"الظاهري\" بانكسار الهواء المعياري حتى ارتفاع "
                     "\u2066\u22121°\u2069. و السمت من الشمال إلى الشرق. و الشروق و الغروب لأفق البحر."});
        notes.emplace_back(TwinText{
            "ARCV: the Moon's altitude less the Sun's. DAZ: its azimuth less the Sun's. Width: of the "
            "crescent at "
            "its middle. Best Time: four ninths of the lag from the Sun's event. Position angles are from "
            "the "
            "north to the east.",
            "ARCV: ارتفاع القمر ناقص ارتفاع الشمس. DAZ: سمته ناقص سمتها. السمك: لوسط الهلال. أفضل وقت: أربعة "
            "أتساع المكث من حدث الشمس. زوايا الموضع من الشمال إلى الشرق."});
        notes.emplace_back(TwinText{
            "The picture of the crescent is that of geometry: its horns are half a turn apart. Those that "
            "are "
            "seen are shorter. A criterion does not ask whether the conjunction is past.",
            "صورة الهلال هندسية: بين قرنيه نصف دائرة، و المرئي أقصر. و المعيار لا ينظر هل حدث الاقتران."});
    }

    const CrescentWatch& watch_;
    const TimetablePlace& place_;
    bool is_new_;
};

} // namespace

WatchSheet sheet_of(const CrescentWatch& watch) {
    return SheetMaker(watch).run();
}

std::string fixed_number(double value, int decimals) {
    const std::string text = format_number(
        std::fabs(value), decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0'));
    const bool is_zero = text.find_first_not_of("0.") == std::string::npos;
    return value < 0 && !is_zero ? minus + text : text;
}

TwinText words_of(SkyBrightness brightness) {
    constexpr std::array<TwinText, 5> words{{{"Daylight", "نهار"},
                                             {"Civil twilight", "شفق مدني"},
                                             {"Nautical twilight", "شفق بحري"},
                                             {"Astronomical twilight", "شفق فلكي"},
                                             {"Night", "ليل"}}};
    return words.at(static_cast<std::size_t>(brightness));
}

TwinText sun_event_words(CrescentKind kind) {
    return kind == CrescentKind::new_crescent ? TwinText{"Sunset", "غروب الشمس"}
                                              : TwinText{"Sunrise", "شروق الشمس"};
}

TwinText moon_event_words(CrescentKind kind) {
    return kind == CrescentKind::new_crescent ? TwinText{"Moonset", "غروب القمر"}
                                              : TwinText{"Moonrise", "شروق القمر"};
}

TwinText compass_words(double azimuth) {
    constexpr std::array<TwinText, 16> winds{{{"North", "الشمال"},
                                              {"North-northeast", "شمال الشمال الشرقي"},
                                              {"Northeast", "الشمال الشرقي"},
                                              {"East-northeast", "شرق الشمال الشرقي"},
                                              {"East", "الشرق"},
                                              {"East-southeast", "شرق الجنوب الشرقي"},
                                              {"Southeast", "الجنوب الشرقي"},
                                              {"South-southeast", "جنوب الجنوب الشرقي"},
                                              {"South", "الجنوب"},
                                              {"South-southwest", "جنوب الجنوب الغربي"},
                                              {"Southwest", "الجنوب الغربي"},
                                              {"West-southwest", "غرب الجنوب الغربي"},
                                              {"West", "الغرب"},
                                              {"West-northwest", "غرب الشمال الغربي"},
                                              {"Northwest", "الشمال الغربي"},
                                              {"North-northwest", "شمال الشمال الغربي"}}};
    constexpr double wind = 22.5; // [deg]
    const auto number = static_cast<std::size_t>(std::lround(rev360(azimuth) / wind));
    return winds.at(number % winds.size());
}

TwinWords words_of(const NoWatch& none_of, const WatchSettings& settings) {
    const TwinWords date = date_words(civil_date(settings.day));
    const std::string& place = settings.place.location.name;
    const bool is_new = settings.kind == CrescentKind::new_crescent;
    if (none_of.far_conjunction) {
        const TwinWords conjunction = date_words(civil_date(*none_of.far_conjunction));
        return {"On " + date.english + " the Moon is no crescent: the nearest conjunction is on " +
                    conjunction.english + ", more than seven days away.",
                "القمر في " + date.arabic + " ليس هلالا: أقرب اقتران في " + conjunction.arabic +
                    "، أي أبعد من سبعة أيام."};
    }
    const TwinText event = is_new ? TwinText{"set", "تغرب"} : TwinText{"rise", "تشرق"};
    const TwinText stays =
        none_of.sun == NoEvent::up ? TwinText{": it stays above the horizon", "، فهي تبقى فوق الأفق"}
        : none_of.sun == NoEvent::down ? TwinText{": it stays below the horizon", "، فهي تبقى تحت الأفق"}
                                       : TwinText{"", ""};
    return {
        "On " + date.english + " the Sun does not " + event.english + " in " + place + stays.english + ".",
        "لا " + std::string(event.arabic) + " الشمس في " + date.arabic + " في " + place + stays.arabic + "."};
}

} // namespace halvane
