// SPDX-License-Identifier: MIT
#include "panel/frmwait.h"
#include "tests/panel/panelchecks.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <memory>
#include <optional>

namespace halvane {
namespace {

constexpr ControlText captions[] = {
    {"frmwait", "Please Wait!", "الرجاء الانتظار"},
    {"Label1", "Please Wait !", "الرجاء الانتظار"},
    {"Label2", "0 %", "0 %"},
    {"Label3", "100 %", "100 %"},
    {"lbllong", "Calculations for long period may take long time!",
     "الحسابات لفترة طويلة قد تحتاج بعض الدقائق"},
    {"bcancel", "&Cancel", "إلغاء"},
};

class WaitTest : public PanelTest {};

class WaitCaption : public WaitTest, public ::testing::WithParamInterface<ControlText> {};

TEST_P(WaitCaption, IsThatOfTheLanguage) {
    frmwait form;
    for (const Language language : languages) {
        set_language(language);
        form.load(QString());
        expect_caption(form, GetParam(), language);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, WaitCaption, ::testing::ValuesIn(captions), caption_name);

TEST_F(WaitTest, TheDesignShowsNothingDone) {
    frmwait form;
    EXPECT_EQ(caption(form, "lblpro1"), QStringLiteral("0 %"));
    EXPECT_EQ(control<QProgressBar>(form, "Pro1").minimum(), 0);
    EXPECT_EQ(control<QProgressBar>(form, "Pro1").maximum(), 100);
}

TEST_F(WaitTest, ARunStartsAtZeroAndShowsTheWindowWithoutBlocking) {
    waitcancel = -1;
    const WaitProgress run(QStringLiteral("Prayer Times"));
    QWidget* window = open_window("frmwait");
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(window->isModal());
    EXPECT_EQ(caption(*window, "lblpro1"), QStringLiteral("0"));
    EXPECT_EQ(caption(*window, "lblrun"), QStringLiteral("Prayer Times"));
    EXPECT_EQ(control<QProgressBar>(*window, "Pro1").value(), 0);
    EXPECT_EQ(waitcancel, 0);
}

TEST_F(WaitTest, ThePercentageIsShownAsItsWholePart) {
    WaitProgress run{QString()};
    QWidget& window = *open_window("frmwait");
    run.percent(41.99);
    EXPECT_EQ(caption(window, "lblpro1"), QStringLiteral("41 %"));
    EXPECT_EQ(control<QProgressBar>(window, "Pro1").value(), 41);
    run.percent(100);
    EXPECT_EQ(caption(window, "lblpro1"), QStringLiteral("100 %"));
}

TEST_F(WaitTest, TheWindowIsUnloadedAtTheEndOfTheRun) {
    { const WaitProgress run{QString()}; }
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(WaitTest, CancelSetsTheFlagUnloadsTheWindowAndEndsTheRun) {
    WaitProgress run{QString()};
    EXPECT_TRUE(run.yield());
    click(*open_window("frmwait"), "bcancel");
    EXPECT_EQ(waitcancel, -1);
    EXPECT_EQ(open_window("frmwait"), nullptr);
    EXPECT_FALSE(run.yield());
}

TEST_F(WaitTest, EscapeAndTheCloseBoxCancel) {
    WaitProgress first{QString()};
    QTest::keyClick(open_window("frmwait"), Qt::Key_Escape);
    EXPECT_FALSE(first.yield());
    WaitProgress second{QString()};
    EXPECT_TRUE(second.yield());
    open_window("frmwait")->close();
    EXPECT_FALSE(second.yield());
}

TEST_F(WaitTest, ACancelledRunIsNotShownAgainByItsLastSteps) {
    WaitProgress run{QString()};
    click(*open_window("frmwait"), "bcancel");
    run.percent(50);
    EXPECT_EQ(open_window("frmwait"), nullptr);
}

TEST_F(WaitTest, AnInnerRunLeavesTheWindowToTheOuterOne) {
    WaitProgress outer(QStringLiteral("outer"));
    { const WaitProgress inner(QStringLiteral("inner")); }
    QWidget* window = open_window("frmwait");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(caption(*window, "lblrun"), QStringLiteral("outer"));
    EXPECT_TRUE(outer.yield());
}

TEST_F(WaitTest, ARunStartedAfterACancelDoesNotReviveTheCancelledOne) {
    WaitProgress outer{QString()};
    click(*open_window("frmwait"), "bcancel");
    WaitProgress inner{QString()};
    EXPECT_TRUE(inner.yield());
    EXPECT_FALSE(outer.yield());
}

TEST_F(WaitTest, TheWindowIsPaintedBeforeTheWorkBegins) {
    QElapsedTimer time;
    time.start();
    const WaitProgress run{QString()};
    EXPECT_GE(time.elapsed(), 100);
    EXPECT_LT(time.elapsed(), 400);
}

TEST_F(WaitTest, TheWindowStandsInFrontOfItsOwnPanel) {
    QWidget panel;
    panel.setGeometry(100, 100, 700, 500);
    panel.show();
    QWidget other;
    other.show();
    const WaitProgress run(QStringLiteral("Prayer Times"), &panel);
    QWidget* window = open_window("frmwait");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowHandle()->transientParent(), panel.windowHandle());
    EXPECT_TRUE(panel.frameGeometry().contains(window->frameGeometry().center()));
    {
        const WaitProgress inner(QStringLiteral("inner"), &other);
        EXPECT_EQ(window->windowHandle()->transientParent(), other.windowHandle());
    }
    EXPECT_EQ(window->windowHandle()->transientParent(), panel.windowHandle());
}

/// A run whose panel waits for a settings panel.
class WaitUnderSettingsTest : public WaitTest {
protected:
    WaitUnderSettingsTest() {
        panel.show();
        run.emplace(QStringLiteral("Prayer Times"), &panel);
        window = open_window("frmwait");
        settings.setWindowModality(Qt::WindowModal);
        settings.show();
    }
    void SetUp() override { ASSERT_NE(window, nullptr); }
    ~WaitUnderSettingsTest() override { settings.close(); }

    QWidget panel;
    QDialog settings{&panel};
    std::optional<WaitProgress> run;
    QWidget* window = nullptr;
};

TEST_F(WaitUnderSettingsTest, CancelAnswers) {
    auto& cancel = control(*window, "bcancel");
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      cancel.mapTo(window, cancel.rect().center()));
    EXPECT_FALSE(run->yield());
}

TEST_F(WaitUnderSettingsTest, TheAccessKeyOfCancelAnswersToo) {
    // What an access key does: the button goes down, and up again by a timer.
    auto& cancel = dynamic_cast<QPushButton&>(control(*window, "bcancel"));
    cancel.animateClick();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !run->yield(); }));
}

TEST_F(WaitUnderSettingsTest, TheWindowStandsInFrontAgainOnceTheyAreGone) {
    EXPECT_TRUE(run->yield());
    settings.close();
    EXPECT_TRUE(run->yield());
    EXPECT_EQ(window->windowHandle()->transientParent(), panel.windowHandle());
}

TEST_F(WaitTest, ThePanelMayGoWhileItsRunGoesOn) {
    auto panel = std::make_unique<QWidget>();
    panel->show();
    WaitProgress run(QStringLiteral("Prayer Times"), panel.get());
    panel.reset();
    run.percent(50);
    EXPECT_TRUE(run.yield());
    EXPECT_NE(open_window("frmwait"), nullptr);
}

TEST_F(WaitTest, ThePanelSaysWhichRunGoesOnUntilItsEnd) {
    for (const Language language : languages) {
        set_language(language);
        QWidget panel;
        panel.resize(500, 300);
        panel.show();
        {
            WaitProgress run(QStringLiteral("Prayer Times"), &panel);
            run.percent(41.9);
            const auto& note = control<QLabel>(panel, "lblrunning");
            EXPECT_TRUE(note.isVisible());
            EXPECT_EQ(
                note.text(),
                text_of(running_words, language).arg(QStringLiteral("Prayer Times"), QStringLiteral("41")));
            EXPECT_TRUE(panel.rect().contains(note.geometry()));
            panel.resize(600, 400);
            EXPECT_EQ(note.geometry().bottom(), panel.rect().bottom());
            EXPECT_EQ(note.width(), panel.width());
        }
        EXPECT_EQ(panel.findChild<QLabel*>(QStringLiteral("lblrunning")), nullptr);
    }
}

TEST_F(WaitTest, TheTimeLeftIsToldOnceItIsSoundAndInTheLanguage) {
    for (const Language language : languages) {
        set_language(language);
        frmwait form;
        form.load(QString());
        EXPECT_EQ(caption(form, "lblleft"), QString());
        form.show_percent(0, 0);
        form.show_percent(1, 1);
        EXPECT_EQ(caption(form, "lblleft"), QString()) << "too early to tell";
        for (int second = 2; second <= 35; ++second)
            form.show_percent(second, second);
        const QString words = language == Language::english ? QStringLiteral("Time left: about ")
                                                            : QStringLiteral("الوقت المتبقي: نحو ");
        EXPECT_EQ(caption(form, "lblleft"), words + isolated(QStringLiteral("1:05")));
        form.show_percent(100, 40);
        EXPECT_EQ(caption(form, "lblleft"), QString()) << "what is left shows no progress of its own";
        form.show_percent(0, 41);
        form.load(QString());
        EXPECT_EQ(caption(form, "lblleft"), QString());
    }
}

TEST(RemainingTime, IsThatOfASteadyPace) {
    RemainingTime time;
    for (int step = 0; step <= 100; ++step)
        time.tell(step * 0.5, step * 0.2);
    ASSERT_TRUE(time.left());
    EXPECT_NEAR(*time.left(), 200, 1e-9); // 20 % in 50 s
}

TEST(RemainingTime, IsNotToldForARunThatSlowsDownOrStops) {
    RemainingTime slows;
    for (int second = 0; second <= 20; ++second)
        slows.tell(second, second < 10 ? second * 4.0 : 40 + (second - 10) * 0.5);
    EXPECT_FALSE(slows.left());
    RemainingTime stops;
    for (int second = 0; second <= 60; ++second)
        stops.tell(second, std::min(second, 20));
    EXPECT_FALSE(stops.left());
    for (int second = 61; second <= 200; ++second)
        stops.tell(second, 20 + (second - 60) * 0.4);
    EXPECT_TRUE(stops.left()) << "the pace is steady again";
}

TEST(RemainingTime, BeginsAnewWithAnotherRun) {
    RemainingTime time;
    for (int second = 0; second <= 50; ++second)
        time.tell(second, second);
    time.tell(51, 0);
    EXPECT_FALSE(time.left());
    for (int second = 52; second <= 60; ++second)
        time.tell(second, (second - 51) * 10);
    ASSERT_TRUE(time.left());
    EXPECT_NEAR(*time.left(), 1, 0.01);
}

TEST(RemainingTime, KeepsFewMomentsOfALongRun) {
    RemainingTime time;
    for (int row = 0; row <= 900000; ++row)
        time.tell(row * 0.01, row / 10000.0);
    ASSERT_TRUE(time.left());
    EXPECT_NEAR(*time.left(), 1000, 1);
}

class WaitBothLanguages : public WaitTest, public ::testing::WithParamInterface<Language> {};

TEST_P(WaitBothLanguages, EveryControlIsNamedReachedAndWhole) {
    set_language(GetParam());
    frmwait form;
    form.load(QString());
    expect_usable(form);
    expect_captions(form, frmwait_twins(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(In, WaitBothLanguages, ::testing::ValuesIn(languages), language_name);

} // namespace
} // namespace halvane
