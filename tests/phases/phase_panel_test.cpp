// SPDX-License-Identifier: MIT
#include "calendar/moddeltat.h"
#include "ephemeris/series.h"
#include "panel/frmwait.h"
#include "phases/frmphase.h"
#include "prayer/moonrun.h"
#include "prayer/prayerrun.h"
#include "qibla/qiblahrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/coor.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/phase.h"
#include "stored/pref.h"
#include "tables/ephemeristable.h"
#include "tests/golden/recordingprogress.h"
#include "tests/panel/panelchecks.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>
#include <optional>
#include <sstream>

namespace halvane {
namespace {

constexpr ControlText captions[] = {
    {"frmphase", "Moon Phases", "أطوار القمر"},
    {"lblhphase", "Moon Phases", "أطوار القمر"},
    {"fradate", "Date", "التاريخ"},
    {"lblyear", "Year:", "السنة"},
    {"fraref", "Reference", "المرجع"},
    {"optgeo", "Geocentric", "مركزي"},
    {"opttopo", "Topocentric", "سطحي"},
    {"fratime", "Time", "الوقت"},
    {"optut", "Local (UT1)", "محلي (UT1)"},
    {"opttdt", "Local (TDT)", "محلي (TDT)"},
    {"lblsec", "Second(s)", "ثانية"},
    {"lbldeltan",
     " For \"Local (UT1)\"  Calculations, If you are not satisfied by the above Delta T  value, then kindly "
     "enter above the value you prefer.",
     " لحسابات 'محلي (UT1)' إذا كنت تفضل قيمة أخرى لـ Delta-T، يرجى إدخال هذه القيمة أعلاه"},
    {"lblchoose",
     " Please choose the Precision and Summer Time settings from the                   Preferences Menu, and "
     "your location from the Location Menu.",
     " يرجى اختيار الدقة و التوقيت الصيفي من قائمة الخيارات، و اختيار الموقع من قائمة الموقع"},
    {"cmdcalc", "&Calculate", "إجراء ال&حسابات"},
    {"cmdclose", "Clo&se", "إ&غلاق"},
};

class PhasePanel : public PanelTest {
protected:
    PhasePanel() {
        load_series();
        write_phase({"2024", true, true});
    }

    /// The lines of the table that hold a date and clock.
    std::vector<std::string> rows() const {
        std::vector<std::string> found;
        std::istringstream lines(content("results.out"));
        bool in_table = false;
        for (std::string line; std::getline(lines, line);) {
            if (line.find("New Moon") != std::string::npos)
                in_table = true;
            else if (line.rfind("====", 0) == 0)
                in_table = false;
            else if (in_table && line.find(':') != std::string::npos)
                found.push_back(line);
        }
        return found;
    }

    bool report_has(const std::string& words) const {
        return content("results.out").find(words) != std::string::npos;
    }
};

class PhaseCaption : public PhasePanel, public ::testing::WithParamInterface<ControlText> {};

TEST_P(PhaseCaption, IsThatOfTheLanguage) {
    in_both_languages<frmphase>(
        [](QWidget& form, Language language) { expect_caption(form, GetParam(), language); });
}

INSTANTIATE_TEST_SUITE_P(Every, PhaseCaption, ::testing::ValuesIn(captions), caption_name);

TEST_F(PhasePanel, TheFrameOfDeltaTHasItsTitle) {
    frmphase form;
    EXPECT_EQ(caption(form, "fradelta"), QStringLiteral("Delta T"));
}

TEST_F(PhasePanel, BothLanguagesAreWholeReachableAndNamed) {
    in_both_languages<frmphase>([](QWidget& form, Language language) {
        expect_usable(form);
        expect_captions(form, frmphase_twins(), language);
    });
}

TEST_F(PhasePanel, TheStoredChoicesAreShown) {
    write_phase({"1999", false, false});
    frmphase form;
    EXPECT_EQ(text(form, "txtyear"), QStringLiteral("1999"));
    EXPECT_TRUE(checked<QRadioButton>(form, "opttopo"));
    EXPECT_FALSE(checked<QRadioButton>(form, "optgeo"));
    EXPECT_TRUE(checked<QRadioButton>(form, "opttdt"));
    EXPECT_FALSE(checked<QRadioButton>(form, "optut"));
}

TEST_F(PhasePanel, GeocentricUniversalTimeIsShown) {
    frmphase form;
    EXPECT_TRUE(checked<QRadioButton>(form, "optgeo"));
    EXPECT_TRUE(checked<QRadioButton>(form, "optut"));
    EXPECT_TRUE(control(form, "txtdelta").isEnabled());
}

// Espenak and Meeus, 2005 to 2050: 62.92 + 0.32217 t + 0.005589 t t with t in years from 2000; 1986 to 2005
// and 1961 to 1986 by their own polynomials.
TEST_F(PhasePanel, DeltaTOfTheStoredYearIsProposed) {
    frmphase form;
    const double t = 24.46;
    EXPECT_NEAR(text(form, "txtdelta").toDouble(), 62.92 + 0.32217 * t + 0.005589 * t * t, 0.02);
    EXPECT_EQ(text(form, "txtdelta").section(u'.', 1).size(), 2);
}

TEST_F(PhasePanel, AChangedYearBringsItsDeltaT) {
    frmphase form;
    enter(form, "txtyear", QStringLiteral("1970"));
    const double t = 1970.46 - 1975;
    EXPECT_NEAR(text(form, "txtdelta").toDouble(), 45.45 + 1.067 * t - t * t / 260 - t * t * t / 718, 0.02);
}

TEST_F(PhasePanel, AnOverrideLastsUntilTheYearChanges) {
    frmphase form;
    const QString proposed = text(form, "txtdelta");
    enter(form, "txtdelta", QStringLiteral("12.5"));
    click(form, "opttopo");
    click(form, "opttdt");
    click(form, "optut");
    EXPECT_EQ(text(form, "txtdelta"), QStringLiteral("12.5"));
    enter(form, "txtyear", QStringLiteral("2024"));
    EXPECT_EQ(text(form, "txtdelta"), proposed);
}

TEST_F(PhasePanel, TheYearIsTheNumberAtTheStartOfItsText) {
    frmphase form;
    const QString proposed = text(form, "txtdelta");
    enter(form, "txtyear", QStringLiteral("2024 CE"));
    EXPECT_EQ(text(form, "txtdelta"), proposed);
}

TEST_F(PhasePanel, DynamicalTimeTakesNoDeltaT) {
    frmphase form;
    click(form, "opttdt");
    EXPECT_FALSE(control(form, "txtdelta").isEnabled());
    click(form, "optut");
    EXPECT_TRUE(control(form, "txtdelta").isEnabled());
}

TEST_F(PhasePanel, AStoredDynamicalTimeLoadsWithTheBoxDisabled) {
    write_phase({"2024", true, false});
    frmphase form;
    EXPECT_FALSE(control(form, "txtdelta").isEnabled());
}

TEST_F(PhasePanel, FocusSelectsTheWholeText) {
    frmphase form;
    for (const char* name : {"txtyear", "txtdelta"})
        expect_focus_selects_text(form, name);
}

TEST_F(PhasePanel, CloseStoresWhatIsShown) {
    frmphase form;
    form.show();
    enter(form, "txtyear", QStringLiteral("1446 x"));
    click(form, "opttopo");
    click(form, "opttdt");
    click(form, "cmdclose");
    EXPECT_EQ(content("phase.vsk"), "\"1446 x\",#FALSE#,#FALSE#\r\n");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(PhasePanel, NothingButTheButtonStores) {
    expect_escape_stores_nothing<frmphase>("phase.vsk", [](QWidget& form) {
        enter(form, "txtyear", QStringLiteral("1900"));
        click(form, "opttopo");
    });
}

TEST_F(PhasePanel, AnOpenPanelHoldsDynamicalTimeUntilItIsClosed) {
    frmphase form;
    form.show();
    EXPECT_EQ(tdtinput, 1);
    click(form, "cmdclose");
    EXPECT_EQ(tdtinput, 0);
}

TEST_F(PhasePanel, ThePanelClosedInAnyOtherWayLeavesNoDynamicalTime) {
    {
        frmphase form;
        form.show();
        form.close();
        EXPECT_EQ(tdtinput, 0);
    }
    { const frmphase never_shown; }
    EXPECT_EQ(tdtinput, 0);
}

TEST_F(PhasePanel, AnOpenPanelDoesNotReachThePrayerReport) {
    CalculationDate date;
    date.one_day = true;
    date.system_date = false;
    date.start = date.end = {2024, 6, 21};
    write_date(date);
    RecordingProgress progress;
    Preferences seconds = read_pref();
    seconds.clock_precision = "0";
    write_pref(seconds);
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    const std::string alone = content("results.out");
    frmphase form;
    write_report(*prayer_run(loaded_theory(), machine_time()), progress);
    EXPECT_EQ(content("results.out"), alone);
    EXPECT_EQ(tdtinput, 1);
}

TEST_F(PhasePanel, APanelOpenedInMidRunReachesNoReport) {
    load_series();
    CalculationDate date;
    date.system_date = false;
    date.start = {2024, 6, 20};
    date.end = {2024, 6, 26};
    write_date(date);
    Preferences seconds = read_pref();
    seconds.clock_precision = "0";
    write_pref(seconds);
    static const EphemerisSettings six_hourly_day = [] {
        EphemerisSettings settings;
        settings.local_ut1 = true;
        settings.start_year = settings.end_year = 2024;
        settings.start_month = settings.end_month = 6;
        settings.start_day = 20;
        settings.end_day = 21;
        settings.interval = 6;
        settings.unit = 2;
        return settings;
    }();
    const RunPointer runs[] = {prayer_run(loaded_theory(), machine_time()),
                               moon_run(loaded_theory(), machine_time()),
                               qiblah_run(loaded_theory(), machine_time(), 160.7F, QiblahMark::sun),
                               ephemeris_run(loaded_theory(), six_hourly_day)};
    for (const RunPointer& run : runs) {
        const char* file = run->report_name();
        RecordingProgress silent;
        write_report(*run, silent);
        const std::string alone = content(file);
        std::optional<frmphase> form;
        RecordingProgress opening;
        opening.at_yield = [&form](int yield) {
            if (yield == 2)
                form.emplace();
        };
        write_report(*run, opening);
        EXPECT_EQ(content(file), alone) << file;
        EXPECT_EQ(tdtinput, 1) << file;
    }
}

TEST_F(PhasePanel, CalculateWritesTheReportAndShowsIt) {
    frmphase form;
    form.show();
    click(form, "cmdcalc");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"results.out"});
    EXPECT_TRUE(report_has("- Geocentric Phases of The Moon for The Year:  2024 CE\r\n"));
    EXPECT_TRUE(report_has("- Time Reference is Local (UT1),  Delta T: " +
                           text(form, "txtdelta").toStdString() + " Second(s)\r\n"));
    EXPECT_EQ(open_window("frmwait"), nullptr);
    EXPECT_EQ(tdtinput, 1);
}

// Astronomical Almanac 2024, universal time, moved to the clock of Amman (two hours ahead).
TEST_F(PhasePanel, ThePublishedPhasesOfAMonthStandInTheirColumns) {
    frmphase form;
    click(form, "cmdcalc");
    const std::string report = content("results.out");
    for (const char* phase :
         {"06/06/2024  14:38", "14/06/2024  07:18", "22/06/2024  03:08", "28/06/2024  23:53"})
        EXPECT_NE(report.find(phase), std::string::npos) << phase;
}

TEST_F(PhasePanel, TheChoicesOfThePanelReachTheReport) {
    frmphase form;
    enter(form, "txtyear", QStringLiteral("2023"));
    click(form, "opttopo");
    click(form, "opttdt");
    click(form, "cmdcalc");
    EXPECT_TRUE(report_has("- Topocentric Phases of The Moon for The Year:  2023 CE\r\n"));
    EXPECT_TRUE(report_has("- Time Reference is Local (TDT).\r\n"));
}

TEST_F(PhasePanel, AnOverrideOfZeroGivesTheClockOfDynamicalTime) {
    frmphase form;
    enter(form, "txtdelta", QStringLiteral("0"));
    click(form, "cmdcalc");
    EXPECT_TRUE(report_has("Delta T: 00.00 Second(s)"));
    const std::vector<std::string> overridden = rows();
    click(form, "opttdt");
    click(form, "cmdcalc");
    EXPECT_EQ(rows(), overridden);
    EXPECT_GE(overridden.size(), 12U);
}

TEST_F(PhasePanel, AnOverrideShiftsEveryClockByItsDifference) {
    frmphase form;
    enter(form, "txtdelta", QStringLiteral("0"));
    click(form, "cmdcalc");
    const bool at_14_39 = report_has("06/06/2024  14:39");
    enter(form, "txtdelta", QStringLiteral("3600"));
    click(form, "cmdcalc");
    EXPECT_TRUE(at_14_39);
    EXPECT_TRUE(report_has("06/06/2024  13:39"));
}

TEST_F(PhasePanel, ATopocentricTableDiffersFromTheGeocentricOne) {
    frmphase form;
    click(form, "cmdcalc");
    const std::vector<std::string> geocentric = rows();
    click(form, "opttopo");
    click(form, "cmdcalc");
    EXPECT_NE(rows(), geocentric);
    EXPECT_EQ(rows().size(), geocentric.size());
}

TEST_F(PhasePanel, AYearWithoutAWholeTableIsToldInItsBoxBeforeTheRun) {
    frmphase form;
    form.show();
    for (const QString& year :
         {QStringLiteral("99999"), QStringLiteral("7001"), QStringLiteral("-4001"), QString(300, u'9')}) {
        messages.clear();
        enter(form, "txtyear", year);
        EXPECT_EQ(text(form, "txtdelta"), QString()) << year.toStdString();
        click(form, "cmdcalc");
        ASSERT_EQ(messages.size(), 1U) << year.toStdString();
        EXPECT_TRUE(messages[0].text.endsWith(QStringLiteral("please enter a year from -4000 to 7000.")));
        EXPECT_EQ(form.focusWidget(), &control(form, "txtyear"));
        EXPECT_EQ(control<QLineEdit>(form, "txtyear").selectedText(), year);
    }
    EXPECT_FALSE(exists("results.out"));
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(PhasePanel, ADeltaTBeyondItsLimitIsToldInItsBoxUnlessItIsNotUsed) {
    set_language(Language::arabic);
    frmphase form;
    form.show();
    enter(form, "txtdelta", QStringLiteral("1000001"));
    click(form, "cmdcalc");
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, QStringLiteral("خطأ"));
    EXPECT_TRUE(messages[0].text.contains(QStringLiteral("1000000")));
    EXPECT_EQ(form.focusWidget(), &control(form, "txtdelta"));
    EXPECT_FALSE(exists("results.out"));
    click(form, "opttdt");
    click(form, "cmdcalc");
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_FALSE(rows().empty());
}

TEST_F(PhasePanel, AYearWithoutDigitsIsTheYearZero) {
    frmphase form;
    enter(form, "txtyear", QStringLiteral("year"));
    click(form, "cmdcalc");
    EXPECT_TRUE(report_has("Geocentric Phases of The Moon for The Year:  0000 CE"));
    EXPECT_FALSE(rows().empty());
    for (const std::string& row : rows())
        EXPECT_NE(row.find("/0000  "), std::string::npos) << row;
}

TEST_F(PhasePanel, ACancelledRunEndsTheReportAndDoesNotShowIt) {
    frmphase form;
    form.show();
    QTimer::singleShot(0, &form, [] { click(*open_window("frmwait"), "bcancel"); });
    click(form, "cmdcalc");
    EXPECT_TRUE(platform_double.shown_files.empty());
    EXPECT_LT(rows().size(), 12U);
    EXPECT_TRUE(report_has("- The Symbol '*' before the date, refers to Summer Time.\r\n"));
    EXPECT_EQ(open_window("frmwait"), nullptr);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(PhasePanel, APanelClosedAndDeletedDuringItsRunEndsTheRunInOrder) {
    auto* form = new frmphase;
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    QTimer::singleShot(0, form, [form] { click(*form, "cmdclose"); });
    click(*form, "cmdcalc");
    EXPECT_EQ(platform_double.shown_files, std::vector<std::string>{"results.out"});
    EXPECT_TRUE(report_has("31/12/2024  00:27\r\n")); // the year's last phase
    EXPECT_EQ(tdtinput, 0);
}

TEST_F(PhasePanel, TheReportIsEnglishInBothLanguages) {
    frmphase english;
    click(english, "cmdcalc");
    const std::string report = content("results.out");
    set_language(Language::arabic);
    frmphase arabic;
    click(arabic, "cmdcalc");
    EXPECT_EQ(content("results.out"), report);
}

TEST_F(PhasePanel, AMissingRecordIsAFailure) {
    remove("phase.vsk");
    EXPECT_ANY_THROW(frmphase form);
}

} // namespace
} // namespace halvane
