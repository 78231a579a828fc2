// SPDX-License-Identifier: MIT
#include "watch/watchrules.h"

#include "calendar/civildate.h"
#include "calendar/modjul.h"
#include "report/valuetext.h"
#include "timetable/placewords.h"
#include "timetable/span.h"
#include "timetable/timetablefiles.h"
#include "timetable/timetableplaces.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace halvane {
namespace {

constexpr std::array<WatchFormat, 3> formats{WatchFormat::pdf, WatchFormat::png, WatchFormat::csv};

/// In     ending  in small letters; the name may have it in capitals
bool has_ending(std::string_view name, std::string_view ending) {
    const auto small = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return name.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), name.end() - static_cast<std::ptrdiff_t>(ending.size()),
                      [&small](char wanted, char found) { return wanted == small(found); });
}

} // namespace

WatchAnswer settings_of(const WatchChoice& choice) {
    if (std::floor(choice.date.year) != choice.date.year)
        return {std::nullopt, WatchPart::date, TwinText{"A year is a whole number.", "السنة رقم صحيح."}};
    const SpanAnswer date = dates_span(choice.date, choice.date);
    if (date.refused)
        return {std::nullopt, WatchPart::date, sentence(*date.refused)};
    const std::optional<TimetablePlace> place = chosen_place(choice.place);
    if (!place)
        return {std::nullopt, WatchPart::place, unknown_place(*choice.place)};
    return {WatchSettings{*place, choice.kind, date.span.first}, WatchPart::date, {}};
}

DateNumbers date_after(const DateNumbers& date, int days) {
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    return civil_date(jd + days);
}

const char* name_of(WatchFormat format) {
    constexpr std::array<const char*, 3> names{"pdf", "png", "csv"};
    return names.at(static_cast<std::size_t>(format));
}

std::span<const WatchFormat> watch_formats() {
    return formats;
}

std::optional<WatchFormat> watch_format_of(std::string_view file_name) {
    for (const WatchFormat format : formats)
        if (has_ending(file_name, std::string(".") + name_of(format)))
            return format;
    return std::nullopt;
}

std::string watch_file_name(const WatchSettings& settings, WatchFormat format) {
    const std::string date = iso_date(civil_date(settings.day));
    return file_name_of("watch-" + settings.place.location.name + "-" + date) + "." + name_of(format);
}

} // namespace halvane
