// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"

#include <cstddef>
#include <functional>

namespace halvane {

/// One thread's part of a work: does the piece of a number.
using DoPiece = std::function<void(std::size_t piece)>;

/// Does the pieces of a work on all cores.
/// In     pieces  their count; each thread takes the lowest that is left
///        begin   called once on each thread, for what a thread needs of its own
///        progress  is told and asked on the calling thread, every 20 ms and once at the end
/// Returns whether all were done: false after a cancel, which ends the work with the pieces under way.
/// Error  raises the first failure of a piece, or what `progress` raises; the pieces not yet begun are given
///        up and no thread is left. std::system_error when the system starts no thread at all.
bool share_work(std::size_t pieces, const std::function<DoPiece()>& begin, Progress& progress);

} // namespace halvane
