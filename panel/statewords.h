// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"

namespace halvane {

// What panels say of what they calculate, show and save.

inline constexpr TwinText calculating_words{"Calculating: %1 %", "جار الحساب: %1 %"};
inline constexpr TwinText stopped_empty_words{"Stopped. Nothing is shown.", "أوقف. لا يعرض شيء."};
inline constexpr TwinText nothing_shown_words{"Nothing is shown. %1", "لا يعرض شيء. %1"};
inline constexpr TwinText saved_words{"Saved: %1", "تم الحفظ: %1"};

/// "Saved: page.pdf", without the folder.
QString saved_text(const QString& path, Language language);

} // namespace halvane
