// SPDX-License-Identifier: MIT
#include "routines/modriseset.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvane {
namespace {

struct Parabola {
    double xe = 9, ye = 9, root1 = 9, root2 = 9;
    int roots = 9;
};

Parabola through(double ym, double y0, double yp) {
    Parabola p;
    modquad(ym, y0, yp, p.xe, p.ye, p.root1, p.root2, p.roots);
    return p;
}

/// Through the ordinates of a (x - r) (x - s).
Parabola with_roots(double a, double r, double s) {
    return through(a * (-1 - r) * (-1 - s), a * r * s, a * (1 - r) * (1 - s));
}

TEST(ThreePointParabola, HasItsExtremumAndBothRoots) {
    const Parabola p = with_roots(2, -0.25, 0.75);
    EXPECT_NEAR(p.xe, 0.25, 1e-15);
    EXPECT_NEAR(p.ye, -0.5, 1e-15);
    EXPECT_NEAR(p.root1, -0.25, 1e-15);
    EXPECT_NEAR(p.root2, 0.75, 1e-15);
    EXPECT_EQ(p.roots, 2);
    EXPECT_EQ(quadroots, 2);
    const Parabola downward = with_roots(-2, -0.25, 0.75);
    EXPECT_NEAR(downward.ye, 0.5, 1e-15);
    EXPECT_NEAR(downward.root1, -0.25, 1e-15) << "the smaller root comes first";
}

TEST(ThreePointParabola, CountsRootsWithinTheThreePointsOnly) {
    EXPECT_EQ(with_roots(1, 0.5, 3).roots, 1);
    EXPECT_NEAR(with_roots(1, 0.5, 3).root1, 0.5, 1e-14);
    EXPECT_EQ(with_roots(1, -3, 0.5).roots, 1);
    EXPECT_NEAR(with_roots(1, -3, 0.5).root1, 0.5, 1e-14)
        << "a first root before them gives way to the second";
    EXPECT_EQ(with_roots(1, -1, 1).roots, 2) << "the ends belong to them";
    EXPECT_EQ(with_roots(1, 2, 3).roots, 0);
    EXPECT_EQ(with_roots(1, -3, -2).roots, 0);
}

TEST(ThreePointParabola, ADoubleRootCountsAsNone) {
    EXPECT_EQ(with_roots(1, 0, 0).roots, 0);
    EXPECT_EQ(quadroots, 0);
    EXPECT_EQ(through(2, 1, 2).roots, 0) << "no real root";
}

TEST(ThreePointParabola, AStraightLineFindsNone) {
    for (const Parabola& line : {through(-1, 0, 1), through(1, 1, 1), through(0, 0, 0)}) {
        EXPECT_EQ(line.roots, 0);
        EXPECT_TRUE(std::isfinite(line.xe) && std::isfinite(line.ye));
    }
}

TEST(ThreePointParabola, RootsOfManyParabolas) {
    std::mt19937 random(8);
    std::uniform_real_distribution<double> inside(-0.999, 0.999);
    std::uniform_real_distribution<double> scale(0.01, 5);
    for (int i = 0; i < 500; ++i) {
        const double r = inside(random);
        const double s = inside(random);
        const Parabola p = with_roots(i % 2 == 0 ? scale(random) : -scale(random), r, s);
        if (std::fabs(r - s) < 1e-3)
            continue;
        EXPECT_EQ(p.roots, 2);
        EXPECT_NEAR(p.root1, std::min(r, s), 1e-10);
        EXPECT_NEAR(p.root2, std::max(r, s), 1e-10);
    }
}

} // namespace
} // namespace halvane
