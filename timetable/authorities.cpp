// SPDX-License-Identifier: MIT
#include "timetable/authorities.h"

#include <algorithm>
#include <iterator>

namespace halvane {
namespace {

// Each row was compared with at least two of its sources; where they differ, its last field says how.
constexpr Authority table[] = {
    {.key = "mwl",
     .name = {"Muslim World League", "رابطة العالم الإسلامي"},
     .region = "Europe, Far East, parts of America",
     .fajer_angle = 18,
     .isha_angle = 17,
     .source = "Fiqh Council decree of 1406 AH (Fajr 18, Sun at rise 50' below the horizon); PrayTimes; "
               "Adhan; AlAdhan; ITL: all 18/17. Adhan adds 1 min to Dhuhr, PrayTimes and AlAdhan nothing"},
    {.key = "umm-al-qura",
     .name = {"Umm al-Qura University, Makkah", "جامعة أم القرى، مكة المكرمة"},
     .region = "Saudi Arabia, Arabian Peninsula",
     .fajer_angle = 18.5,
     .isha_minutes = 90,
     .isha_minutes_ramadan = 120,
     .source = "PrayTimes: 18.5, 90 and in Ramadan 120 min after Maghrib, Fajr 19 before Muharram 1430 AH; "
               "Adhan, AlAdhan, prayers-call agree. Other: ITL 18 (19 in Ramadan)"},
    {.key = "egypt",
     .name = {"Egyptian General Authority of Survey", "الهيئة المصرية العامة للمساحة"},
     .region = "Egypt, Africa, Syria, Lebanon",
     .fajer_angle = 19.5,
     .isha_angle = 17.5,
     .source = "PrayTimes; Adhan; AlAdhan; ITL method 8. Other: ITL method 1 (older set) 20/18. Adhan adds 1 "
               "min to Dhuhr, PrayTimes and AlAdhan nothing"},
    {.key = "karachi",
     .name = {"University of Islamic Sciences, Karachi", "جامعة العلوم الإسلامية، كراتشي"},
     .region = "Pakistan, Afghanistan, Bangladesh, India",
     .fajer_angle = 18,
     .isha_angle = 18,
     .source =
         "PrayTimes; Adhan; AlAdhan; ITL method 2. Adhan adds 1 min to Dhuhr, PrayTimes and AlAdhan nothing"},
    {.key = "karachi-hanafi",
     .name = {"University of Islamic Sciences, Karachi (Hanafi Asr)",
              "جامعة العلوم الإسلامية، كراتشي (العصر الحنفي)"},
     .region = "Afghanistan, Bangladesh, India, Pakistan",
     .fajer_angle = 18,
     .isha_angle = 18,
     .source = "ITL method 3 (same angles, Hanafi shadow); angles as karachi",
     .hanafi = true},
    {.key = "isna",
     .name = {"Islamic Society of North America", "الجمعية الإسلامية لأمريكا الشمالية"},
     .region = "USA, Canada, parts of the UK",
     .fajer_angle = 15,
     .isha_angle = 15,
     .source = "PrayTimes; Adhan; AlAdhan; ITL. Adhan adds 1 min to Dhuhr, PrayTimes and AlAdhan nothing"},
    {.key = "turkey",
     .name = {"Presidency of Religious Affairs (Diyanet), Turkey", "رئاسة الشؤون الدينية، تركيا"},
     .region = "Turkey",
     .fajer_angle = 18,
     .isha_angle = 17,
     .added = {{0, -7, 5, 4, 7, 0}},
     .source = "Adhan (says: an approximation, worse outside Turkey): 18/17, -7 +5 +4 +7. Other: masaajid, "
               "fitted to official times, -7 +5 +5.5 +7 +1.5; Hex prayer_times -2 -7 +6 +4 +9 +2; AlAdhan "
               "18/17 without minutes (experimental). Diyanet text on temkin: the old 10 minutes dropped by "
               "decision no. 6 of 21 Jan 1981, kept at rise and set; no minutes seen in an official text"},
    {.key = "singapore",
     .name = {"Majlis Ugama Islam Singapura (MUIS)", "المجلس الإسلامي السنغافوري"},
     .region = "Singapore",
     .fajer_angle = 20,
     .isha_angle = 18,
     .added = {{0, 0, 1, 0, 0, 0}},
     .source = "20/18: Adhan; AlAdhan; prayers-call; bilal. Dhuhr +1: Adhan, prayers-call, masaajid. "
               "Rounding up: Adhan alone; AlAdhan rounds to nearest",
     .rounding = Rounding::up},
    {.key = "jakim",
     .name = {"JAKIM, Malaysia (since the end of 2019)", "جاكيم، ماليزيا (منذ نهاية 2019)"},
     .region = "Malaysia",
     .fajer_angle = 18,
     .isha_angle = 18,
     .source = "JAKIM media statement on the 116th MKI Muzakarah, 20-21 Nov 2019: Fajr 18 (8 min later than "
               "before); Malay Mail; Sinar Harian; masaajid 18/18. States followed from 29 Nov 2019 "
               "(Selangor) to 25 Feb 2020 (Kedah). Other: AlAdhan, prayers-call still 20/18"},
    {.key = "jakim-before-2020",
     .name = {"JAKIM, Malaysia (before the end of 2019)", "جاكيم، ماليزيا (قبل نهاية 2019)"},
     .region = "Malaysia",
     .fajer_angle = 20,
     .isha_angle = 18,
     .source = "AlAdhan; prayers-call; bilal; Raihana et al. 2016 (20 in all states but Kelantan 19)"},
    {.key = "kemenag",
     .name = {"Ministry of Religious Affairs (Kemenag), Indonesia", "وزارة الشؤون الدينية، إندونيسيا"},
     .region = "Indonesia",
     .fajer_angle = 20,
     .isha_angle = 18,
     .added = {{2, -2, 2, 2, 2, 2}},
     .source = "Kemenag criteria as told by Rukyatul Hilal Indonesia and by R. Suhardi: ihtiyat 2 min on "
               "all, taken off sunrise, Imsak 10 min before Fajr; angles also AlAdhan, prayers-call. Other: "
               "masaajid fits +2 -4 +3 +2 +2 +2"},
    {.key = "kuwait",
     .name = {"Ministry of Awqaf, Kuwait", "وزارة الأوقاف، الكويت"},
     .region = "Kuwait",
     .fajer_angle = 18,
     .isha_angle = 17.5,
     .source = "Adhan; AlAdhan; prayers-call; table of A. Eltaher. Other: ITL (older) 18/18"},
    {.key = "qatar",
     .name = {"Qatar", "قطر"},
     .region = "Qatar",
     .fajer_angle = 18,
     .isha_minutes = 90,
     .source =
         "Adhan; AlAdhan; prayers-call. Other: ITL (older) 19.5 and 90 min. No source gives 120 in Ramadan"},
    {.key = "dubai",
     .name = {"Dubai / United Arab Emirates", "دبي / الإمارات العربية المتحدة"},
     .region = "United Arab Emirates",
     .fajer_angle = 18.2,
     .isha_angle = 18.2,
     .added = {{0, -3, 3, 3, 3, 0}},
     .source =
         "Adhan, prayers-call: 18.2/18.2, -3 +3 +3 +3; AlAdhan 18.2/18.2 without minutes (experimental). "
         "Other: Azan for Elixir has Asr -3 (looks like a slip); ITL (older) 19.5 and 90 min"},
    {.key = "gulf",
     .name = {"Gulf region (older set)", "منطقة الخليج (قيم أقدم)"},
     .region = "Bahrain, Oman, Qatar, UAE before newer values",
     .fajer_angle = 19.5,
     .isha_minutes = 90,
     .source = "ITL method 7; AlAdhan GULF. Other, one source each: prayers-call Bahrain 18 and 90 min, Oman "
               "18/18 with +5 Dhuhr Asr Maghrib"},
    {.key = "morocco",
     .name = {"Ministry of Habous and Islamic Affairs, Morocco", "وزارة الأوقاف والشؤون الإسلامية، المغرب"},
     .region = "Morocco",
     .fajer_angle = 19,
     .isha_angle = 17,
     .added = {{0, 0, 5, 0, 0, 0}},
     .source = "AlAdhan; ITL method 11; prayers-call: all 19/17. Dhuhr +5: ITL, prayers-call. Maghrib not "
               "settled: ITL +5, prayers-call +2, AlAdhan 0"},
    {.key = "tunisia",
     .name = {"Ministry of Religious Affairs, Tunisia", "وزارة الشؤون الدينية، تونس"},
     .region = "Tunisia",
     .fajer_angle = 18,
     .isha_angle = 18,
     .source = "AlAdhan; prayers-call; bilal: 18/18. Minutes not settled: prayers-call Dhuhr +7 Maghrib +2, "
               "AlAdhan 0"},
    {.key = "algeria",
     .name = {"Ministry of Religious Affairs and Wakfs, Algeria", "وزارة الشؤون الدينية والأوقاف، الجزائر"},
     .region = "Algeria",
     .fajer_angle = 18,
     .isha_angle = 17,
     .source = "AlAdhan; prayers-call; bilal: 18/17. Maghrib not settled: prayers-call +3, AlAdhan 0"},
    {.key = "france-12",
     .name = {"Musulmans de France (formerly UOIF), 12 degrees",
              "مسلمو فرنسا (اتحاد المنظمات الإسلامية سابقا)، 12 درجة"},
     .region = "France",
     .fajer_angle = 12,
     .isha_angle = 12,
     .source = "AlAdhan; prayers-call; bilal; masaajid"},
    {.key = "france-15",
     .name = {"France, 15 degrees", "فرنسا، 15 درجة"},
     .region = "France",
     .fajer_angle = 15,
     .isha_angle = 15,
     .source = "bilal; masaajid"},
    {.key = "france-18",
     .name = {"France, 18 degrees (Grande Mosquée de Paris)", "فرنسا، 18 درجة (مسجد باريس الكبير)"},
     .region = "France",
     .fajer_angle = 18,
     .isha_angle = 18,
     .source = "bilal (18 degrees); masaajid (names the Grande Mosquée de Paris)"},
    {.key = "russia",
     .name = {"Spiritual Administration of Muslims of Russia", "الإدارة الدينية لمسلمي روسيا"},
     .region = "Russia",
     .fajer_angle = 16,
     .isha_angle = 15,
     .source = "AlAdhan; prayers-call; bilal; masaajid. Sources keep the standard Asr"},
    {.key = "jordan",
     .name = {"Ministry of Awqaf, Jordan", "وزارة الأوقاف والشؤون والمقدسات الإسلامية، الأردن"},
     .region = "Jordan",
     .fajer_angle = 18,
     .isha_angle = 18,
     .source = "AlAdhan; prayers-call: 18/18. Maghrib not settled: AlAdhan +5, prayers-call 0. Other: ITL "
               "(older) 20/18"},
    {.key = "tehran",
     .name = {"Institute of Geophysics, University of Tehran", "معهد الجيوفيزياء، جامعة طهران"},
     .region = "Iran",
     .fajer_angle = 17.7,
     .isha_angle = 14,
     .maghreb_angle = 4.5,
     .source = "PrayTimes (says that 14 is not explicit in the method); Adhan; AlAdhan. Midnight is the "
               "middle of sunset to Fajr",
     .night_until_fajer = true},
    {.key = "jafari",
     .name = {"Shia Ithna-Ashari, Leva Institute, Qum", "الشيعة الإثنا عشرية، معهد لواء، قم"},
     .region = "Shia communities",
     .fajer_angle = 16,
     .isha_angle = 14,
     .maghreb_angle = 4,
     .source = "PrayTimes; AlAdhan; masaajid. Midnight is the middle of sunset to Fajr",
     .night_until_fajer = true},
};

} // namespace

std::span<const Authority> authorities() {
    return table;
}

const Authority* find_authority(std::string_view key) {
    const auto* found = std::find_if(std::begin(table), std::end(table),
                                     [key](const Authority& authority) { return key == authority.key; });
    return found == std::end(table) ? nullptr : found;
}

} // namespace halvane
