// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace halvane {
namespace {

std::string bytes_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string guide() {
    return bytes_of(HALVANE_DATA "/help.txt");
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::size_t characters_of(const std::string& line) {
    std::size_t count = 0;
    for (const char byte : line)
        count += (static_cast<unsigned char>(byte) & 0xC0) != 0x80 ? 1 : 0;
    return count;
}

TEST(Guide, IsMadeOfItsPartsAsTheyStand) {
    const std::string made = ::testing::TempDir() + "help-" + std::to_string(::getpid()) + ".txt";
    const std::string command =
        "\"" HALVANE_ROOT "/tools/makehelp/makehelp\" \"" HALVANE_ROOT "/docs/help\" \"" + made + "\"";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_TRUE(bytes_of(made) == guide())
        << "make it again: tools/makehelp/makehelp docs/help data/help.txt";
    std::remove(made.c_str());
}

TEST(Guide, EveryLineEndsWithCrLfAndFitsTheWindow) {
    for (const std::string& line : lines_of(guide())) {
        ASSERT_FALSE(line.empty());
        EXPECT_EQ(line.back(), '\r') << line;
        EXPECT_LE(characters_of(line), 85U) << line;
    }
}

TEST(Guide, EverySectionIsThereInBothLanguages) {
    for (const char* title : {"THE MAIN PANEL",
                              "PREFERENCES",
                              "LOCATION",
                              "DATE",
                              "HEJRIC GREGORIAN",
                              "PRAYER TIMES: THE REPORT",
                              "MOON TIMES: THE REPORT",
                              "TIMETABLE",
                              "WATCH SHEET",
                              "HIJRI MONTHS",
                              "PRAYER ALERTS",
                              "MESSAGES",
                              "FILES",
                              "اللوحة الرئيسة",
                              "الخيارات",
                              "الموقع",
                              "التاريخ",
                              "هجري ميلادي",
                              "جدول مواقيت الصلاة",
                              "جدول مواقيت القمر",
                              "التقويم الشهري",
                              "ورقة الرصد",
                              "الأشهر الهجرية",
                              "منبه الصلاة",
                              "الرسائل",
                              "الملفات"})
        EXPECT_NE(guide().find("\n" + std::string(title) + "\r\n---"), std::string::npos) << title;
}

TEST(Guide, TellsEveryButtonOfTheMainPanel) {
    for (const char* caption :
         {"Prayer Times ",   "Moon Times ",          "Qiblah ",       "Hejric Gregorian ",
          "Timetable ",      "Crescent Visibility ", "Moon Phases ",  "Sun Moon Ephemeris ",
          "Telescope ",      "Hijri Months ",        "Location ",     "Date ",
          "Preferences ",    "Prayer Alerts ",       "Help ",         "Exit ",
          "مواقيت الصلاة ",  "مواقيت القمر ",        "اتجاه القبلة ", "هجري ميلادي ",
          "التقويم الشهري ", "رؤية الهلال ",         "أطوار القمر ",  "أزياج الشمس و القمر ",
          "تلسكوب ",         "الأشهر الهجرية ",      "مساعدة ",       "خروج "})
        EXPECT_NE(guide().find("\n  " + std::string(caption) + " "), std::string::npos) << caption;
}

TEST(Guide, TellsEveryMarkAndWordOfTheReports) {
    for (const char* mark : {"----   ", "Up  ", "Down  ", "Bright  ", "Dark  ", "#   ", "#*   ", "#*F #*I"})
        EXPECT_NE(guide().find("\n  " + std::string(mark)), std::string::npos) << mark;
}

TEST(Guide, TellsEveryMessageOfTheSettings) {
    for (const char* message :
         {"Fajer Angle Must Be Positive!", "Isha Angle Must Be Positive!",
          "There are no time zone files (package tzdata; on Windows the folder zoneinfo).",
          "لا توجد ملفات المناطق الزمنية (الحزمة tzdata، و في ويندوز المجلد zoneinfo).",
          "You Can Not Have Two Locations of the Same Name!", "Again... You will delete this location!",
          "The end date must be AFTER the beginning date!", "The Year must be more than Zero!",
          "Your Date Must Be After 15/July/622 CE!",
          "The Date After 04 October 1582 CE is 15 October 1582 CE!",
          "The Alternative Method Does Not Work Above Latitude 65.", "زاوية الفجر يجب أن تكون موجبة",
          "زاوية العشاء يجب أن تكون موجبة", "لا يمكن إضافة موقعين بنفس الاسم",
          "التاريخ الثاني يجب أن يكون بعد التاريخ الأول", "السنة يجب أن تكون أكبر من صفر"})
        EXPECT_NE(guide().find(message), std::string::npos) << message;
}

} // namespace
} // namespace halvane
