// SPDX-License-Identifier: MIT
#pragma once

#include "zones/zonerule.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace halvane {

/// From `begin` on a zone's clock is `offset` ahead of Universal Time, until the next one.
struct ZoneClock {
    std::int64_t begin = 0; ///< seconds after 1970 January 1, 0 h UT
    int offset = 0;         ///< [s]
};

/// The clocks of a zone one after the other. The first one has no beginning: its `begin` is the least number.
/// In     bytes  the whole file
/// Returns nothing for a file of the first version, whose times have four bytes, and for bytes of another
/// form.
/// Source  RFC 9636, sections 3.1 and 3.2.
std::optional<std::vector<ZoneClock>> clocks_of_zone_file(std::string_view bytes);

/// What ends a zone file: the rule of the years to come.
struct RuleOfFile {
    ZoneRule rule;
    /// The rule holds after the last change that stands in the file, in seconds after 1970 January 1, 0 h UT;
    /// the least number in a file without changes.
    std::int64_t last_change = 0;
};

/// In     bytes  the whole file
/// Returns nothing for a file of the first version, which has no rule, and for bytes of another form.
/// Source  RFC 9636, sections 3.1 to 3.3.
std::optional<RuleOfFile> rule_of_zone_file(std::string_view bytes);

} // namespace halvane
