// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "ephemeris/theory.h"
#include "finemap/finemap.h"
#include "halvane/engine.h"

#include <cstdint>
#include <optional>

namespace halvane::v1 {

/// What an engine holds.
struct Engine::Parts {
    TheoryPointer theory;
    std::optional<MapRing> americas; ///< the mainland; nothing without the lines of the world
    std::uint64_t number;            ///< no other engine of this process has it
};

/// The ephemeris of this thread for an engine: what one call has found out the next one may use. The
/// reference holds until the thread asks with another engine. A function that calls the user back makes an
/// ephemeris of its own.
Ephemeris& ephemeris_of(const Engine& engine);

} // namespace halvane::v1
