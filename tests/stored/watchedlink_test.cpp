// SPDX-License-Identifier: MIT
#include "tests/stored/watchedcopy.h"

namespace halvane {
namespace {

TEST_F(WatchedCopy, IsDroppedWhenALinkLeadsElsewhere) {
    std::filesystem::rename(own(), folder_ / "target");
    std::filesystem::create_symlink("target", own());
    std::filesystem::create_symlink("other", folder_ / "link");
    settle();
    look();
    std::filesystem::rename(folder_ / "link", own());
    EXPECT_EQ(read_loc().name, "Other");
}

} // namespace
} // namespace halvane
