// SPDX-License-Identifier: MIT
#include "crescent/criteriacatalogue.h"

#include "crescent/publishedcriteria.h"
#include "ephemeris/modgeneral.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace halvane {
namespace {

using Evening = CrescentEvening;
using Settings = CriteriaSettings;
using Measured = std::optional<double>;

double daz_of(const CrescentQuantities& q) {
    return std::fabs(rev180(q.relative_azimuth()));
}

/// How far the Moon stands above a least ARCV that may have an end.
Measured above(const CrescentQuantities& q, Measured least_arcv) {
    if (!least_arcv)
        return std::nullopt;
    return q.relative_altitude() - *least_arcv;
}

double age_at_sun_event(const Evening& evening) {
    return evening.age(evening.sun_event);
}

/// An elongation that the rules of the calendar ask for: negative while the conjunction is to come.
double elongation_since(const Evening& evening, double elongation) {
    return std::copysign(elongation, age_at_sun_event(evening));
}

Measured yallop_1997(const Evening& evening, const Settings& /*settings*/) {
    const CrescentSky& sky = evening.at_best_time;
    const CrescentQuantities& q = sky.geocentric;
    return yallop_value(q.relative_altitude(), yallop_width(sky.parallax, q.moon_altitude, q.elongation));
}

Measured vesk(const Evening& evening, const Settings& /*settings*/) {
    const CrescentQuantities& q = evening.at_best_time.topocentric;
    return vesk_value(q.relative_altitude(), q.width_minutes());
}

Measured yallop(const Evening& evening, const Settings& /*settings*/) {
    const CrescentQuantities& q = evening.at_best_time.topocentric;
    return yallop_value(q.relative_altitude(), q.width_minutes());
}

double apparent_limb(const Evening& evening) {
    const CrescentQuantities& q = evening.at_sun_event.topocentric;
    return apparent_lower_limb(q.moon_altitude, q.semidiameter);
}

Measured saao(const Evening& evening, const Settings& /*settings*/) {
    return saao_value(apparent_limb(evening), daz_of(evening.at_sun_event.topocentric));
}

Measured saao_2001(const Evening& evening, const Settings& /*settings*/) {
    const Measured least = saao_least_limb(daz_of(evening.at_sun_event.topocentric));
    if (!least)
        return std::nullopt;
    return apparent_limb(evening) - *least;
}

Measured danjon(const Evening& evening, const Settings& settings) {
    return evening.at_best_time.topocentric.elongation - settings.danjon_limit;
}

Measured maunder(const Evening& evening, const Settings& /*settings*/) {
    const CrescentQuantities& q = evening.at_sun_event.geocentric;
    return above(q, maunder_least_arcv(daz_of(q)));
}

Measured schoch(const Evening& evening, const Settings& /*settings*/) {
    const CrescentQuantities& q = evening.at_sun_event.geocentric;
    return above(q, schoch_least_arcv(daz_of(q)));
}

Measured bruin(const Evening& evening, const Settings& /*settings*/) {
    const CrescentQuantities& q = evening.at_best_time.geocentric;
    return above(q, bruin_least_arcv(bruin_width(q.elongation)));
}

Measured ilyas(const Evening& evening, const Settings& /*settings*/) {
    const CrescentQuantities& q = evening.at_sun_event.geocentric;
    return above(q, ilyas_least_arcv(daz_of(q)));
}

Measured babylon(const Evening& evening, const Settings& /*settings*/) {
    return evening.lag();
}

/// By how much both the altitude and the elongation reach their least values, by the smaller margin.
double margin_of(double altitude, double least_altitude, double elongation, double least_elongation) {
    return std::min(altitude - least_altitude, elongation - least_elongation);
}

Measured mabims_1992(const Evening& evening, const Settings& /*settings*/) {
    const CrescentSky& sky = evening.at_sun_event;
    const double seen = margin_of(sky.topocentric.moon_altitude, 2, sky.geocentric.elongation, 3);
    const double old_enough = evening.age(evening.moon_event) - 8;
    return std::min(std::max(seen, old_enough), age_at_sun_event(evening));
}

double mabims_margin(const Evening& evening, const CrescentQuantities& frame_of_elongation) {
    return margin_of(evening.at_sun_event.topocentric.moon_altitude, 3,
                     elongation_since(evening, frame_of_elongation.elongation), 6.4);
}

Measured mabims_2021(const Evening& evening, const Settings& /*settings*/) {
    return mabims_margin(evening, evening.at_sun_event.geocentric);
}

Measured mabims_2021_topocentric(const Evening& evening, const Settings& /*settings*/) {
    return mabims_margin(evening, evening.at_sun_event.topocentric);
}

/// Hours that are left of the civil date in Universal Time at sunset.
double hours_to_midnight(const Evening& evening) {
    return (evening.day + 1 - evening.sun_event) * 24;
}

Measured turkey_1978(const Evening& evening, const Settings& /*settings*/) {
    return istanbul_margin(evening, evening.at_sun_event.topocentric);
}

Measured istanbul_2016(const Evening& evening, const Settings& /*settings*/) {
    return std::min(istanbul_margin(evening, evening.at_sun_event.topocentric), hours_to_midnight(evening));
}

Measured istanbul_2016_geocentric(const Evening& evening, const Settings& /*settings*/) {
    return std::min(istanbul_margin(evening, evening.at_sun_event.geocentric), hours_to_midnight(evening));
}

Measured umm_al_qura(const Evening& evening, const Settings& /*settings*/) {
    return std::min(evening.lag(), age_at_sun_event(evening) * 60);
}

Measured user_limits(const Evening& evening, const Settings& settings) {
    const CrescentSky& sky = evening.at_sun_event;
    const UserLimits& limits = settings.user;
    Measured least;
    const auto take = [&least](double value, Measured limit) {
        if (limit)
            least = std::min(least.value_or(value - *limit), value - *limit);
    };
    take(evening.lag(), limits.lag);
    take(sky.topocentric.moon_altitude, limits.altitude);
    take(sky.geocentric.elongation, limits.elongation);
    take(age_at_sun_event(evening), limits.age);
    return least;
}

constexpr TwinText geocentric{"geocentric, airless", "مركزي أرضي، بلا انكسار"};
constexpr TwinText topocentric{"topocentric, airless", "سطحي، بلا انكسار"};
constexpr TwinText altitude_topocentric{"altitude topocentric, elongation geocentric, both airless",
                                        "الارتفاع سطحي و الاستطالة مركزية أرضية، كلاهما بلا انكسار"};
constexpr TwinText limb_apparent{"lower limb topocentric and apparent, azimuths topocentric",
                                 "الحافة السفلى سطحية ظاهرية، و السمتان سطحيان"};
constexpr TwinText settings_alone{"the times alone", "الأوقات وحدها"};

constexpr TwinText arcv_margin{"ARCV less its least value", "ARCV ناقص أقل قيمة له"};
constexpr TwinText margin{"the smallest margin above a limit", "أصغر زيادة على حد"};

constexpr TwinText seen_with_eye{"Visible", "يرى"};
constexpr TwinText not_seen{"Not visible", "لا يرى"};
constexpr TwinText rule_met{"The condition is met", "تحقق الشرط"};
constexpr TwinText rule_missed{"The condition is not met", "لم يتحقق الشرط"};
constexpr TwinText no_aid_helps{"Not visible even with optical aid", "لا يرى و لو بمرقب/تلسكوب"};
constexpr TwinText aid_needed{"Needs optical aid", "يحتاج مرقب/تلسكوب"};
constexpr TwinText easily{"Easily visible by naked eye", "يرى بسهولة بالعين المجردة"};
constexpr TwinText saao_impossible{"Impossible even with optical aid", "الرؤية مستحيلة و لو بمرقب/تلسكوب"};
constexpr TwinText saao_improbable{"Improbable by naked eye", "الرؤية بالعين المجردة غير محتملة"};
constexpr TwinText saao_probable{"Probable by naked eye", "الرؤية بالعين المجردة محتملة"};

using Classes = std::array<CriterionClass, CataloguedCriterion::most_classes>;

/// Two classes whose border is at 0.
constexpr Classes two_classes(TwinText below, TwinText from_zero, bool holds_zero) {
    return {{{.text = below}, {0, holds_zero, from_zero}}};
}

constexpr Classes line_of_seeing = two_classes(not_seen, seen_with_eye, false);
constexpr Classes rule_of_calendar = two_classes(rule_missed, rule_met, true);

constexpr const char* mabims_source =
    "Ministers of religious affairs (MABIMS), new criteria; fatwa of Selangor, 9 March 2021";
constexpr const char* istanbul_source =
    "Congress on the unification of the Hijri calendar, Istanbul, 28 to 30 May 2016";

constexpr CataloguedCriterion table[] = {
    {.key = "vesk",
     .name = {"Vesk", "Vesk"},
     .source = "the criterion of the crescent's report; no publication",
     .moment = ObservationMoment::best_time,
     .frame = topocentric,
     .measure_name = {"V", "V"},
     .unit = "deg",
     .measure = vesk,
     .classes = {{{.text = no_aid_helps},
                  {-0.97, true, aid_needed},
                  {2, true, {"Could be seen by naked eye", "قد يرى بالعين المجردة"}},
                  {5.65, true, easily}}},
     .by_eye = 2},
    {.key = "yallop",
     .name = {"Yallop", "يالوب"},
     .source = "Yallop, NAO Technical Note 69 (1997), its line with topocentric quantities",
     .moment = ObservationMoment::best_time,
     .frame = topocentric,
     .measure_name = {"q", "q"},
     .unit = "",
     .measure = yallop,
     .classes = {{{.text = no_aid_helps},
                  {-0.232, false, aid_needed},
                  {-0.16, false, {"May need optical aid", "قد يحتاج مرقب/تلسكوب"}},
                  {-0.014,
                   false,
                   {"Visible by naked eye in perfect conditions", "يرى بالعين المجردة في ظروف مثالية"}},
                  {0.216, false, easily}}},
     .by_eye = 3},
    {.key = "saao",
     .name = {"SAAO", "جنوب أفريقيا"},
     .source = "Caldwell and Laney, African Skies 5, 15 (2001), by cubics",
     .moment = ObservationMoment::sun_event,
     .frame = limb_apparent,
     .measure_name = {"lower limb above the cubic", "الحافة السفلى فوق المنحنى"},
     .unit = "deg",
     .measure = saao,
     .classes = {{{.text = saao_impossible}, {6.2912, true, saao_improbable}, {8.1912, true, saao_probable}}},
     .by_eye = 2},
    {.key = "yallop-1997",
     .name = {"Yallop as published", "يالوب كما نشر"},
     .source = "Yallop, NAO Technical Note 69 (1997, updated 1998)",
     .moment = ObservationMoment::best_time,
     .frame = {"geocentric, airless; semidiameter topocentric", "مركزي أرضي بلا انكسار؛ نصف القطر سطحي"},
     .measure_name = {"q", "q"},
     .unit = "",
     .measure = yallop_1997,
     .classes =
         {{{.text = {"F: not visible, below the Danjon limit", "F: لا يرى، دون حد دانجون"}},
           {-0.293, false, {"E: not visible with a telescope", "E: لا يرى بالتلسكوب"}},
           {-0.232, false, {"D: needs optical aid", "D: يحتاج مرقب/تلسكوب"}},
           {-0.16,
            false,
            {"C: may need optical aid to find it, then the eye",
             "C: قد يحتاج مرقب/تلسكوب لإيجاده ثم يرى بالعين المجردة"}},
           {-0.014, false, {"B: visible in perfect conditions", "B: يرى بالعين المجردة في ظروف مثالية"}},
           {0.216, false, {"A: easily visible", "A: يرى بسهولة بالعين المجردة"}}}},
     .by_eye = 4},
    {.key = "saao-2001",
     .name = {"SAAO as published", "جنوب أفريقيا كما نشر"},
     .source = "Caldwell and Laney, African Skies 5, 15 (2001)",
     .moment = ObservationMoment::sun_event,
     .frame = limb_apparent,
     .measure_name = {"lower limb less its upper line", "الحافة السفلى ناقص الخط الأعلى"},
     .unit = "deg",
     .measure = saao_2001,
     .classes = {{{.text = saao_impossible},
                  {-saao_aid_span, true, saao_improbable},
                  {0, true, saao_probable}}},
     .by_eye = 2},
    {.key = "danjon",
     .name = {"Danjon's limit", "حد دانجون"},
     .source = "Danjon, L'Astronomie 46, 57 (1932) and 50, 57 (1936)",
     .moment = ObservationMoment::best_time,
     .frame = topocentric,
     .measure_name = {"elongation less the limit", "الاستطالة ناقص الحد"},
     .unit = "deg",
     .measure = danjon,
     .classes = two_classes({"Not possible: no crescent is formed", "لا يمكن: لا يتشكل الهلال"},
                            {"Possible", "ممكن"}, true)},
    {.key = "maunder",
     .name = {"Maunder", "ماوندر"},
     .source = "Maunder, J. Brit. Astron. Assoc. 21, 355 (1911)",
     .moment = ObservationMoment::sun_event,
     .frame = geocentric,
     .measure_name = arcv_margin,
     .unit = "deg",
     .measure = maunder,
     .classes = line_of_seeing},
    {.key = "schoch",
     .name = {"Schoch (Indian)", "شوخ (الهندي)"},
     .source =
         "Schoch, Ergaenzungshefte zu den Astron. Nachr. 8, no. 2 (1930); Indian Astronomical Ephemeris",
     .moment = ObservationMoment::sun_event,
     .frame = geocentric,
     .measure_name = arcv_margin,
     .unit = "deg",
     .measure = schoch,
     .classes = line_of_seeing},
    {.key = "bruin",
     .name = {"Bruin", "بروين"},
     .source =
         "Bruin, Vistas in Astronomy 21, 331 (1977), by the cubic of Yallop, NAO Technical Note 69 (1997)",
     .moment = ObservationMoment::best_time,
     .frame = {"geocentric, airless; semidiameter 15'", "مركزي أرضي بلا انكسار؛ نصف القطر 15'"},
     .measure_name = arcv_margin,
     .unit = "deg",
     .measure = bruin,
     .classes = line_of_seeing},
    {.key = "ilyas",
     .name = {"Ilyas", "إلياس"},
     .source = "Ilyas, Q. J. R. astr. Soc. 35, 425 (1994), by a later fit to his line of 1988",
     .moment = ObservationMoment::sun_event,
     .frame = geocentric,
     .measure_name = arcv_margin,
     .unit = "deg",
     .measure = ilyas,
     .classes = two_classes(not_seen, seen_with_eye, true)},
    {.key = "babylon",
     .name = {"Babylonian lag", "المكث البابلي"},
     .source = "Schaefer, Q. J. R. astr. Soc. 37, 759 (1996)",
     .moment = ObservationMoment::sun_event,
     .frame = settings_alone,
     .measure_name = {"lag", "المكث"},
     .unit = "min",
     .measure = babylon,
     .classes = {{{.text = not_seen}, {48, false, seen_with_eye}}}},
    {.key = "turkey-1978",
     .name = {"Turkey 1978", "تركيا 1978"},
     .source = "Conference on determining the lunar months, Istanbul, 27 to 30 November 1978",
     .moment = ObservationMoment::sun_event,
     .of_mornings = false,
     .frame = altitude_topocentric,
     .measure_name = margin,
     .unit = "deg",
     .measure = turkey_1978,
     .classes = rule_of_calendar},
    {.key = "istanbul-2016",
     .name = {"Istanbul 2016", "إسطنبول 2016"},
     .source = istanbul_source,
     .moment = ObservationMoment::sun_event,
     .of_mornings = false,
     .frame = altitude_topocentric,
     .measure_name = margin,
     .unit = "",
     .measure = istanbul_2016,
     .classes = rule_of_calendar},
    {.key = "istanbul-2016-geocentric",
     .name = {"Istanbul 2016, geocentric", "إسطنبول 2016، مركزي أرضي"},
     .source = istanbul_source,
     .moment = ObservationMoment::sun_event,
     .of_mornings = false,
     .frame = geocentric,
     .measure_name = margin,
     .unit = "",
     .measure = istanbul_2016_geocentric,
     .classes = rule_of_calendar},
    {.key = "mabims-1992",
     .name = {"MABIMS 1992", "مابيمس 1992"},
     .source = "Ministers of religious affairs (MABIMS), Labuan, 1 June 1992",
     .moment = ObservationMoment::sun_event,
     .of_mornings = false,
     .frame = altitude_topocentric,
     .measure_name = margin,
     .unit = "",
     .measure = mabims_1992,
     .classes = rule_of_calendar},
    {.key = "mabims-2021",
     .name = {"MABIMS 2021", "مابيمس 2021"},
     .source = mabims_source,
     .moment = ObservationMoment::sun_event,
     .of_mornings = false,
     .frame = altitude_topocentric,
     .measure_name = margin,
     .unit = "deg",
     .measure = mabims_2021,
     .classes = rule_of_calendar},
    {.key = "mabims-2021-topocentric",
     .name = {"MABIMS 2021, topocentric", "مابيمس 2021، سطحي"},
     .source = mabims_source,
     .moment = ObservationMoment::sun_event,
     .of_mornings = false,
     .frame = topocentric,
     .measure_name = margin,
     .unit = "deg",
     .measure = mabims_2021_topocentric,
     .classes = rule_of_calendar},
    {.key = "umm-al-qura",
     .name = {"Umm al-Qura", "أم القرى"},
     .source = "Rule of the Umm al-Qura calendar since 1423 AH; R. H. van Gent, The Umm al-Qura calendar of "
               "Saudi Arabia",
     .moment = ObservationMoment::sun_event,
     .of_mornings = false,
     .frame = settings_alone,
     .measure_name = {"the smaller of lag and age at sunset", "الأصغر من المكث و العمر عند الغروب"},
     .unit = "min",
     .measure = umm_al_qura,
     .classes = two_classes(rule_missed, rule_met, false),
     .place = JudgedPlace{39.8262, 21.4225}},
    {.key = "user",
     .name = {"Lag, altitude, elongation, age", "المكث و الارتفاع و الاستطالة و العمر"},
     .source = "the user's own limits",
     .moment = ObservationMoment::sun_event,
     .frame = altitude_topocentric,
     .measure_name = margin,
     .unit = "",
     .measure = user_limits,
     .classes =
         two_classes({"Below a limit", "دون أحد الحدود"}, {"Every limit is reached", "بلغ كل الحدود"}, true)},
};

constexpr bool is_text(const char* text) {
    return text != nullptr && *text != '\0';
}

constexpr bool is_in_every_language(const TwinText& text) {
    return std::all_of(std::begin(languages), std::end(languages),
                       [&text](Language language) { return is_text(text.in(language)); });
}

constexpr bool has_whole_texts(const CataloguedCriterion& row) {
    const auto bands = row.bands();
    return is_text(row.key) && is_text(row.source) && row.unit != nullptr && is_in_every_language(row.name) &&
           is_in_every_language(row.frame) && is_in_every_language(row.measure_name) && bands.size() > 1 &&
           std::all_of(bands.begin(), bands.end(),
                       [](const CriterionClass& band) { return is_in_every_language(band.text); });
}

/// The lowest class without a border, each other above the one before it.
constexpr bool has_borders_in_order(const CataloguedCriterion& row) {
    const auto bands = row.bands();
    for (std::size_t i = 1; i < bands.size(); ++i)
        if (bands[i].border <= bands[i - 1].border)
            return false;
    return bands.front().border == -std::numeric_limits<double>::infinity();
}

constexpr bool has_class_of_eye(const CataloguedCriterion& row) {
    return row.by_eye > 0 && row.by_eye < row.bands().size();
}

constexpr bool has_measure(const CataloguedCriterion& row) {
    return row.moment != ObservationMoment{} && row.measure != nullptr;
}

static_assert(std::all_of(std::begin(table), std::end(table), has_whole_texts), "a criterion lacks a text");
static_assert(std::all_of(std::begin(table), std::end(table), has_borders_in_order),
              "a criterion's classes are not in order");
static_assert(std::all_of(std::begin(table), std::end(table), has_class_of_eye),
              "no class of a criterion is seen by eye, or all are");
static_assert(std::all_of(std::begin(table), std::end(table), has_measure),
              "a criterion has no moment or no measure");

} // namespace

std::span<const CataloguedCriterion> catalogued_criteria() {
    return table;
}

const CataloguedCriterion* catalogued_criterion(std::string_view key) {
    const auto* const found = std::find_if(std::begin(table), std::end(table),
                                           [key](const CataloguedCriterion& row) { return row.key == key; });
    return found == std::end(table) ? nullptr : found;
}

double istanbul_margin(const Evening& evening, const CrescentQuantities& frame_of_altitude) {
    const double elongation = elongation_since(evening, evening.at_sun_event.geocentric.elongation);
    return margin_of(frame_of_altitude.moon_altitude, 5, elongation, 8);
}

std::optional<double> criterion_value(const CataloguedCriterion& criterion, const CrescentEvening& evening,
                                      const CriteriaSettings& settings) {
    if (evening.kind == CrescentKind::old_crescent && !criterion.of_mornings)
        return std::nullopt;
    return criterion.measure(evening, settings);
}

std::optional<CrescentEvening> judged_evening(Ephemeris& ephemeris, const CataloguedCriterion& criterion,
                                              const Observer& observer, CrescentKind kind, double day,
                                              double conjunction) {
    const Observer judge =
        criterion.place ? observer_at(criterion.place->longitude, criterion.place->latitude, 0) : observer;
    return crescent_evening(ephemeris, judge, kind, day, conjunction);
}

std::size_t class_of_value(const CataloguedCriterion& criterion, double value) {
    const auto bands = criterion.bands();
    std::size_t i = bands.size() - 1;
    while (i > 0 && !(value > bands[i].border || (bands[i].holds_border && value == bands[i].border)))
        --i;
    return i;
}

} // namespace halvane
