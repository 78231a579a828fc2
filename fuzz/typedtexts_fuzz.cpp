// SPDX-License-Identifier: MIT
#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/hijriconversion.h"
#include "calendar/yearlimits.h"
#include "desktop/daterules.h"
#include "desktop/preferencesrules.h"
#include "fuzz/readinput.h"
#include "fuzz/require.h"
#include "stored/alert.h"
#include "stored/loc.h"
#include "stored/loclist.h"
#include "stored/phase.h"
#include "stored/visib.h"
#include "stored/windows1256.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace halvane;
using fuzz::require;

/// The texts of a panel's boxes, one after the other as the lines of the input; empty ones after its end.
class Boxes {
public:
    explicit Boxes(std::string text) : text_(std::move(text)) {}
    std::string next() {
        const std::size_t end = std::min(text_.find('\n'), text_.size());
        std::string box = text_.substr(0, end);
        text_.erase(0, std::min(end + 1, text_.size()));
        return box;
    }

private:
    std::string text_;
};

/// What a stored text keeps of a typed one.
std::string stored_text(std::string text) {
    std::replace(text.begin(), text.end(), '"', '\'');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return text;
}

template <class Record>
void check_record(const Record& record, const Record& (*read)(), void (*write)(const Record&)) {
    write(record);
    const Record stored = read();
    write(stored);
    require(read() == stored);
}

void check_preferences(Boxes boxes) {
    PreferencesRules form{Preferences()};
    PreferencesPanel panel = form.opened();
    panel.authority = boxes.next();
    for (std::string* box :
         {&panel.angles.fajer, &panel.angles.isha, &panel.from_month, &panel.from_day, &panel.to_month,
          &panel.to_day, &panel.subtract_fajer, &panel.add_dhohur, &panel.add_asr, &panel.add_maghreb})
        *box = boxes.next();
    const RefusedAngle refused = form.take(panel);
    require((refused != RefusedAngle::none) ==
            (numeric_prefix(panel.angles.fajer) < 0 || numeric_prefix(panel.angles.isha) < 0));
    check_record(form.record(), read_pref, write_pref);
}

void check_date(Boxes boxes) {
    DatePanel panel;
    panel.choice = DateChoice::period;
    for (DateBoxes* date : {&panel.from, &panel.to, &panel.one})
        for (std::string* box : {&date->year, &date->month, &date->day})
            *box = boxes.next();
    const CalculationDate record = calculation_date_of(panel);
    ends_before_start(record);
    check_record(record, read_date, write_date);
}

void check_location(Boxes boxes) {
    Location location;
    location.name = boxes.next();
    for (double* number : {&location.longitude_degrees, &location.longitude_minutes,
                           &location.longitude_seconds, &location.latitude_degrees,
                           &location.latitude_minutes, &location.latitude_seconds, &location.elevation,
                           &location.zone, &location.city_offset, &location.pressure, &location.temperature})
        *number = numeric_prefix(boxes.next());
    check_record(location, read_loc, write_loc);
    if (is_utf8(location.name))
        require(read_loc().name == stored_text(location.name));
}

void check_other_records(Boxes boxes) {
    PhaseSettings phase;
    phase.year = boxes.next();
    check_record(phase, read_phase, write_phase);
    CrescentSettings crescent;
    for (std::string* box : {&crescent.day, &crescent.month, &crescent.year, &crescent.user_hour,
                             &crescent.user_minute, &crescent.hijri_year})
        *box = boxes.next();
    check_record(crescent, read_visib, write_visib);
    AlertSettings alert;
    alert.lead = numeric_prefix(boxes.next());
    check_record(alert, read_alert, write_alert);
}

/// A date that is converted converts back, where its day exists.
void check_conversion(Boxes boxes) {
    const double year = numeric_prefix(boxes.next());
    const double month = 1 + std::fmod(std::fabs(std::trunc(numeric_prefix(boxes.next()))), 12);
    const double day = 1 + std::fmod(std::fabs(std::trunc(numeric_prefix(boxes.next()))), 28);
    const ConversionAnswer hijri =
        convert_date(ConversionDirection::civil_to_hijri, year, month, day, Language::english);
    if (hijri.refused != RefusedDate::none || year != std::trunc(year))
        return;
    const ConversionAnswer back = convert_date(ConversionDirection::hijri_to_civil, hijri.year, hijri.month,
                                               hijri.day, Language::arabic);
    if (hijri.year > converted_hijri_years.last) {
        require(back.refused == RefusedDate::year_too_large);
        return;
    }
    require(back.refused == RefusedDate::none && back.year == year && back.month == month && back.day == day);
}

} // namespace

/// Whatever is typed into the boxes of the panels that store: what is stored reads back as it stands, and
/// what cannot be taken is a failure with words.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    for (void (*check)(Boxes) :
         {check_preferences, check_date, check_location, check_other_records, check_conversion})
        fuzz::in_folder([&] { check(Boxes(text)); });
    return 0;
}
