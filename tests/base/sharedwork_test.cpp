// SPDX-License-Identifier: MIT
#include "base/sharedwork.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace halvane {
namespace {

constexpr std::chrono::milliseconds short_while(1);
constexpr std::size_t many = 20000; ///< pieces: more than are done in any test that gives up

/// Calls a function at each question.
class AskedProgress final : public Progress {
public:
    explicit AskedProgress(std::function<bool()> answer) : answer_(std::move(answer)) {}
    void percent(double value) override {
        told.push_back(value);
        threads.push_back(std::this_thread::get_id());
    }
    bool yield() override { return answer_(); }

    std::vector<double> told;
    std::vector<std::thread::id> threads;

private:
    std::function<bool()> answer_;
};

/// Each thread does the same for a piece.
std::function<DoPiece()> each_does(const DoPiece& do_piece) {
    return [do_piece] { return do_piece; };
}

TEST(SharedWork, NoPiecesAreDoneAtOnce) {
    NoProgress progress;
    int begun = 0;
    const auto begin = [&begun]() -> DoPiece {
        ++begun;
        return [](std::size_t /*piece*/) {};
    };
    EXPECT_TRUE(share_work(0, begin, progress));
    EXPECT_EQ(begun, 0);
}

TEST(SharedWork, EachPieceIsDoneOnce) {
    for (const std::size_t pieces : {std::size_t{1}, std::size_t{2}, std::size_t{1000}}) {
        std::vector<std::atomic<int>> times(pieces);
        NoProgress progress;
        EXPECT_TRUE(share_work(pieces, each_does([&times](std::size_t piece) { ++times[piece]; }), progress));
        for (std::size_t piece = 0; piece < pieces; ++piece)
            EXPECT_EQ(times[piece], 1) << piece << " of " << pieces;
    }
}

TEST(SharedWork, TellsHowFarItIsOnTheCallingThread) {
    AskedProgress progress([] { return true; });
    EXPECT_TRUE(
        share_work(50, each_does([](std::size_t) { std::this_thread::sleep_for(short_while); }), progress));
    ASSERT_FALSE(progress.told.empty());
    for (std::size_t i = 1; i < progress.told.size(); ++i)
        EXPECT_GE(progress.told[i], progress.told[i - 1]);
    EXPECT_EQ(progress.told.back(), 100);
    for (const std::thread::id& thread : progress.threads)
        EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST(SharedWork, TellsTheEndOfAWorkThatEndsWhileItsProgressIsAsked) {
    constexpr std::size_t pieces = 4;
    std::atomic<bool> asked = false;
    std::atomic<std::size_t> done = 0;
    AskedProgress progress([&] {
        asked = true;
        while (done < pieces)
            std::this_thread::sleep_for(short_while);
        std::this_thread::sleep_for(100 * short_while); // the threads end too
        return true;
    });
    const DoPiece do_piece = [&](std::size_t /*piece*/) {
        while (!asked)
            std::this_thread::sleep_for(short_while);
        ++done;
    };
    EXPECT_TRUE(share_work(pieces, each_does(do_piece), progress));
    ASSERT_FALSE(progress.told.empty());
    EXPECT_EQ(progress.told.front(), 0);
    EXPECT_EQ(progress.told.back(), 100);
}

TEST(SharedWork, TheFirstFailureIsRaisedAndEndsTheWork) {
    std::atomic<std::size_t> done = 0;
    std::atomic<bool> failed = false;
    const DoPiece do_piece = [&](std::size_t piece) {
        if (piece == 0) {
            failed = true;
            throw std::runtime_error("the first");
        }
        while (!failed)
            std::this_thread::sleep_for(short_while);
        std::this_thread::sleep_for(200 * short_while); // the first is kept by then
        if (piece < 3)
            throw std::runtime_error("a later one");
        ++done;
    };
    NoProgress progress;
    try {
        share_work(many, each_does(do_piece), progress);
        FAIL() << "nothing is raised";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "the first");
    }
    EXPECT_LT(done, many / 2);
}

TEST(SharedWork, AFailureBeforeTheFirstPieceIsRaised) {
    NoProgress progress;
    const auto begin = []() -> DoPiece { throw std::runtime_error("no beginning"); };
    EXPECT_THROW(share_work(10, begin, progress), std::runtime_error);
}

TEST(SharedWork, AFailingProgressIsRaisedOnceAllThreadsHaveEnded) {
    std::atomic<std::size_t> done = 0;
    AskedProgress progress([]() -> bool { throw std::logic_error("nobody asks"); });
    const DoPiece do_piece = [&done](std::size_t /*piece*/) {
        std::this_thread::sleep_for(short_while);
        ++done;
    };
    EXPECT_THROW(share_work(many, each_does(do_piece), progress), std::logic_error);
    const std::size_t at_the_end = done;
    EXPECT_LT(at_the_end, many / 2);
    std::this_thread::sleep_for(50 * short_while);
    EXPECT_EQ(done, at_the_end) << "a thread is left";
}

TEST(SharedWork, ACancelEndsItWithThePiecesUnderWay) {
    std::atomic<std::size_t> begun = 0;
    std::atomic<std::size_t> done = 0;
    AskedProgress progress([&begun] { return begun == 0; });
    const DoPiece do_piece = [&](std::size_t /*piece*/) {
        ++begun;
        std::this_thread::sleep_for(short_while);
        ++done;
    };
    EXPECT_FALSE(share_work(many, each_does(do_piece), progress));
    EXPECT_EQ(done, begun);
    EXPECT_LT(done, many / 2);
}

} // namespace
} // namespace halvane
