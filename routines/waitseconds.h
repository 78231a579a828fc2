// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// Waits so many seconds while the interface handles its pending events.
void waitseconds(double seconds);

/// What waitseconds does in the meantime; a program with panels puts one pass of its event loop in place.
void set_pending_events_handler(void (*handler)());

} // namespace halvane
