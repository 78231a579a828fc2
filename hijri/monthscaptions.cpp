// SPDX-License-Identifier: MIT
#include "hijri/monthscaptions.h"

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmmonths", "Hijri Months", "الأشهر الهجرية"},
    {"frayear", "Hijri year", "السنة الهجرية"},
    {"cmdyearbefore", "Year &before", "السنة ال&سابقة"},
    {"cmdyearafter", "Year &after", "السنة ال&تالية"},
    {"frarule", "Rule", "القاعدة"},
    {"fraplace", "Place", "الموقع"},
    {"optlisted", "A place of the l&ist:", "موقع من ال&قائمة:"},
    {"fracriterion", "Crescent", "الهلال"},
    {"lblclass", "Counts as seen from:", "يعد مرئيا من:"},
    {"fraregion", "Where it is seen", "أين يرى"},
    {"optworld", "The &world, 60° N to 60° S", "&العالم، من 60° شمالا إلى 60° جنوبا"},
    {"optpart", "A part of the world [°]:", "جزء من العالم [°]:"},
    {"lblwest", "West:", "الغرب:"},
    {"lbleast", "East:", "الشرق:"},
    {"lblsouth", "South:", "الجنوب:"},
    {"lblnorth", "North:", "الشمال:"},
    {"lblbefore", "When it is seen:", "متى يرى:"},
    {"fraannounced", "Announced months", "الأشهر المعلنة"},
    {"chkannounced", "Announced months ta&ke its place", "تقدم الأش&هر المعلنة عليها"},
    {"chkwhole", "Re&fuse a list with a fault", "ترفض القائمة إذا كان &فيها خطأ"},
    {"cmdeditlist", "&Edit List...", "ت&عديل القائمة..."},
    {"fracompare", "Compare with", "المقارنة مع"},
    {"cmdprevious", "Pre&vious month", "الشهر السا&بق"},
    {"cmdnext", "Ne&xt month", "الشهر التا&لي"},
    {"fratohijri", "From civil to Hijri", "من ميلادي إلى هجري"},
    {"fratocivil", "From Hijri to civil", "من هجري إلى ميلادي"},
    {"cmdadd", "A&dd", "إ&ضافة"},
    {"cmdremove", "Re&move", "إ&زالة"},
    {"cmdsavelist", "Save &List", "حفظ القائم&ة"},
    {"cmdrevert", "Re&vert", "ت&راجع"},
    {"cmduse", "&Use This Rule", "استعمال هذه القاع&دة"},
    {"cmdtabular", "Back to &Tabular", "العودة إلى ال&جدولي"},
    {"cmdstop", "Sto&p", "إ&يقاف"},
    {"cmdsave", "&Save As...", "&حفظ باسم..."},
    {"cmdprint", "P&rint...", "&طباعة..."},
    {"cmdclose", "&Close", "إ&غلاق"},
    {"txtyear@spoken", "Hijri year", "السنة الهجرية"},
    {"cborule@spoken", "Rule", "القاعدة"},
    {"cboplace@spoken", "Place of the list", "موقع من القائمة"},
    {"cbocriterion@spoken", "Criterion", "المعيار"},
    {"cbocompare@spoken", "Compare with", "المقارنة مع"},
    {"cbomonth@spoken", "Month", "الشهر"},
    {"cbolanguage@spoken", "Language of the page", "لغة الصفحة"},
    {"cbodigits@spoken", "Digits", "الأرقام"},
    {"cbopaper@spoken", "Paper", "الورق"},
    {"areapreview@spoken", "The page", "الصفحة"},
    {"tblyear@spoken", "Months of the year", "أشهر السنة"},
    {"tblannounced@spoken", "Announced months", "الأشهر المعلنة"},
    {"cbocivilday@spoken", "Civil day", "اليوم الميلادي"},
    {"cbocivilmonth@spoken", "Civil month", "الشهر الميلادي"},
    {"txtcivilyear@spoken", "Civil year", "السنة الميلادية"},
    {"cbohijriday@spoken", "Hijri day", "اليوم الهجري"},
    {"cbohijrimonth@spoken", "Hijri month", "الشهر الهجري"},
    {"txthijriyear@spoken", "Hijri year", "السنة الهجرية"},
    {"cmduse@tip", "For the tool tip of the main panel's date and for timetables",
     "لتلميح التاريخ في اللوحة الرئيسة و للتقاويم"},
    {"cmdprint@tip", "Prints the month's page", "يطبع صفحة الشهر"},
};

} // namespace

std::span<const ControlText> frmmonths_twins() {
    return twins;
}

} // namespace halvane
