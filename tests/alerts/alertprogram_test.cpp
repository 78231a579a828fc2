// SPDX-License-Identifier: MIT
#include "alerts/alertprogram.h"

#include "alerts/onlycopy.h"
#include "base/failure.h"
#include "ephemeris/series.h"
#include "panel/panelstyle.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/alert.h"
#include "stored/loc.h"
#include "tests/alerts/testclock.h"
#include "tests/panel/panelharness.h"
#include "tests/support/places.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTimer>
#include <QtEndian>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>

namespace halvane {
namespace {

using namespace std::chrono_literals;
using Time = TestClock::Time;

/// Sounds that are written down.
class RecordingSounds : public AlertSounds {
public:
    bool has_device() override { return device; }
    void play(Athan athan) override { played.push_back(athan); }
    void beep() override { ++beeps; }
    void stop() override { ++stops; }

    bool device = true;
    std::vector<Athan> played;
    int beeps = 0;
    int stops = 0;
};

class AlertProgramTest : public PanelTest {
protected:
    AlertProgramTest() {
        load_term();
        load_mterm();
        AlertSettings settings;
        settings.beep = 1;
        settings.window_and_athan = 1;
        settings.asr_mecca = false;
        write_alert(settings);
    }
    static QString text(AlertProgram& program, const char* name) {
        return control<QLabel>(program.alert_window(), name).text();
    }
    static void run(AlertProgram& program, Time from, Time to) {
        for (Time time = from; time < to; time += 1s) {
            set_machine_time(TestClock::shown(time));
            program.tick();
        }
    }

    /// Whether window and tray tell that the file `name` cannot be read.
    static bool is_told(AlertProgram& program, const char* name) {
        QWidget& window = program.main_window();
        const bool in_window = control(window, "lbltrouble").isVisibleTo(&window);
        EXPECT_EQ(program.tray().toolTip().count(u'\n'), in_window ? 2 : 1);
        const QList<QAction*> actions = program.tray_menu().actions();
        EXPECT_EQ(std::count_if(actions.begin(), actions.end(),
                                [](const QAction* one) { return one->isVisible() && !one->isSeparator(); }),
                  in_window ? 3 : 2);
        return in_window && caption(window, "lbltrouble").contains(QLatin1String(name));
    }

    RecordingSounds sounds;
    // Aser of the test's place is at 15:21 on this day.
    Time before_aser = TestClock::at(2024, 6, 21, 15, 5);
    Time after_aser = TestClock::at(2024, 6, 21, 15, 25);
};

TEST_F(AlertProgramTest, TenDaysSoundEveryPrayerOnce) {
    AlertProgram program(sounds);
    int windows = 0;
    QObject::connect(&program.alert_window(), &QWidget::windowTitleChanged, [&] { ++windows; });
    const Time from = TestClock::at(2024, 3, 27);
    run(program, from, from + 240h);
    EXPECT_EQ(sounds.played.size(), 50U);
    EXPECT_EQ(sounds.beeps, 50);
    EXPECT_EQ(windows, 50);
    EXPECT_EQ(std::count(sounds.played.begin(), sounds.played.end(), Athan::jerusalem), 20)
        << "ten of Fajer, ten of Aser";
}

TEST_F(AlertProgramTest, TheWindowTellsPrayerTimePlaceAndTheNextOne) {
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    ASSERT_TRUE(program.alert_window().isVisible());
    EXPECT_EQ(text(program, "lblheading"), QStringLiteral("It is time for the Aser prayer"));
    EXPECT_TRUE(text(program, "lbltime").startsWith(QStringLiteral("15:")));
    EXPECT_EQ(text(program, "lblplace"), QStringLiteral("Amman"));
    EXPECT_TRUE(text(program, "lblnext").startsWith(QStringLiteral("Next: Maghreb")));
    EXPECT_FALSE(control(program.alert_window(), "lblnotice").isVisible());
    EXPECT_EQ(sounds.played, std::vector<Athan>{Athan::jerusalem});
    EXPECT_EQ(sounds.beeps, 1);
    const bool kept =
        std::any_of(platform_double.kept_on_top.begin(), platform_double.kept_on_top.end(),
                    [&](const auto& one) { return one.panel == &program.alert_window() && one.on_top; });
    EXPECT_TRUE(kept);
}

TEST_F(AlertProgramTest, TheWindowIsArabicInArabic) {
    set_language(Language::arabic);
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    EXPECT_EQ(text(program, "lblheading"), QStringLiteral("حان الآن موعد صلاة العصر"));
    EXPECT_TRUE(text(program, "lblnext").startsWith(QStringLiteral("الصلاة التالية: المغرب")));
    EXPECT_EQ(program.alert_window().layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(caption(program.main_window(), "cmdquit"), QStringLiteral("إ&نهاء"));
}

TEST_F(AlertProgramTest, AllTextsHaveRoomInBothLanguages) {
    sounds.device = false;
    for (const Language language : languages) {
        set_language(language);
        AlertProgram program(sounds);
        run(program, before_aser, after_aser);
        QCoreApplication::processEvents();
        EXPECT_EQ(cut_texts(program.alert_window()), QStringList());
        EXPECT_EQ(nameless_controls(program.alert_window()), QStringList());
    }
}

TEST_F(AlertProgramTest, AClickClosesTheWindowAndEndsTheAthan) {
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    QTest::mouseClick(&control(program.alert_window(), "lblheading"), Qt::LeftButton);
    EXPECT_FALSE(program.alert_window().isVisible());
    EXPECT_EQ(sounds.stops, 1);
}

TEST_F(AlertProgramTest, TheButtonAndEscapeCloseTheWindow) {
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    click(program.alert_window(), "cmdclose");
    EXPECT_FALSE(program.alert_window().isVisible());
    run(program, TestClock::at(2024, 6, 21, 18, 40), TestClock::at(2024, 6, 21, 19, 0));
    ASSERT_TRUE(program.alert_window().isVisible());
    QTest::keyClick(&program.alert_window(), Qt::Key_Escape);
    EXPECT_FALSE(program.alert_window().isVisible());
}

TEST_F(AlertProgramTest, TheWindowClosesByItselfAfterFiveMinutes) {
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    auto& timer = *program.alert_window().findChild<QTimer*>(QStringLiteral("timerclose"));
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), 5 * 60 * 1000);
    timer.setInterval(1);
    QTest::qWait(100);
    EXPECT_FALSE(program.alert_window().isVisible());
}

TEST_F(AlertProgramTest, AMissingSoundDeviceIsToldOnce) {
    sounds.device = false;
    AlertProgram program(sounds);
    run(program, before_aser, TestClock::at(2024, 6, 21, 15, 15));
    ASSERT_TRUE(program.alert_window().isVisible()) << "the beep cannot be heard, so the window tells why";
    EXPECT_EQ(text(program, "lblheading"), QStringLiteral("The Aser prayer is near"));
    EXPECT_EQ(text(program, "lblnotice"), no_sound_words(Language::english));
    run(program, TestClock::at(2024, 6, 21, 15, 15), after_aser);
    EXPECT_EQ(text(program, "lblheading"), QStringLiteral("It is time for the Aser prayer"));
    EXPECT_EQ(text(program, "lblnotice"), QString());
    EXPECT_TRUE(sounds.played.empty());
    EXPECT_EQ(sounds.beeps, 0);
}

TEST_F(AlertProgramTest, ABeepAloneShowsNoWindow) {
    write_alert(AlertSettings{1, 10, 0, 0, true, true, true, true});
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    EXPECT_EQ(sounds.beeps, 1);
    EXPECT_FALSE(program.alert_window().isVisible());
}

TEST_F(AlertProgramTest, TheWindowAloneIsSilent) {
    write_alert(AlertSettings{0, 10, 0, 1, true, true, true, true});
    sounds.device = false;
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    EXPECT_TRUE(program.alert_window().isVisible());
    EXPECT_EQ(text(program, "lblnotice"), QString()) << "no sound was wanted";
    EXPECT_TRUE(sounds.played.empty());
}

TEST_F(AlertProgramTest, TheMainWindowTellsTheNextPrayer) {
    AlertProgram program(sounds);
    EXPECT_EQ(program.main_window().windowTitle(), QStringLiteral("Halvane Alerts"));
    run(program, before_aser, before_aser + 1s);
    EXPECT_TRUE(caption(program.main_window(), "lblcoming").startsWith(QStringLiteral("Next: Aser")));
    run(program, before_aser + 1s, after_aser);
    EXPECT_TRUE(caption(program.main_window(), "lblcoming").startsWith(QStringLiteral("Next: Maghreb")));
}

TEST_F(AlertProgramTest, AChangedLanguageIsTakenUpWithinAMinute) {
    AlertProgram program(sounds);
    run(program, before_aser, before_aser + 5s);
    set_language(Language::arabic);
    run(program, before_aser + 5s, before_aser + 60s);
    EXPECT_TRUE(
        caption(program.main_window(), "lblcoming").startsWith(QStringLiteral("الصلاة التالية: العصر")));
}

TEST_F(AlertProgramTest, ADamagedFileIsAFailure) {
    AlertProgram program(sounds);
    put("alert.vsk", "1,10\r\n");
    EXPECT_THROW(program.start(), RunTimeFailure);
}

TEST_F(AlertProgramTest, SettingsThatCannotBeReadForAWhileDoNotEndTheAlerts) {
    set_language(Language::arabic);
    AlertProgram program(sounds);
    run(program, before_aser, before_aser + 20s);
    for (const char* name : {"pref.vsk", "loc.vsk", "alert.vsk", "date.vsk"}) {
        SCOPED_TRACE(name);
        const std::string sound = content(name);
        remove(name);
        EXPECT_NO_THROW(run(program, before_aser + 20s, before_aser + 34s));
        const bool read_for_a_new_date_only = std::string(name) == "date.vsk";
        EXPECT_EQ(is_told(program, name), !read_for_a_new_date_only);
        put(name, sound);
        run(program, before_aser + 34s, before_aser + 54s);
        EXPECT_FALSE(is_told(program, name));
    }
    remove("pref.vsk");
    put("loc.vsk", "\"Amman\",35\r\n");
    run(program, before_aser + 54s, after_aser);
    EXPECT_EQ(sounds.played.size(), 1U) << "by the last sound settings";
    EXPECT_EQ(text(program, "lblheading"), QStringLiteral("حان الآن موعد صلاة العصر"));
    EXPECT_EQ(text(program, "lblplace"), QStringLiteral("Amman"));
}

TEST_F(AlertProgramTest, TheTrayHoldsAnIcon) {
    QPixmap picture(16, 16);
    picture.fill(Qt::darkGreen);
    QApplication::setWindowIcon(QIcon(picture));
    AlertProgram program(sounds);
    EXPECT_FALSE(program.tray().isVisible());
    program.start();
    QApplication::setWindowIcon(QIcon());
    EXPECT_TRUE(program.tray().isVisible());
    EXPECT_FALSE(program.tray().icon().isNull());
    EXPECT_EQ(program.tray().contextMenu(), &program.tray_menu());
}

TEST_F(AlertProgramTest, TheMenuOfTheTrayIsRightToLeftInArabicAndBreaksNoLetters) {
    set_language(Language::arabic);
    AlertProgram program(sounds);
    run(program, before_aser, before_aser + 1s);
    EXPECT_EQ(program.tray_menu().layoutDirection(), Qt::RightToLeft);
    QStringList texts;
    for (const QAction* action : program.tray_menu().actions())
        texts << action->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("إنهاء"))) << texts.join(u'|').toStdString();
    EXPECT_EQ(texts.filter(QStringLiteral("&")), QStringList());
}

TEST_F(AlertProgramTest, WithoutATrayTheWindowSaysThatClosingHidesItAndComesBack) {
    AlertProgram program(sounds, [] { return false; });
    run(program, before_aser, before_aser + 1s);
    QWidget& window = program.main_window();
    EXPECT_TRUE(window.isVisible()) << "minimised";
    EXPECT_TRUE(control(window, "lblhint").isVisibleTo(&window));
    EXPECT_TRUE(caption(window, "lblhint").contains(QStringLiteral("Closing this window only hides it")));
    EXPECT_TRUE(control(window, "cmdquit").isVisibleTo(&window)) << "the offer to end it";
    window.close();
    run(program, before_aser + 1s, before_aser + 60s);
    EXPECT_FALSE(window.isVisible()) << "hidden means hidden";
    program.show_main_window();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isMinimized());
    QCoreApplication::processEvents();
    EXPECT_EQ(cut_texts(window), QStringList());
}

TEST_F(AlertProgramTest, ATrayThatComesAndGoesLeavesAWayToQuit) {
    bool tray = false;
    AlertProgram program(sounds, [&] { return tray; });
    QWidget& window = program.main_window();
    run(program, before_aser, before_aser + 1s);
    EXPECT_TRUE(window.isVisible());
    tray = true;
    run(program, before_aser + 1s, before_aser + 15s);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(control(window, "lblhint").isVisibleTo(&window));
    tray = false;
    run(program, before_aser + 15s, before_aser + 30s);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(control(window, "lblhint").isVisibleTo(&window));
}

TEST_F(AlertProgramTest, APlaceOnAnotherClockIsToldWithItsZone) {
    AlertProgram program(sounds);
    run(program, before_aser, before_aser + 1s);
    EXPECT_EQ(caption(program.main_window(), "lblplace"), QStringLiteral("Amman"));
    set_machine_zone(0);
    run(program, before_aser - 2h, before_aser - 2h + 11s);
    EXPECT_EQ(caption(program.main_window(), "lblplace"), QStringLiteral("Amman (UTC+2)"));
    run(program, before_aser - 2h + 11s, after_aser - 2h);
    EXPECT_EQ(sounds.played.size(), 1U) << "Aser, two hours earlier by the machine's clock";
    EXPECT_EQ(text(program, "lblplace"), QStringLiteral("Amman (UTC+2)"));
}

TEST_F(AlertProgramTest, NamesAreTextAndLongOnesKeepTheWindowsWidth) {
    AlertProgram plain(sounds);
    run(plain, before_aser, after_aser);
    write_loc(place_at({35, 56}, {31, 57}, 2, ("<h1>" + std::string(180, 'x') + "</h1>").c_str()));
    AlertProgram program(sounds);
    run(program, before_aser, after_aser);
    EXPECT_EQ(control<QLabel>(program.alert_window(), "lblplace").textFormat(), Qt::PlainText);
    EXPECT_EQ(program.alert_window().size(), plain.alert_window().size());
    EXPECT_EQ(program.main_window().sizeHint().height(), plain.main_window().sizeHint().height());
    EXPECT_LT(program.main_window().sizeHint().width(), 40 * space_unit(program.main_window()) + 100);
    EXPECT_LT(program.tray().toolTip().size(), 100);
}

TEST(OnlyCopyOfTheAlerts, ASecondOneAsksTheFirstToShow) {
    const QTemporaryDir folder;
    OnlyCopy first(folder.path());
    EXPECT_TRUE(first.is_first());
    int asked = 0;
    QObject::connect(&first, &OnlyCopy::asked_to_show, [&] { ++asked; });
    OnlyCopy second(folder.path());
    EXPECT_FALSE(second.is_first());
    EXPECT_TRUE(second.ask_first_to_show());
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 1; }));
}

TEST(OnlyCopyOfTheAlerts, ACopyThatListensNotIsNoReasonToWaitForEver) {
    const QTemporaryDir folder;
    OnlyCopy alone(folder.path());
    EXPECT_FALSE(alone.ask_first_to_show());
}

TEST(OnlyCopyOfTheAlerts, TheSocketOfADeadCopyIsReplaced) {
    const QTemporaryDir folder;
    QFile dead(folder.filePath(QStringLiteral("halvane-alerts.socket")));
    ASSERT_TRUE(dead.open(QIODevice::WriteOnly));
    OnlyCopy first(folder.path());
    EXPECT_TRUE(first.is_first());
    EXPECT_TRUE(first.ask_first_to_show());
}

TEST_F(AlertProgramTest, TheUsersRecordingsTakeThePlaceOfTheChime) {
    EXPECT_EQ(athan_file(Athan::mecca), "chime.wav");
    put("mecca.wav", "RIFF");
    EXPECT_EQ(athan_file(Athan::mecca), "mecca.wav");
    EXPECT_EQ(athan_file(Athan::jerusalem), "chime.wav");
    put("jerusalem.wav", "RIFF");
    EXPECT_EQ(athan_file(Athan::jerusalem), "jerusalem.wav");
}

/// The loudest sample of a delivered sound, 0 to 1.
double peak_of(const QByteArray& wave) {
    int peak = 0;
    for (qsizetype at = 44; at + 1 < wave.size(); at += 2)
        peak = std::max(peak, std::abs(static_cast<int>(qFromLittleEndian<qint16>(wave.constData() + at))));
    return peak / 32767.0;
}

TEST(DeliveredSounds, AreSmallPlainWavesThatNeitherClipNorWhisper) {
    for (const char* name : {"chime.wav", "beep.wav"}) {
        QFile file(QStringLiteral(HALVANE_DATA "/") + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const QByteArray wave = file.readAll();
        EXPECT_LT(wave.size(), 300000) << name;
        EXPECT_EQ(wave.left(4), "RIFF");
        EXPECT_EQ(wave.mid(8, 8), "WAVEfmt ");
        EXPECT_EQ(qFromLittleEndian<quint16>(wave.constData() + 20), 1) << "PCM";
        EXPECT_EQ(qFromLittleEndian<quint16>(wave.constData() + 34), 16) << "bits";
        EXPECT_GT(peak_of(wave), 0.3) << name;
        EXPECT_LT(peak_of(wave), 0.9) << name;
        EXPECT_LT(std::abs(static_cast<int>(qFromLittleEndian<qint16>(wave.constData() + wave.size() - 2))),
                  50)
            << "ends in silence";
    }
}

} // namespace
} // namespace halvane
