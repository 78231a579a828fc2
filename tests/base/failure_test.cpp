// SPDX-License-Identifier: MIT
#include "base/failure.h"

#include "tests/stored/storedrecords.h"

#include <cerrno>
#include <cmath>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

namespace halvane {
namespace {

TEST(Failure, ARefusalOfTheSystemIsOfTheKindThatItsNumberTells) {
    const std::pair<int, FailureKind> kinds[] = {
        {ENOENT, FailureKind::missing_file}, {EACCES, FailureKind::no_right}, {EROFS, FailureKind::no_right},
        {ENOSPC, FailureKind::no_space},     {EFBIG, FailureKind::no_space},  {EISDIR, FailureKind::system},
        {ENOMEM, FailureKind::no_memory}};
    for (const auto& [error, kind] : kinds)
        EXPECT_EQ(file_failure(FileAction::open, "/f", error).parts().kind, kind) << error;
}

TEST(Failure, TheWordsNameTheFileAndTheRefusal) {
    const RunTimeFailure failure = file_failure(FileAction::write, "/here/results.out", EACCES);
    EXPECT_STREQ(failure.what(), "Cannot write /here/results.out: Permission denied.");
    EXPECT_EQ(words_of(failure.parts(), Language::arabic), "لا تمكن كتابة /here/results.out: لا إذن بذلك.");
}

TEST(Failure, ADamagedFieldKeepsItsParts) {
    const TemporaryProgramFolder folder;
    folder.write("pref.vsk", "18,junk\r\n");
    try {
        read_pref();
        FAIL() << "nothing was raised";
    } catch (const RunTimeFailure& failure) {
        const FailureParts& parts = failure.parts();
        EXPECT_EQ(parts.kind, FailureKind::damaged_file);
        EXPECT_EQ(parts.file, (folder / "pref.vsk").string());
        EXPECT_EQ(parts.record, 1);
        EXPECT_EQ(parts.field, 2);
        EXPECT_EQ(parts.found.english, "\"junk\"");
        EXPECT_EQ(words_of(parts, Language::arabic),
                  parts.file + "، السجل 1، الحقل 2: المطلوب رقم، و الموجود \"junk\".");
    }
}

TEST(Failure, AValueThatIsNotFiniteNamesItsDayAndPlace) {
    try {
        about_place("Amman", [] {
            return about_day(DateNumbers{2026, 2, 18.5}, [] {
                return require_finite(std::nan(""), {"the Moon's transit", "عبور القمر"});
            });
        });
        FAIL() << "nothing was raised";
    } catch (const RunTimeFailure& failure) {
        EXPECT_EQ(failure.parts().kind, FailureKind::no_finite_value);
        EXPECT_STREQ(failure.what(), "The calculation of the Moon's transit on 18/02/2026 for Amman has no "
                                     "finite value with the stored settings.");
        const std::string arabic = words_of(failure.parts(), Language::arabic);
        for (const char* part : {"عبور القمر", "18/02/2026", "Amman"})
            EXPECT_NE(arabic.find(part), std::string::npos) << arabic;
    }
}

TEST(Failure, ASearchThatDoesNotEndNamesItsDayAndPlace) {
    expect_failure_that_tells(
        [] {
            about_place("Amman", [] {
                about_day(DateNumbers{-4000, 1, 1}, [] {
                    SearchGuard guard({"a phase of the Moon", "طور من أطوار القمر"});
                    for (;;)
                        guard.check(1);
                });
            });
        },
        {"a phase of the Moon", "01/01/-4000", "Amman", "does not end"});
}

TEST(Failure, TheInnermostPlaceIsTheOneThatIsTold) {
    const auto angle_for_oslo = [] {
        about_place("Oslo", [] { return require_finite(HUGE_VAL, {"an angle", "زاوية"}); });
    };
    const auto words = failure_words([&] { about_place("Amman", angle_for_oslo); });
    EXPECT_EQ(words, "The calculation of an angle for Oslo has no finite value with the stored settings.");
}

TEST(Failure, AFileHasNeitherDayNorPlace) {
    const auto words = failure_words([] {
        about_place("Amman", [] {
            about_day(DateNumbers{2026, 1, 1}, [] { throw file_failure(FileAction::open, "/f", ENOENT); });
        });
    });
    ASSERT_TRUE(words);
    EXPECT_EQ(words->find("Amman"), std::string::npos) << *words;
    EXPECT_EQ(words->find("2026"), std::string::npos) << *words;
}

TEST(Failure, AnyExceptionHasAKindAndWords) {
    EXPECT_EQ(parts_of(std::bad_alloc()).kind, FailureKind::no_memory);
    EXPECT_EQ(parts_of(std::length_error("too long")).kind, FailureKind::no_memory);
    const FailureParts other = parts_of(std::runtime_error("strange"));
    EXPECT_EQ(other.kind, FailureKind::other);
    for (const Language language : languages)
        EXPECT_NE(words_of(other, language).find("strange"), std::string::npos);
    EXPECT_EQ(parts_of(file_failure(FileAction::open, "/f", ENOENT)).file, "/f");
}

// Fields 4 to 15 of the table's record and 1 to 5 of the telescope's are dates and clocks.
TEST(Failure, DatesAndClocksBeyondTheirLimitsAreDamage) {
    const TemporaryProgramFolder folder;
    const auto expect_limits = [&folder](const char* name, std::size_t first, std::size_t last,
                                         const std::function<void()>& read) {
        const std::vector<std::string> fields = fields_of(folder.read(name));
        for (std::size_t field = first; field <= last; ++field)
            for (const char* value : {"1e308", "-1e18", "1000000"}) {
                folder.write(name, record_with(fields, field, value));
                expect_failure_that_tells(read, {name, "field " + std::to_string(field) + ":", "within"});
            }
    };
    expect_limits("coor.vsk", 4, 15, [] { read_coor(); });
    expect_limits("tele.vsk", 1, 5, [] { read_tele(); });
}

} // namespace
} // namespace halvane
