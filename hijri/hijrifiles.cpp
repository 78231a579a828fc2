// SPDX-License-Identifier: MIT
#include "hijri/hijrifiles.h"

#include "base/numberformat.h"
#include "hijri/hijritexts.h"

#include <stdexcept>

namespace halvane {
namespace {

template <class Value>
std::string text_in_format(const Value& value, HijriFormat format, Language language, std::int64_t stamp) {
    switch (format) {
    case HijriFormat::text:
        return table_of(value, language);
    case HijriFormat::csv:
        return csv_of(value, language);
    case HijriFormat::json:
        return json_of(value, language);
    case HijriFormat::ics:
        return ics_of(value, language, stamp);
    case HijriFormat::pdf:
        break;
    }
    throw std::logic_error("the painter makes the PDF");
}

} // namespace

const char* name_of(HijriFormat format) {
    switch (format) {
    case HijriFormat::text:
        return "text";
    case HijriFormat::csv:
        return "csv";
    case HijriFormat::json:
        return "json";
    case HijriFormat::ics:
        return "ics";
    case HijriFormat::pdf:
        return "pdf";
    }
    throw std::logic_error("a format of Hijri months without a name");
}

const char* ending_of(HijriFormat format) {
    return format == HijriFormat::text ? "txt" : name_of(format);
}

std::span<const HijriFormat> hijri_formats() {
    static constexpr HijriFormat formats[] = {HijriFormat::text, HijriFormat::csv, HijriFormat::json,
                                              HijriFormat::ics, HijriFormat::pdf};
    return formats;
}

std::string text_of_years(const HijriYears& years, HijriFormat format, Language language,
                          std::int64_t stamp) {
    return text_in_format(years, format, language, stamp);
}

std::string text_of_month(const MonthSheet& sheet, HijriFormat format, Language language,
                          std::int64_t stamp) {
    return text_in_format(sheet, format, language, stamp);
}

std::string file_name_of(const HijriYears& years) {
    std::string name = "hijri-" + std::to_string(years.first);
    if (years.last != years.first)
        name += '-' + std::to_string(years.last);
    for (const std::string& key : distinct_keys(years.rules))
        name += '-' + key;
    return name;
}

std::string file_name_of(const MonthSheet& sheet) {
    const HijriMonthNumber month = sheet.month.number;
    return "hijri-" + std::to_string(month.year()) + '-' + format_number(month.month(), "00") + '-' +
           settings_key(sheet.settings);
}

} // namespace halvane
