#include "crescent/maptexts.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/civildate.h"
#include "calendar/moddateconv.h"
#include "calendar/modday.h"

namespace halvane {
namespace {

const char* in(char letter, const char* english, const char* arabic) {
    return letter == 'A' ? arabic : english;
}

} // namespace

const char* criterion_name(Criterion criterion, char letter) {
    switch (criterion) {
    case Criterion::yallop:
        return in(letter, "Yallop", "يالوب");
    case Criterion::saao:
        return in(letter, "SAAO", "جنوب أفريقيا");
    case Criterion::vesk:
        break;
    }
    return "Vesk";
}

std::vector<LegendLine> map_legend(Criterion criterion) {
    using enum VisibilityClass;
    const LegendLine red{impossible, "Red: Impossible", "أحمر: مستحيل"};
    const LegendLine none{not_possible, "No Color: Not Possible", "غير ملون: رؤية الهلال غير ممكنة"};
    const LegendLine cyan{unknown, "Cyan: Unknown", "سماوي: غير معروف"};
    const LegendLine blue{optical_aid, "Blue: Need Optical Aid", "كحلي: يحتاج مرقب/تلسكوب"};
    const LegendLine green{easily_visible, "Green: Easily Visible by Naked Eye",
                           "أخضر: يرى بسهولة بالعين المجردة"};
    switch (criterion) {
    case Criterion::yallop:
        return {red,
                none,
                blue,
                {second_band, "Magenta: May Need Optical Aid", "زهري: قد يحتاج مرقب/تلسكوب"},
                {third_band, "Yellow: Naked Eye at Perfect Conditions",
                 "أصفر: يرى بالعين المجردة في ظروف مثالية"},
                green,
                cyan};
    case Criterion::saao:
        return {red,
                none,
                {optical_aid, "Blue: Crescent Visibility is Improbable", "كحلي: رؤية الهلال غير محتملة"},
                {easily_visible, "Green: Crescent Visibility is Possible", "أخضر: رؤية الهلال ممكنة"},
                cyan};
    case Criterion::vesk:
        break;
    }
    return {red,   none,
            blue,  {second_band, "Magenta: Could be Seen by Naked Eye", "زهري: قد يرى بالعين المجردة"},
            green, cyan};
}

std::string map_hijri_text(const MapRun& run, char letter) {
    constexpr double days_shifted_new = 10;
    constexpr double days_shifted_old = -5;
    const DateNumbers date = civil_date(run.conjunction.days[4]);
    const double shift = run.kind == CrescentKind::new_crescent ? days_shifted_new : days_shifted_old;
    double day = 0;
    double year = 0;
    std::string month;
    moddateconv(date.day + shift, date.month, date.year, "GtoH", letter, day, month, year);
    return month + " " + plain_number(year);
}

std::string map_date_text(double day, char letter) {
    const DateNumbers date = civil_date(day);
    return plain_number(date.day) + " " + modmonth(static_cast<int>(date.month), letter) + " " +
           plain_number(date.year);
}

std::vector<std::string> map_information(const MapRun& run, char letter) {
    const bool is_new = run.kind == CrescentKind::new_crescent;
    const std::string name = criterion_name(run.criterion, letter);
    return {is_new ? in(letter, "New Crescent Visibility", "رؤية هلال أول الشهر")
                   : in(letter, "Old Crescent Visibility", "رؤية هلال آخر الشهر"),
            letter == 'A' ? " معيار " + name : name + " Criterion", map_hijri_text(run, letter),
            modday(run.day + 0.5, letter == 'A' ? 1 : 0), map_date_text(run.day, letter)};
}

ClassColour class_colour(VisibilityClass visibility) {
    switch (visibility) {
    case VisibilityClass::unknown:
        return {0, 205, 205};
    case VisibilityClass::impossible:
        return {238, 0, 0};
    case VisibilityClass::optical_aid:
        return {0, 0, 255};
    case VisibilityClass::second_band:
        return {255, 0, 255};
    case VisibilityClass::third_band:
        return {255, 193, 37};
    case VisibilityClass::easily_visible:
        return {0, 139, 0};
    case VisibilityClass::not_possible:
        break;
    }
    return {255, 255, 255};
}

} // namespace halvane
