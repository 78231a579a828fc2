// SPDX-License-Identifier: MIT
#include "prayer/highlatitude.h"

#include "base/failure.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <string>

namespace halvane {
namespace {

struct Fraction {
    double latitude_up_to; ///< [deg]
    double of_night;
};

constexpr std::array<Fraction, 17> fractions{{{49.5, 0.190605047},
                                              {50.5, 0.185005721},
                                              {51.5, 0.182066707},
                                              {52.5, 0.181891441},
                                              {53.5, 0.181178348},
                                              {54.5, 0.182046483},
                                              {55.5, 0.182659714},
                                              {56.5, 0.182380892},
                                              {57.5, 0.18457608},
                                              {58.5, 0.185936751},
                                              {59.5, 0.18824565},
                                              {60.5, 0.190677889},
                                              {61.5, 0.193164432},
                                              {62.5, 0.194939368},
                                              {63.5, 0.198701123},
                                              {64.5, 0.201963999},
                                              {65.5, 0.205548098}}};

double fraction_of_night(double latitude) {
    for (const Fraction& row : fractions)
        if (latitude <= row.latitude_up_to)
            return row.of_night;
    return fractions.back().of_night;
}

constexpr int minutes_per_day = 1440;
constexpr int minutes_per_hour = 60;

constexpr int seconds_per_minute = 60;

RunTimeFailure no_clock_time(const std::string& word) {
    return RunTimeFailure(TwinWords{
        "The alternative method for high latitudes needs a clock time, but a day of this location has \"" +
            word + "\".",
        "تحتاج الحسابات البديلة لخطوط العرض العليا إلى وقت، و في هذا الموقع يوم فيه \"" + word + "\"."});
}

/// Whole minutes of the day; 0 without an event.
int minutes_of(const TaggedTime& time) {
    const ShownTime shown = shown_time(time, 1);
    if (const ShownClock* clock = clock_of(shown))
        return clock->seconds / seconds_per_minute;
    if (!is(time, NoEvent::none))
        throw no_clock_time(text_of(time, 1));
    return 0;
}

ShownClock clock_at(int minutes) {
    return {minutes * seconds_per_minute, false};
}

/// Minutes of the day some minutes later.
int moved(int time, double minutes) {
    const int sum = time + static_cast<int>(std::nearbyint(minutes));
    return ((sum % minutes_per_day) + minutes_per_day) % minutes_per_day;
}

/// How far a column may move from one day to the next: wide until its first correction.
constexpr int wide_limit = 10;
constexpr int narrow_limit = 5;
constexpr int correction_step = 5;

bool is_jump(int step, int limit) {
    return std::abs(step) > limit && std::abs(step) < minutes_per_day - limit;
}

struct Marks {
    TwilightMark fajer = TwilightMark::none;
    TwilightMark isha = TwilightMark::none;
};

/// Fajer or Isha over the year.
struct YearColumn {
    int AlternativeDay::*time;
    TwilightMark Marks::*mark;
    double towards_night; ///< minutes by which a corrected day differs from its neighbour
    int limit = wide_limit;
};

class Year {
public:
    explicit Year(const std::vector<AlternativeDay>& raw) : raw_(raw), days_(raw) {
        marks_.reserve(raw.size());
        for (const AlternativeDay& day : raw) {
            const TwilightMark mark =
                day.by_night_fraction ? TwilightMark::night_fraction : TwilightMark::none;
            marks_.push_back({mark, mark});
        }
    }

    std::vector<SmoothedDay> smoothed() {
        run_forward();
        run_backward();
        for (std::size_t k = 0; k < days_.size(); ++k)
            if (days_[k].date.month == 6 && days_[k].date.day == 22)
                join(k);
        std::vector<SmoothedDay> year;
        year.reserve(days_.size());
        for (std::size_t k = 0; k < days_.size(); ++k)
            year.push_back({{on_own_clock(days_[k], days_[k].fajer), marks_[k].fajer},
                            {on_own_clock(days_[k], days_[k].isha), marks_[k].isha}});
        return year;
    }

private:
    static ShownClock on_own_clock(const AlternativeDay& day, int minutes) {
        return clock_at(day.summer ? moved(minutes, minutes_per_hour) : minutes);
    }

    int& value(const YearColumn& column, std::size_t k) { return days_[k].*column.time; }
    int raw(const YearColumn& column, std::size_t k) const { return raw_[k].*column.time; }

    /// Measures the step between the settled neighbour and the raw day.
    bool jumps(const YearColumn& column, std::size_t k, std::size_t neighbour) {
        return is_jump(raw(column, k) - value(column, neighbour), column.limit);
    }

    void correct(YearColumn& column, std::size_t k, std::size_t neighbour) {
        value(column, k) = moved(value(column, neighbour), column.towards_night);
        marks_[k].*column.mark = TwilightMark::corrected;
        column.limit = narrow_limit;
    }

    void run_forward() {
        const std::size_t last = days_.size() - days_from_22_june - 1;
        for (std::size_t k = 1; k < last; ++k)
            for (YearColumn* column : {&isha_, &fajer_})
                if (jumps(*column, k, k - 1))
                    correct(*column, k, k - 1);
    }

    /// Isha passing midnight looks like a jump once.
    bool passes_midnight(std::size_t k) const {
        const int hour = days_[k].summer ? 23 : 0;
        const int hour_before = days_[k].summer ? 22 : 23;
        return isha_.limit == wide_limit && raw_[k].isha / minutes_per_hour == hour &&
               days_[k + 1].isha / minutes_per_hour == hour_before &&
               std::abs(raw_[k - 1].isha - raw_[k].isha) <= wide_limit;
    }

    void run_backward() {
        isha_.limit = fajer_.limit = wide_limit;
        bool skipped = false;
        const std::size_t first = days_.size() - days_from_22_june - 1;
        for (std::size_t k = days_.size() - 2; k >= first; --k) {
            const bool guarded = passes_midnight(k);
            if (jumps(isha_, k, k + 1)) {
                if (guarded && !skipped)
                    skipped = true;
                else
                    correct(isha_, k, k + 1);
            }
            if (jumps(fajer_, k, k + 1))
                correct(fajer_, k, k + 1);
        }
    }

    /// Spreads what is left between row `k` and the one before over two rows of the side that is to give way.
    void move_two(const YearColumn& column, std::size_t outer, std::size_t inner, std::size_t settled,
                  double minutes) {
        value(column, outer) = moved(value(column, settled), minutes);
        value(column, inner) = moved(value(column, outer), minutes);
        marks_[outer].*column.mark = TwilightMark::joined;
        marks_[inner].*column.mark = TwilightMark::joined;
    }

    int step_into(const YearColumn& column, std::size_t k) { return value(column, k - 1) - value(column, k); }

    void join(std::size_t k) {
        const auto isha_counts = [this](int g) { return std::abs(g) < minutes_per_day - fajer_.limit; };
        int g = step_into(fajer_, k);
        if (g < -narrow_limit)
            move_two(fajer_, k + 1, k, k + 2, (g + 10) / 2.0);
        g = step_into(isha_, k);
        if (g < -narrow_limit && isha_counts(g))
            move_two(isha_, k - 2, k - 1, k - 3, -(g + 10) / 2.0);
        g = step_into(fajer_, k);
        if (g > narrow_limit)
            move_two(fajer_, k - 2, k - 1, k - 3, -(g - 10) / 2.0);
        g = step_into(isha_, k);
        if (g > narrow_limit && isha_counts(g))
            move_two(isha_, k + 1, k, k + 2, (g - 10) / 2.0);
    }

    static constexpr std::size_t days_from_22_june = 192; ///< days of the year after 22 June
    const std::vector<AlternativeDay>& raw_;
    std::vector<AlternativeDay> days_;
    std::vector<Marks> marks_;
    YearColumn isha_{&AlternativeDay::isha, &Marks::isha, -correction_step};
    YearColumn fajer_{&AlternativeDay::fajer, &Marks::fajer, correction_step};
};

} // namespace

NightTwilights night_fraction_twilights(double latitude, double shuroq, double maghreb, float add_maghreb) {
    const double m = maghreb >= 0 && maghreb < 1 ? maghreb + 24 : maghreb;
    const double night = 24 - ((m - add_maghreb / 60.0) - shuroq);
    const double part = fraction_of_night(latitude) * night;
    return {shuroq - part, part + m};
}

AlternativeDay alternative_day(const PrayerDay& day, const DateNumbers& date) {
    AlternativeDay stored{day.summer_hours == 1,
                          date,
                          day.times,
                          minutes_of(day.times.fajer),
                          minutes_of(day.times.isha) % minutes_per_day,
                          day.by_night_fraction};
    if (stored.summer) {
        stored.fajer = moved(stored.fajer, -minutes_per_hour);
        stored.isha = moved(stored.isha, -minutes_per_hour);
    }
    return stored;
}

std::vector<SmoothedDay> smoothed_year(const std::vector<AlternativeDay>& raw) {
    return Year(raw).smoothed();
}

} // namespace halvane
