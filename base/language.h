// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// A language of the panels, and of what the programs tell their user.
enum class Language { english, arabic };

inline constexpr Language languages[] = {Language::english, Language::arabic};

} // namespace halvane
