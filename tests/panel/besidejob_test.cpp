// SPDX-License-Identifier: MIT
#include "panel/besidejob.h"

#include "base/failure.h"
#include "panel/besidework.h"

#include <QSignalSpy>
#include <QTest>
#include <QThreadPool>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

namespace halvane {
namespace {

constexpr int patience = 10000;  // [ms]
constexpr int a_few_looks = 100; // [ms]

void wait_a_moment() {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

/// Works until it learns of its cancel.
void work_until_cancelled(Progress& progress) {
    while (progress.yield())
        wait_a_moment();
}

std::string words_of(const std::exception_ptr& failure) {
    try {
        if (failure)
            std::rethrow_exception(failure);
    } catch (const RunTimeFailure& known) {
        return known.what();
    }
    return {};
}

TEST(BesideJob, GivesItsResultAtTheEnd) {
    BesideJob job;
    QSignalSpy ended(&job, &BesideJob::ended);
    const auto result = std::make_shared<int>(0);
    std::thread::id thread;
    job.start([result, &thread](Progress& /*progress*/) {
        *result = 42;
        thread = std::this_thread::get_id();
    });
    EXPECT_TRUE(job.is_running());
    ASSERT_TRUE(ended.wait(patience));
    EXPECT_EQ(*result, 42);
    EXPECT_NE(thread, std::this_thread::get_id());
    EXPECT_FALSE(job.is_running());
    EXPECT_EQ(job.failure(), nullptr);
    QTest::qWait(a_few_looks);
    EXPECT_EQ(ended.count(), 1);
}

TEST(BesideJob, TellsHowFarItIs) {
    BesideJob job;
    QSignalSpy advanced(&job, &BesideJob::advanced);
    job.start([](Progress& progress) {
        progress.percent(40.7);
        work_until_cancelled(progress);
    });
    EXPECT_TRUE(QTest::qWaitFor(
        [&advanced] { return !advanced.isEmpty() && advanced.last().at(0).toInt() == 40; }, patience));
}

TEST(BesideJob, KeepsAFailureUntilTheNextStart) {
    BesideJob job;
    QSignalSpy ended(&job, &BesideJob::ended);
    job.start([](Progress& /*progress*/) { throw RunTimeFailure(TwinWords{"No paper.", "لا ورق."}); });
    ASSERT_TRUE(ended.wait(patience));
    EXPECT_EQ(words_of(job.failure()), "No paper.");
    job.start([](Progress& /*progress*/) {});
    EXPECT_EQ(job.failure(), nullptr);
    ASSERT_TRUE(ended.wait(patience));
    EXPECT_EQ(job.failure(), nullptr);
}

TEST(BesideJob, ASecondStartDropsTheSignalsOfTheFirst) {
    BesideJob job;
    QSignalSpy ended(&job, &BesideJob::ended);
    QSignalSpy advanced(&job, &BesideJob::advanced);
    std::atomic<bool> began = false;
    job.start([&began](Progress& progress) {
        began = true;
        work_until_cancelled(progress);
        progress.percent(77);
        throw RunTimeFailure(TwinWords{"The first.", "الأول."});
    });
    ASSERT_TRUE(QTest::qWaitFor([&began] { return began.load(); }, patience));
    std::atomic<bool> second_is_done = false;
    job.start([&second_is_done](Progress& /*progress*/) { second_is_done = true; });
    ASSERT_TRUE(ended.wait(patience));
    EXPECT_TRUE(second_is_done);
    EXPECT_EQ(job.failure(), nullptr);
    QTest::qWait(a_few_looks);
    EXPECT_EQ(ended.count(), 1);
    for (const QList<QVariant>& signal : advanced)
        EXPECT_NE(signal.at(0).toInt(), 77);
}

TEST(BesideJob, AWorkThatHasNotBegunGivesWayToTheNext) {
    std::atomic<bool> began = false;
    std::atomic<bool> may_end = false;
    std::atomic<bool> second_began = false;
    BesideJob job;
    QSignalSpy ended(&job, &BesideJob::ended);
    job.start([&](Progress& /*progress*/) {
        began = true;
        while (!may_end)
            wait_a_moment();
    });
    ASSERT_TRUE(QTest::qWaitFor([&began] { return began.load(); }, patience));
    job.start([&second_began](Progress& /*progress*/) { second_began = true; });
    job.start([](Progress& /*progress*/) {});
    may_end = true;
    ASSERT_TRUE(ended.wait(patience));
    EXPECT_FALSE(second_began);
}

TEST(BesideJob, ACancelledWorkLearnsOfItAndEndsWithoutASignal) {
    BesideJob job;
    QSignalSpy ended(&job, &BesideJob::ended);
    QSignalSpy advanced(&job, &BesideJob::advanced);
    std::atomic<bool> began = false;
    std::atomic<bool> learned = false;
    job.start([&](Progress& progress) {
        began = true;
        work_until_cancelled(progress);
        learned = true;
    });
    ASSERT_TRUE(QTest::qWaitFor([&began] { return began.load(); }, patience));
    job.cancel();
    EXPECT_FALSE(job.is_running());
    const auto told_before = advanced.count();
    EXPECT_TRUE(QTest::qWaitFor([&learned] { return learned.load(); }, patience));
    QTest::qWait(a_few_looks);
    EXPECT_EQ(ended.count(), 0);
    EXPECT_EQ(advanced.count(), told_before);
}

TEST(BesideJob, ItsEndWaitsForTheWorkUnderWay) {
    std::atomic<bool> began = false;
    std::atomic<bool> is_over = false;
    {
        BesideJob job;
        job.start([&](Progress& progress) {
            began = true;
            work_until_cancelled(progress);
            std::this_thread::sleep_for(std::chrono::milliseconds(a_few_looks));
            is_over = true;
        });
        ASSERT_TRUE(QTest::qWaitFor([&began] { return began.load(); }, patience));
    }
    EXPECT_TRUE(is_over);
}

/// Cancels at its third question, if it does at all.
class ThirdQuestion final : public Progress {
public:
    explicit ThirdQuestion(bool cancels) : cancels_(cancels) {}
    void percent(double /*value*/) override {}
    bool yield() override { return ++questions < 3 || !cancels_; }

    int questions = 0;

private:
    bool cancels_;
};

TEST(MadeBeside, GivesTheBytes) {
    ThirdQuestion progress(false);
    const std::string bytes("a\0b\xff", 4);
    EXPECT_EQ(made_beside([bytes] { return bytes; }, progress), bytes);
}

TEST(MadeBeside, AnswersWhileItIsMade) {
    ThirdQuestion progress(false);
    const auto is_made = std::make_shared<std::atomic<bool>>(false);
    QTimer::singleShot(a_few_looks, [is_made] { *is_made = true; });
    const auto work = [is_made] {
        while (!*is_made)
            wait_a_moment();
        return std::string("made");
    };
    EXPECT_EQ(made_beside(work, progress), "made");
    EXPECT_GT(progress.questions, 0);
}

TEST(MadeBeside, RaisesWhatTheWorkRaises) {
    ThirdQuestion progress(false);
    const auto work = []() -> std::string { throw RunTimeFailure(TwinWords{"No paper.", "لا ورق."}); };
    EXPECT_THROW(made_beside(work, progress), RunTimeFailure);
}

TEST(MadeBeside, ACancelWaitsForNothing) {
    ThirdQuestion progress(true);
    const auto may_end = std::make_shared<std::atomic<bool>>(false);
    const auto work = [may_end] {
        while (!*may_end)
            wait_a_moment();
        return std::string("late");
    };
    EXPECT_EQ(made_beside(work, progress), std::nullopt);
    EXPECT_EQ(progress.questions, 3);
    *may_end = true;
    EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(patience));
}

} // namespace
} // namespace halvane
