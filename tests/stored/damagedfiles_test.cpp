// SPDX-License-Identifier: MIT
#include "tests/stored/storedrecords.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace halvane {
namespace {

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class DamagedStoredFile : public testing::TestWithParam<StoredRecord> {
protected:
    const StoredRecord& file() const { return GetParam(); }
    std::string delivered_text() const { return bytes_of(delivered(file().name)); }
    std::optional<std::string> words_for(const std::string& bytes) const {
        folder.write(file().name, bytes);
        return failure_words(file().read);
    }
    /// Whether the file reads the same from other bytes.
    bool reads_the_same_from(const std::string& bytes) const {
        folder.write(file().name, delivered_text());
        const auto unchanged = file().keep();
        folder.write(file().name, bytes);
        return unchanged();
    }
    TemporaryProgramFolder folder;
};

TEST_P(DamagedStoredFile, HasTheCountOfFieldsOfItsRecord) {
    EXPECT_EQ(fields_of(delivered_text()).size(), file().fields);
}

TEST_P(DamagedStoredFile, JunkInAnyFieldIsNamedOrTaken) {
    const std::vector<std::string> fields = fields_of(delivered_text());
    const std::string enormous(100000, '9');
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool is_text = fields[i].front() == '"';
        const bool is_boolean = fields[i].front() == '#';
        for (const std::string& junk :
             {std::string("junk"), std::string(), std::string("#TRUE#"), std::string("\"quoted\""),
              std::string("nan"), std::string("1e400"), std::string("-inf"), std::string("١٢"),
              std::string("\x01\x02"), std::string("\"open"), enormous}) {
            const auto words = words_for(record_with(fields, i + 1, junk));
            const bool unclosed = junk == "\"open";
            if ((is_text && !unclosed) || (is_boolean && junk == "#TRUE#")) {
                EXPECT_FALSE(words.has_value()) << file().name << " field " << i + 1 << ": " << *words;
                continue;
            }
            ASSERT_TRUE(words.has_value()) << file().name << " field " << i + 1 << " took " << junk;
            EXPECT_TRUE(holds(*words, (folder / file().name).string())) << *words;
            EXPECT_TRUE(holds(*words, "record 1, field " + std::to_string(i + 1) + ":")) << *words;
            EXPECT_LT(words->size(), 300U);
        }
    }
}

TEST_P(DamagedStoredFile, CutAnywhereNeverCrashesAndTellsMissingFields) {
    const std::string whole = delivered_text();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const auto words = words_for(cut);
        const auto commas = static_cast<std::size_t>(std::count(cut.begin(), cut.end(), ','));
        if (commas + 1 < file().fields) {
            ASSERT_TRUE(words.has_value()) << file().name << " cut to " << cut;
            EXPECT_TRUE(holds(*words, file().name));
        }
    }
}

TEST_P(DamagedStoredFile, EmptyOrMissingIsAFailureThatNamesIt) {
    folder.write(file().name, "");
    expect_failure_that_tells(file().read,
                              {file().name + ", record 1, field 1:", "found the end of the file"});
    folder.erase(file().name);
    expect_failure_that_tells(file().read, {"Cannot open " + (folder / file().name).string()});
    std::filesystem::create_directory(folder / file().name);
    expect_failure_that_tells(file().read, {file().name});
}

TEST_P(DamagedStoredFile, OtherLineEndsAndAMarkAtTheStartReadTheSame) {
    std::string line = delivered_text();
    line.resize(line.size() - 2);
    for (const std::string& bytes : {line + "\n", line + "\r", line, "\xEF\xBB\xBF" + line + "\r\n",
                                     line + "\r\n\r\n", line + "\r\n\x1A", " " + line + " \r\n"})
        EXPECT_TRUE(reads_the_same_from(bytes)) << file().name << ": " << bytes;
    std::string lines = line;
    std::replace(lines.begin(), lines.end(), ',', '\n');
    EXPECT_TRUE(reads_the_same_from(lines)) << "a field a line";
}

TEST_P(DamagedStoredFile, WhatStandsAfterTheRecordDoesNotCount) {
    std::string line = delivered_text();
    line.resize(line.size() - 2);
    EXPECT_TRUE(reads_the_same_from(line + ",1,2,3\r\n"));
    EXPECT_TRUE(reads_the_same_from(line + "\r\n" + std::string(100000, 'x') + "\r\n"));
}

TEST_P(DamagedStoredFile, SavingWhatWasReadGivesTheDeliveredBytes) {
    file().write_back();
    EXPECT_EQ(folder.read(file().name), delivered_text());
}

std::string test_name(const testing::TestParamInfo<StoredRecord>& info) {
    return info.param.name.substr(0, info.param.name.find('.'));
}

INSTANTIATE_TEST_SUITE_P(EveryRecord, DamagedStoredFile, testing::ValuesIn(stored_records()), test_name);

TEST(StoredLocation, RefusesNumbersThatNoPlaceHas) {
    const TemporaryProgramFolder folder;
    const std::vector<std::string> fields = fields_of(folder.read("loc.vsk"));
    for (const std::size_t field : {2U, 3U, 4U, 5U, 6U, 7U, 9U}) {
        folder.write("loc.vsk", record_with(fields, field, "1e30"));
        expect_failure_that_tells([] { read_loc(); },
                                  {"field " + std::to_string(field) + ": wanted a number within"});
    }
}

TEST(StoredDate, RefusesYearsBeyondTheDayCount) {
    const TemporaryProgramFolder folder;
    folder.write("date.vsk", record_with(fields_of(folder.read("date.vsk")), 2, "1e15"));
    expect_failure_that_tells([] { read_date(); }, {"field 2:"});
}

TEST(StoredDate, KeepsADayThatItsMonthDoesNotHave) {
    const TemporaryProgramFolder folder;
    CalculationDate date = read_date();
    date.period = true;
    date.system_date = false;
    date.start = date.from = {2026, 2, 31};
    write_date(date);
    EXPECT_EQ(fields_of(folder.read("date.vsk"))[3], "31");
    EXPECT_EQ(read_date().start, (DateNumbers{2026, 2, 31}));
}

TEST(StoredDate, TakesTheYearZeroOfAnEmptyBox) {
    const TemporaryProgramFolder folder;
    CalculationDate date = read_date();
    date.one_day = true;
    date.start = date.end = date.one = {0, 1, 1};
    write_date(date);
    EXPECT_EQ(read_date().one.year, 0);
}

TEST(StoredPreferences, TakesADayThatItsMonthDoesNotHaveAndNegativeMinutes) {
    const TemporaryProgramFolder folder;
    Preferences preferences = read_pref();
    preferences.summer_from_month = 4;
    preferences.summer_from_day = 31;
    preferences.subtract_fajer = -5;
    write_pref(preferences);
    EXPECT_EQ(read_pref(), preferences);
    EXPECT_EQ(fields_of(folder.read("pref.vsk"))[3], "31");
    EXPECT_EQ(fields_of(folder.read("pref.vsk"))[6], "-5");
}

TEST(StoredPreferences, KeepsTheSummerSpanWhileSummerTimeIsOff) {
    const TemporaryProgramFolder folder;
    Preferences preferences = read_pref();
    preferences.summer_time = "0";
    preferences.summer_to_month = 11;
    write_pref(preferences);
    EXPECT_EQ(read_pref().summer_to_month, 11);
    EXPECT_FALSE(has_summer_time(read_pref()));
}

TEST(StoredPreferences, TellThePrecisionOfTheClock) {
    Preferences preferences;
    preferences.clock_precision = "0";
    EXPECT_EQ(precision_of(preferences), 0);
    preferences.clock_precision = "1";
    EXPECT_EQ(precision_of(preferences), 1);
    preferences.clock_precision = "";
    EXPECT_EQ(precision_of(preferences), 2);
}

TEST(StoredPreferences, FieldsStandInTheOrderOfTheRecord) {
    const TemporaryProgramFolder folder;
    folder.write("pref.vsk",
                 "1.5,2.5,3,4,5,6,7,8,9,\"10\",\"11\",\"12\",\"13\",#FALSE#,\"15\",\"16\",17,18\r\n");
    const Preferences& p = read_pref();
    EXPECT_EQ(p.fajer_angle, 1.5);
    EXPECT_EQ(p.isha_angle, 2.5);
    EXPECT_EQ(p.summer_from_month, 3);
    EXPECT_EQ(p.summer_from_day, 4);
    EXPECT_EQ(p.summer_to_month, 5);
    EXPECT_EQ(p.summer_to_day, 6);
    EXPECT_EQ(p.subtract_fajer, 7);
    EXPECT_EQ(p.add_dhohur, 8);
    EXPECT_EQ(p.add_maghreb, 9);
    EXPECT_EQ(p.summer_time, "10");
    EXPECT_EQ(p.elevation_fajer, "11");
    EXPECT_EQ(p.asr_rule, "12");
    EXPECT_EQ(p.clock_precision, "13");
    EXPECT_FALSE(p.english);
    EXPECT_EQ(p.elevation_setting, "15");
    EXPECT_EQ(p.authority, "16");
    EXPECT_EQ(p.add_asr, 17);
    EXPECT_EQ(p.high_latitude, 18);
}

TEST(StoredLocation, FieldsStandInTheOrderOfTheRecord) {
    const TemporaryProgramFolder folder;
    folder.write("loc.vsk", "\"A, B\",2,3,4,5,6,7,8,9,#TRUE#,#FALSE#,#FALSE#,#TRUE#,14,15,16\r\n");
    const Location& l = read_loc();
    EXPECT_EQ(l.name, "A, B");
    EXPECT_EQ(l.longitude_degrees, 2);
    EXPECT_EQ(l.longitude_minutes, 3);
    EXPECT_EQ(l.longitude_seconds, 4);
    EXPECT_EQ(l.latitude_degrees, 5);
    EXPECT_EQ(l.latitude_minutes, 6);
    EXPECT_EQ(l.latitude_seconds, 7);
    EXPECT_EQ(l.elevation, 8);
    EXPECT_EQ(l.zone, 9);
    EXPECT_TRUE(l.east);
    EXPECT_FALSE(l.north);
    EXPECT_FALSE(l.west);
    EXPECT_TRUE(l.south);
    EXPECT_EQ(l.city_offset, 14);
    EXPECT_EQ(l.pressure, 15);
    EXPECT_EQ(l.temperature, 16);
}

TEST(StoredDate, FieldsStandInTheOrderOfTheRecord) {
    const TemporaryProgramFolder folder;
    folder.write("date.vsk", "#TRUE#,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,#FALSE#,#TRUE#\r\n");
    const CalculationDate& d = read_date();
    EXPECT_TRUE(d.one_day);
    EXPECT_EQ(d.start, (DateNumbers{2, 3, 4}));
    EXPECT_EQ(d.end, (DateNumbers{5, 6, 7}));
    EXPECT_EQ(d.from, (DateNumbers{8, 9, 10}));
    EXPECT_EQ(d.to, (DateNumbers{11, 12, 13}));
    EXPECT_EQ(d.one, (DateNumbers{14, 15, 16}));
    EXPECT_FALSE(d.period);
    EXPECT_TRUE(d.system_date);
}

TEST(StoredLocation, SignComesFromEastAndNorthAloneAfterTheSum) {
    Location location;
    location.longitude_degrees = -10;
    location.longitude_minutes = 30;
    location.east = false;
    location.west = false;
    location.latitude_degrees = 31;
    location.latitude_minutes = 57;
    location.latitude_seconds = 36;
    location.north = false;
    EXPECT_DOUBLE_EQ(longitude_of(location), 9.5);
    EXPECT_DOUBLE_EQ(latitude_of(location), -31.96);
    EXPECT_EQ(signed_longitude_degrees(location), 10);
    EXPECT_EQ(signed_latitude_degrees(location), -31);
    location.east = location.north = true;
    EXPECT_DOUBLE_EQ(longitude_of(location), -9.5);
    EXPECT_DOUBLE_EQ(latitude_of(location), 31.96);
}

TEST(StoredLocation, ReadsNamesInWindows1256) {
    const TemporaryProgramFolder folder;
    folder.write("loc.vsk",
                 "\"\xE3\xDF\xC9\",39,49,34,21,25,21,277,3,#TRUE#,#TRUE#,#FALSE#,#FALSE#,0,1010,10\r\n");
    EXPECT_EQ(read_loc().name, "مكة");
    write_loc(Location(read_loc()));
    EXPECT_EQ(fields_of(folder.read("loc.vsk"))[0], "\"مكة\"");
    EXPECT_EQ(read_loc().name, "مكة");
}

} // namespace
} // namespace halvane
