// SPDX-License-Identifier: MIT
#include "prayer/highlatitude.h"

#include "base/failure.h"
#include "base/numberformat.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <system_error>

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

int two_digit_number(std::string_view text, const std::string& whole) {
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        throw RunTimeFailure(TwinWords{
            "The alternative method for high latitudes needs a clock time, but a day of this "
            "location has \"" +
                whole + "\".",
            "تحتاج الحسابات البديلة لخطوط العرض العليا إلى وقت، و في هذا الموقع يوم فيه \"" + whole + "\"."});
    return value;
}

int minutes_of(const std::string& clock) {
    const std::string_view text(clock);
    if (text.size() != 5 || text[2] != ':')
        return two_digit_number({}, clock);
    return two_digit_number(text.substr(0, 2), clock) * minutes_per_hour +
           two_digit_number(text.substr(3), clock);
}

std::string moved(const std::string& clock, double minutes) {
    const int sum = minutes_of(clock) + static_cast<int>(std::nearbyint(minutes));
    const int wrapped = ((sum % minutes_per_day) + minutes_per_day) % minutes_per_day;
    const int hours = wrapped / minutes_per_hour;
    return format_number(hours, "00") + ":" + format_number(wrapped % minutes_per_hour, "00");
}

/// Whole minutes from one clock text to another of the same date.
int difference(const std::string& from, const std::string& to) {
    return minutes_of(to) - minutes_of(from);
}

/// How far a column may move from one day to the next: wide until its first correction.
constexpr int wide_limit = 10;
constexpr int narrow_limit = 5;
constexpr int correction_step = 5;

bool is_jump(int step, int limit) {
    return std::abs(step) > limit && std::abs(step) < minutes_per_day - limit;
}

/// Fajer or Isha over the year.
struct YearColumn {
    std::string PrayerTimes::*time;
    std::string SmoothedDay::*mark;
    double towards_night; ///< minutes by which a corrected day differs from its neighbour
    int limit = wide_limit;
};

class Year {
public:
    explicit Year(const std::vector<AlternativeDay>& raw) : raw_(raw) {
        days_.reserve(raw.size());
        for (const AlternativeDay& day : raw)
            days_.push_back({day, day.mark, day.mark});
    }

    std::vector<SmoothedDay> smoothed() {
        run_forward();
        run_backward();
        for (std::size_t k = 0; k < days_.size(); ++k)
            if (days_[k].day.date.starts_with("22/06"))
                join(k);
        for (SmoothedDay& smoothed_day : days_) {
            if (!smoothed_day.day.summer)
                continue;
            for (std::string* text : {&smoothed_day.day.times.fajer, &smoothed_day.day.times.isha})
                *text = moved(*text, minutes_per_hour);
        }
        return std::move(days_);
    }

private:
    std::string& value(const YearColumn& column, std::size_t k) { return days_[k].day.times.*column.time; }
    const std::string& raw(const YearColumn& column, std::size_t k) const {
        return raw_[k].times.*column.time;
    }

    /// Measures the step between the settled neighbour and the raw day.
    bool jumps(YearColumn& column, std::size_t k, std::size_t neighbour, bool forward) {
        const int step = forward ? difference(value(column, neighbour), raw(column, k))
                                 : difference(raw(column, k), value(column, neighbour));
        return is_jump(step, column.limit);
    }

    void correct(YearColumn& column, std::size_t k, std::size_t neighbour) {
        value(column, k) = moved(value(column, neighbour), column.towards_night);
        days_[k].*column.mark = "#*";
        column.limit = narrow_limit;
    }

    void run_forward() {
        const std::size_t last = days_.size() - days_from_22_june - 1;
        for (std::size_t k = 1; k < last; ++k)
            for (YearColumn* column : {&isha_, &fajer_})
                if (jumps(*column, k, k - 1, true))
                    correct(*column, k, k - 1);
    }

    /// Isha passing midnight looks like a jump once.
    bool passes_midnight(std::size_t k) const {
        const std::string_view hour = days_[k].day.summer ? "23" : "00";
        const std::string_view hour_before = days_[k].day.summer ? "22" : "23";
        return isha_.limit == wide_limit && raw_[k].times.isha.starts_with(hour) &&
               days_[k + 1].day.times.isha.starts_with(hour_before) &&
               std::abs(difference(raw_[k].times.isha, raw_[k - 1].times.isha)) <= wide_limit;
    }

    void run_backward() {
        isha_.limit = fajer_.limit = wide_limit;
        bool skipped = false;
        const std::size_t first = days_.size() - days_from_22_june - 1;
        for (std::size_t k = days_.size() - 2; k >= first; --k) {
            const bool guarded = passes_midnight(k);
            if (jumps(isha_, k, k + 1, false)) {
                if (guarded && !skipped)
                    skipped = true;
                else
                    correct(isha_, k, k + 1);
            }
            if (jumps(fajer_, k, k + 1, false))
                correct(fajer_, k, k + 1);
        }
    }

    /// Spreads what is left between row `k` and the one before over two rows of the side that is to give way.
    void move_two(const YearColumn& column, std::size_t outer, std::size_t inner, std::size_t settled,
                  double minutes, const char* mark) {
        value(column, outer) = moved(value(column, settled), minutes);
        value(column, inner) = moved(value(column, outer), minutes);
        days_[outer].*column.mark = mark;
        days_[inner].*column.mark = mark;
    }

    int step_into(const YearColumn& column, std::size_t k) {
        return difference(value(column, k), value(column, k - 1));
    }

    void join(std::size_t k) {
        const auto isha_counts = [this](int g) { return std::abs(g) < minutes_per_day - fajer_.limit; };
        int g = step_into(fajer_, k);
        if (g < -narrow_limit)
            move_two(fajer_, k + 1, k, k + 2, (g + 10) / 2.0, "#*F");
        g = step_into(isha_, k);
        if (g < -narrow_limit && isha_counts(g))
            move_two(isha_, k - 2, k - 1, k - 3, -(g + 10) / 2.0, "#*I");
        g = step_into(fajer_, k);
        if (g > narrow_limit)
            move_two(fajer_, k - 2, k - 1, k - 3, -(g - 10) / 2.0, "#*F");
        g = step_into(isha_, k);
        if (g > narrow_limit && isha_counts(g))
            move_two(isha_, k + 1, k, k + 2, (g - 10) / 2.0, "#*I");
    }

    static constexpr std::size_t days_from_22_june = 192; ///< days of the year after 22 June
    const std::vector<AlternativeDay>& raw_;
    std::vector<SmoothedDay> days_;
    YearColumn isha_{&PrayerTimes::isha, &SmoothedDay::isha_mark, -correction_step};
    YearColumn fajer_{&PrayerTimes::fajer, &SmoothedDay::fajer_mark, correction_step};
};

} // namespace

NightTwilights night_fraction_twilights(double latitude, double shuroq, double maghreb, float add_maghreb) {
    const double m = maghreb >= 0 && maghreb < 1 ? maghreb + 24 : maghreb;
    const double night = 24 - ((m - add_maghreb / 60.0) - shuroq);
    const double part = fraction_of_night(latitude) * night;
    return {shuroq - part, part + m};
}

AlternativeDay alternative_day(const PrayerDay& day, const std::string& date) {
    AlternativeDay stored{day.summer_hours == 1, date, day.times, day.by_night_fraction ? "#" : ""};
    std::string& fajer = stored.times.fajer;
    std::string& isha = stored.times.isha;
    if (isha == "24:00" || isha == "----")
        isha = "00:00";
    if (fajer == "----")
        fajer = "00:00";
    if (stored.summer) {
        fajer = moved(fajer, -minutes_per_hour);
        isha = moved(isha, -minutes_per_hour);
    }
    return stored;
}

std::vector<SmoothedDay> smoothed_year(const std::vector<AlternativeDay>& raw) {
    return Year(raw).smoothed();
}

} // namespace halvane
