// SPDX-License-Identifier: MIT
#include "crescent/visibilitymap.h"

#include "base/failure.h"
#include "calendar/civildate.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "crescent/circumstances.h"
#include "crescent/quantities.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/modgeneral.h"
#include "events/lowriseset.h"
#include "events/phase.h"

#include <algorithm>
#include <cmath>

namespace halvane {

MapConjunction map_conjunction(Ephemeris& ephemeris, double start) {
    MapConjunction conjunction;
    const double dynamical = refined_phase(ephemeris, Phase::new_moon, start);
    moddeltat(dynamical, conjunction.delta_t);
    conjunction.universal = dynamical - conjunction.delta_t;
    const DateNumbers date = civil_date(conjunction.universal);
    double day = 0;
    modjul(date.year, date.month, date.day, 0, day);
    conjunction.days = {day, day + 1, day + 2, day - 1, day - 2};
    return conjunction;
}

double map_day(const MapConjunction& conjunction, CrescentKind kind, int choice) {
    const double day = conjunction.days[0];
    return kind == CrescentKind::new_crescent ? day + choice : day - choice;
}

MapPixel map_pixel(double longitude, double latitude) {
    return {longitude * 2.0733333 + 374, 206 - latitude * 2.06666667};
}

MapPlace map_place(double x, double y) {
    return {(x - 374) * 0.48387097, -(y - 206) * 0.48231511};
}

PointConjunction point_conjunction(Ephemeris& ephemeris, const Observer& observer, double start,
                                   double delta_t) {
    // Where the turning Earth takes half of the Moon's motion away, each step is half the one before; what is
    // left of such a series is added in one step.
    constexpr int patience = 8;
    SearchGuard guard({"a conjunction", "وقت الاقتران"});
    double t = start;
    double step_before = 0;
    for (int round = 1;; ++round) {
        const Instant instant = Instant::of_dynamical(t);
        const auto [sun, moon] = fast_longitudes(ephemeris, instant, observer);
        const double d = elongation_from_phase(Phase::new_moon, moon, sun);
        const double next = guard.check(t - d * days_per_degree);
        const double step = next - t;
        if (std::fabs(step) <= phase_tolerance)
            return {next - delta_t, round};
        t = round > patience ? t + step / (1 - step / step_before) : next;
        step_before = step;
    }
}

namespace {

/// The events of a point's evening or morning, clock hours of its zone.
struct PointEvents {
    bool missing = true;
    double sun = 0;
    double moon = 0;
};

PointEvents point_events(Ephemeris& ephemeris, const MapRun& run, const Observer& observer) {
    const LowEvent event = run.kind == CrescentKind::new_crescent ? LowEvent::set : LowEvent::rise;
    const Instant date = Instant::of_ut1(run.day);
    const TaggedTime sun_event = low_event(ephemeris, Body::sun, date, observer, event);
    const TaggedTime moon_event = low_event(ephemeris, Body::moon, date, observer, event);
    const double* sun = hours_of(sun_event);
    const double* moon = hours_of(moon_event);
    if (sun == nullptr || moon == nullptr)
        return {};
    return {false, *sun, *moon};
}

double observation_hours(const MapRun& run, const PointEvents& events, double lag) {
    const bool is_new = run.kind == CrescentKind::new_crescent;
    if (lag <= 0)
        return is_new ? events.sun : events.moon;
    switch (row_of(run.criterion).moment) {
    case ObservationMoment::sun_event:
        return events.sun;
    case ObservationMoment::best_time:
        break;
    }
    return best_time(is_new, events.sun, lag);
}

CrescentQuantities fast_quantities(Ephemeris& ephemeris, const Observer& observer, double universal) {
    const Instant instant = Instant::of_ut1(universal);
    return topocentric_quantities(ephemeris, instant, observer,
                                  topocentric_moon_fast(ephemeris, instant, observer),
                                  topocentric_sun_fast(ephemeris, instant, observer));
}

VisibilityClass class_for(Ephemeris& ephemeris, const MapRun& run, const Observer& observer,
                          double& conjunction) {
    const double zone = zone_of_longitude(observer.longitude);
    conjunction = point_conjunction(ephemeris, observer, conjunction, run.conjunction.delta_t).universal;
    const PointEvents events = point_events(ephemeris, run, observer);
    if (events.missing)
        return VisibilityClass::unknown;

    const bool is_new = run.kind == CrescentKind::new_crescent;
    const double lag = is_new ? events.moon - events.sun : events.sun - events.moon;
    const auto universal_of = [&run, zone](double hours) { return run.day + (hours - zone) / 24; };
    const double universal = universal_of(observation_hours(run, events, lag));
    const double age = is_new ? universal - conjunction : conjunction - universal;
    constexpr double standing_high = 3;
    if (lag < 0 &&
        fast_quantities(ephemeris, observer, universal_of(events.sun)).relative_altitude() > standing_high)
        return VisibilityClass::unknown;
    if (age <= 0 || lag <= 0)
        return VisibilityClass::impossible;
    return row_of(run.criterion).measure(fast_quantities(ephemeris, observer, universal));
}

} // namespace

VisibilityClass evaluate_point(Ephemeris& ephemeris, const MapRun& run, double longitude, double latitude,
                               double& conjunction) {
    return class_for(ephemeris, run, observer_at(longitude, latitude, 0), conjunction);
}

namespace {

constexpr int block_step = MapGrid::block_step;
constexpr int block_span = MapGrid::block_span;
constexpr int grid_step = MapGrid::step;

struct GridPlace {
    int longitude, latitude;
    bool operator==(const GridPlace&) const = default;
};

using Samples = std::array<GridPlace, 5>;

/// The corners of a block and a point of the side that the crescent's curve enters from.
Samples sample_places(CrescentKind kind, int longitude, int latitude) {
    const int side = kind == CrescentKind::new_crescent ? longitude : longitude + block_span;
    return {{{longitude, latitude},
             {longitude + block_span, latitude},
             {longitude, latitude - block_span},
             {longitude + block_span, latitude - block_span},
             {side, latitude - block_span / 2}}};
}

/// The observers of the grid, made once for each latitude.
class GridObservers {
public:
    GridObservers() {
        for (std::size_t i = 0; i < observers_.size(); ++i)
            observers_[i] = observer_at(0, MapGrid::north - grid_step * static_cast<int>(i), 0);
    }
    Observer at(const GridPlace& place) const {
        Observer observer =
            observers_[static_cast<std::size_t>((MapGrid::north - place.latitude) / grid_step)];
        observer.longitude = place.longitude;
        return observer;
    }

private:
    std::array<Observer, (MapGrid::north - MapGrid::south) / grid_step + 1> observers_;
};

class MapDrawing {
public:
    MapDrawing(const TheoryPointer& theory, const MapRun& run, MapReceiver& receiver)
        : ephemeris_(theory, SeriesUse::interpolated), run_(run), receiver_(receiver),
          conjunction_(run.conjunction.universal) {}

    bool draw() {
        for (int longitude = MapGrid::west; longitude <= MapGrid::east; longitude += block_step)
            for (int latitude = MapGrid::north; latitude >= MapGrid::south; latitude -= block_step) {
                draw_block(longitude, latitude);
                if (!receiver_.go_on())
                    return false;
            }
        return true;
    }

private:
    VisibilityClass evaluate(const GridPlace& place) {
        const VisibilityClass visibility = class_for(ephemeris_, run_, observers_.at(place), conjunction_);
        receiver_.point({place.longitude, place.latitude, visibility, true});
        return visibility;
    }

    void draw_block(int longitude, int latitude) {
        const Samples samples = sample_places(run_.kind, longitude, latitude);
        const VisibilityClass first = evaluate(samples[0]);
        bool uniform = true;
        for (std::size_t i = 1; i < samples.size(); ++i)
            uniform = evaluate(samples[i]) == first && uniform;
        if (uniform)
            fill_block(longitude, latitude, first);
        else
            evaluate_block(longitude, latitude, samples);
    }

    void fill_block(int longitude, int latitude, VisibilityClass visibility) {
        if (visibility == VisibilityClass::not_possible)
            return; // the map shows through
        for (int x = longitude; x <= longitude + block_span; x += grid_step)
            for (int y = latitude - block_span; y <= latitude; y += grid_step)
                receiver_.point({x, y, visibility, false});
    }

    void evaluate_block(int longitude, int latitude, const Samples& done) {
        for (int x = longitude; x <= longitude + block_span; x += grid_step)
            for (int y = latitude - block_span; y <= latitude; y += grid_step)
                if (std::find(done.begin(), done.end(), GridPlace{x, y}) == done.end())
                    evaluate({x, y});
    }

    const GridObservers observers_;
    Ephemeris ephemeris_;
    const MapRun& run_;
    MapReceiver& receiver_;
    double conjunction_;
};

} // namespace

int MapGrid::block_west_of(int longitude) {
    return longitude - ((longitude - west) % block_step + block_step) % block_step;
}

int MapGrid::block_north_of(int latitude) {
    return latitude + ((north - latitude) % block_step + block_step) % block_step;
}

bool draw_visibility_map(const TheoryPointer& theory, const MapRun& run, MapReceiver& receiver) {
    return MapDrawing(theory, run, receiver).draw();
}

} // namespace halvane
