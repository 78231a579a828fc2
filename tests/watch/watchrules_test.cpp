// SPDX-License-Identifier: MIT
#include "watch/watchrules.h"

#include "tests/watch/watches.h"

namespace halvane {
namespace {

class WatchRules : public WatchTest {};

TEST_F(WatchRules, GiveTheSettingsOfAChoice) {
    const WatchAnswer answer = settings_of({CrescentKind::old_crescent, {2026, 2, 16}, "Jakarta"});
    ASSERT_TRUE(answer.settings);
    EXPECT_EQ(answer.settings->day, day_of(2026, 2, 16));
    EXPECT_EQ(answer.settings->kind, CrescentKind::old_crescent);
    EXPECT_EQ(answer.settings->place.location.name, "Jakarta");
    EXPECT_EQ(answer.settings->place.zone.value().name(), "Asia/Jakarta");
}

TEST_F(WatchRules, TellWhatIsWrong) {
    const WatchAnswer date = settings_of({CrescentKind::new_crescent, {2026, 2, 30}, std::nullopt});
    EXPECT_FALSE(date.settings);
    EXPECT_EQ(date.wrong, WatchPart::date);
    EXPECT_TRUE(date.words.english.ends_with('.'));
    EXPECT_FALSE(date.words.arabic.empty());
    EXPECT_FALSE(settings_of({CrescentKind::new_crescent, {2026.5, 2, 3}, std::nullopt}).settings);
    EXPECT_FALSE(settings_of({CrescentKind::new_crescent, {20260, 2, 3}, std::nullopt}).settings);
    const WatchAnswer place = settings_of({CrescentKind::new_crescent, {2026, 2, 18}, "Nowhere"});
    EXPECT_FALSE(place.settings);
    EXPECT_EQ(place.wrong, WatchPart::place);
    EXPECT_NE(place.words.english.find("Nowhere"), std::string::npos);
}

TEST_F(WatchRules, GoFromDayToDay) {
    EXPECT_EQ(date_after({2026, 2, 28}, 1), (DateNumbers{2026, 3, 1}));
    EXPECT_EQ(date_after({2026, 1, 1}, -1), (DateNumbers{2025, 12, 31}));
}

TEST_F(WatchRules, KnowTheFormatsByTheirEndings) {
    EXPECT_EQ(watch_format_of("a/sheet.png"), WatchFormat::png);
    EXPECT_EQ(watch_format_of("sheet.csv"), WatchFormat::csv);
    EXPECT_EQ(watch_format_of("sheet.pdf"), WatchFormat::pdf);
    EXPECT_EQ(watch_format_of("sheet.PNG"), WatchFormat::png);
    EXPECT_EQ(watch_format_of("SHEET.Csv"), WatchFormat::csv);
    EXPECT_EQ(watch_format_of("pdf"), std::nullopt);
    EXPECT_EQ(watch_format_of("sheet.png.txt"), std::nullopt);
    EXPECT_EQ(watch_file_name(settings_at("Cape Town", {2026, 2, 18}), WatchFormat::csv),
              "watch-Cape Town-2026-02-18.csv");
}

} // namespace
} // namespace halvane
