// SPDX-License-Identifier: MIT
#include "finemap/finemaprules.h"

#include "base/numberformat.h"
#include "calendar/civildate.h"
#include "calendar/yearlimits.h"
#include "crescent/measurewords.h"
#include "crescent/shortanswer.h"
#include "events/lowriseset.h"
#include "events/phase.h"
#include "finemap/mapstyle.h"

#include <charconv>
#include <cmath>

namespace halvane {
namespace {

TwinWords value_words(const CataloguedCriterion& criterion, double value) {
    return plain_words(" · ") + TwinWords(criterion.measure_name) + plain_words(" = ") +
           measure_words(value, criterion.unit);
}

} // namespace

std::vector<double> days_of_crescent(double conjunction, CrescentKind kind) {
    constexpr int evenings = 3;
    const double date = start_of_date(conjunction);
    std::vector<double> days;
    for (int day = 0; day < evenings; ++day)
        days.push_back(kind == CrescentKind::new_crescent ? date + day : date - day);
    return days;
}

std::optional<double> conjunction_after(Ephemeris& ephemeris, double conjunction, int months) {
    const double near = conjunction + months * synodic_month;
    if (!theory_years.holds(civil_date(near - synodic_month).year) ||
        !theory_years.holds(civil_date(near + synodic_month).year))
        return std::nullopt;
    return geocentric_conjunction(ephemeris, near);
}

std::vector<const CataloguedCriterion*> mapped_criteria(CrescentKind kind) {
    std::vector<const CataloguedCriterion*> mapped;
    for (const CataloguedCriterion& criterion : catalogued_criteria()) {
        FineMapSettings settings;
        settings.kind = kind;
        settings.criterion = &criterion;
        if (!refused_map(settings))
            mapped.push_back(&criterion);
    }
    return mapped;
}

std::string place_text(const MapPosition& place) {
    const double longitude = observer_longitude(place.longitude);
    return format_number(std::fabs(place.latitude), "0.00") + (place.latitude < 0 ? "° S  " : "° N  ") +
           format_number(std::fabs(longitude), "0.00") + (longitude < 0 ? "° W" : "° E");
}

TwinWords answer_words(const FineMapSettings& settings, const PlaceAnswer& answer) {
    TwinWords words = words_of(*settings.criterion, answer.map_class, settings.kind);
    if (!answer.evening)
        return words;
    const CrescentEvening& evening = *answer.evening;
    const CrescentQuantities& q = evening.at_sun_event.topocentric;
    words = words + TwinText{"\nlag ", "\nالمكث "} + number_words(evening.lag(), "0.0") +
            TwinText{" min, age ", " دقيقة، العمر "} + number_words(evening.age(evening.sun_event), "0.0") +
            TwinText{" h, altitude ", " ساعة، الارتفاع "} + number_words(q.moon_altitude, "0.0") +
            TwinText{"°, elongation ", "°، الاستطالة "} + number_words(q.elongation, "0.0") +
            TwinText{"°", "°"};
    return answer.value ? words + value_words(*settings.criterion, *answer.value) : words;
}

TwinWords numbers_of_place(Ephemeris& ephemeris, const FineMapSettings& settings, const MapPosition& place) {
    const Observer observer = observer_at(observer_longitude(place.longitude), place.latitude, 0);
    const ShortAnswer answer =
        short_answer(ephemeris, observer, settings.kind, settings.day, settings.conjunction, settings.limits);
    const std::string name = place_text(place) + " (UT)";
    // The marks keep its order beside Arabic words.
    return {words_of(answer, 0, name).english, words_of(answer, 0, "\u2066" + name + "\u2069").arabic};
}

Location location_at(const MapPosition& place, const Location& stored) {
    constexpr double seconds_of_degree = 3600;
    Location location = stored;
    location.name = place_text(place);
    const auto split = [](double angle, double& degrees, double& minutes, double& seconds) {
        const double whole = std::round(std::fabs(angle) * seconds_of_degree);
        degrees = std::floor(whole / seconds_of_degree);
        minutes = std::floor(std::fmod(whole, seconds_of_degree) / 60);
        seconds = std::fmod(whole, 60);
    };
    const double longitude = observer_longitude(place.longitude);
    split(longitude, location.longitude_degrees, location.longitude_minutes, location.longitude_seconds);
    split(place.latitude, location.latitude_degrees, location.latitude_minutes, location.latitude_seconds);
    location.east = longitude >= 0;
    location.west = !location.east;
    location.north = place.latitude >= 0;
    location.south = !location.north;
    location.elevation = 0;
    location.zone = zone_of_longitude(longitude);
    location.city_offset = 0;
    return location;
}

TypedLimit typed_limit(const std::string& text) {
    constexpr double far_beyond = 1000;
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    const std::size_t last = text.find_last_not_of(' ');
    double value = 0;
    const auto [end, error] = std::from_chars(text.data() + first, text.data() + last + 1, value);
    if (error != std::errc() || end != text.data() + last + 1 || !(std::fabs(value) <= far_beyond))
        return {std::nullopt, true};
    return {value, false};
}

} // namespace halvane
