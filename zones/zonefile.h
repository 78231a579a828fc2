// SPDX-License-Identifier: MIT
#pragma once

#include "zones/zonerule.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace halvane {

/// What ends a zone file: the rule of the years to come, which the date library leaves out.
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
