// SPDX-License-Identifier: MIT
#include "tests/stored/locationlist.h"

#include <cstdlib>
#include <functional>
#include <set>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace halvane {
namespace {

/// Begins a process of its own that does `work`.
pid_t in_a_process(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    int status = EXIT_SUCCESS;
    try {
        work();
    } catch (const std::exception&) {
        status = EXIT_FAILURE;
    }
    ::_exit(status);
}

bool succeeded(pid_t child) {
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

TEST_F(LocationList, EditsOfTwoProcessesAreAllKept) {
    constexpr int edits = 100;
    folder.write("loc.txt", "");
    const auto add_all = [](const std::string& first_letter) {
        for (int i = 0; i < edits; ++i)
            if (!add_location(place(first_letter + std::to_string(i))))
                throw std::runtime_error("taken for a double");
    };
    const auto change_all = [] {
        for (int i = 0; i < edits; ++i) {
            modify_location(place("changed" + std::to_string(i)));
            delete_location("changed" + std::to_string(i - 1));
        }
    };
    const std::vector<std::function<void()>> works{[&] { add_all("a"); }, [&] { add_all("b"); }, change_all};
    std::vector<pid_t> children;
    for (const auto& work : works)
        children.push_back(in_a_process(work));
    for (const pid_t child : children)
        EXPECT_TRUE(succeeded(child));
    const Names kept = names();
    EXPECT_EQ(kept.size(), 2U * edits + 1U);
    const std::set<std::string> different(kept.begin(), kept.end());
    EXPECT_EQ(different.size(), kept.size());
    EXPECT_TRUE(different.contains("changed" + std::to_string(edits - 1)));
}

TEST_F(LocationList, EditsOfOnePlaceByTwoProcessesKeepOne) {
    std::vector<pid_t> children;
    for (int i = 0; i < 4; ++i)
        children.push_back(in_a_process([] {
            for (int round = 0; round < 25; ++round) {
                add_location(place("Suva"));
                modify_location(place("Suva"));
            }
        }));
    for (const pid_t child : children)
        EXPECT_TRUE(succeeded(child));
    EXPECT_EQ(names(), (Names{"Amman", "Rio", "Suva"}));
}

} // namespace
} // namespace halvane
