#include "app/frmwait.h"
#include "tests/panel/panelchecks.h"

#include <QElapsedTimer>
#include <QProgressBar>

namespace halvane {
namespace {

constexpr Twin captions[] = {
    {"frmwait", "Please Wait!", "الرجاء الانتظار"},
    {"Label1", "Please Wait !", "الرجاء الانتظار"},
    {"Label2", "0 %", "0 %"},
    {"Label3", "100 %", "100 %"},
    {"lbllong", "Calculations for long period may take long time!",
     "الحسابات لفترة طويلة قد تحتاج بعض الدقائق"},
    {"bcancel", "&Cancel", "إلغاء"},
};

class WaitTest : public PanelTest {};

class WaitCaption : public WaitTest, public ::testing::WithParamInterface<Twin> {};

TEST_P(WaitCaption, IsThatOfTheLanguage) {
    frmwait form;
    for (const Language language : both_languages) {
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

class WaitBothLanguages : public WaitTest, public ::testing::WithParamInterface<Language> {};

TEST_P(WaitBothLanguages, EveryControlIsNamedReachedAndWhole) {
    set_language(GetParam());
    frmwait form;
    form.load(QString());
    expect_usable(form);
    expect_captions(form, frmwait_twins(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(In, WaitBothLanguages, ::testing::ValuesIn(both_languages), language_name);

} // namespace
} // namespace halvane
