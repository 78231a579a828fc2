// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "prayer/alertschedule.h"

#include <QString>

namespace halvane {

/// What the pop-up window says. Empty texts take no room.
struct AlertWords {
    QString heading;
    QString time;
    QString place;
    QString next;
    QString notice;
};

/// "Aser", or the same in Arabic.
QString prayer_name(Prayer prayer, Language language);

/// The words of an alert at the place of that name.
AlertWords words_of(const Alert& alert, const QString& place, Language language);

/// "Next: Aser 16:19", or the same in Arabic; a text that says so when no prayer has a time.
QString coming_words(const std::optional<ComingPrayer>& coming, Language language);

/// That alerts are silent, and why.
QString no_sound_words(Language language);

} // namespace halvane
