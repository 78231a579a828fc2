// SPDX-License-Identifier: MIT
#include "base/sharedwork.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/resource.h>
#include <system_error>
#include <unistd.h>

namespace halvane {
namespace {

/// A system that has room for so many threads more. Kept by the process that asks: a test asks in one of its
/// own.
void leave_room_for(unsigned threads) {
    constexpr rlim_t stack = 64U << 20U;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stack);
    pthread_setattr_default_np(&attributes);
    std::ifstream file("/proc/self/statm");
    rlim_t pages = 0;
    file >> pages;
    const rlim_t room = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + stack / 2 + threads * stack;
    const rlimit memory{room, room};
    ::setrlimit(RLIMIT_AS, &memory);
}

class SharedWorkDeathTest : public ::testing::Test {
protected:
    void SetUp() override {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "sanitizers need more memory than is left";
#endif
        GTEST_FLAG_SET(death_test_style, "threadsafe");
    }
};

/// How a work of 100 pieces ends there: 0 when one thread has done all, 1 when none was started.
[[noreturn]] void work_with_room_for(unsigned threads) {
    leave_room_for(threads);
    std::atomic<std::size_t> done = 0;
    std::atomic<std::size_t> begun = 0;
    const auto begin = [&]() -> DoPiece {
        ++begun;
        return [&done](std::size_t /*piece*/) { ++done; };
    };
    NoProgress progress;
    try {
        const bool is_done = share_work(100, begin, progress);
        std::_Exit(is_done && done == 100 && begun == 1 ? 0 : 2);
    } catch (const std::system_error&) {
        std::_Exit(begun == 0 ? 1 : 3);
    }
}

TEST_F(SharedWorkDeathTest, TheThreadsThatTheSystemStartsDoAll) {
    EXPECT_EXIT(work_with_room_for(1), testing::ExitedWithCode(0), "");
}

TEST_F(SharedWorkDeathTest, NoThreadAtAllIsAFailure) {
    EXPECT_EXIT(work_with_room_for(0), testing::ExitedWithCode(1), "");
}

} // namespace
} // namespace halvane
