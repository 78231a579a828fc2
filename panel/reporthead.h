// SPDX-License-Identifier: MIT
#pragma once

#include "panel/formlanguage.h"
#include "panel/kepttext.h"

namespace halvane {

/// What the head of a report says it is. All of it is read from the text that is shown, so that it always
/// belongs to it.
struct ReportHead {
    const TwinText* kind = nullptr; ///< what is reported; none where the text is no report of the program
    QString place;                  ///< name of the location; empty where the head has none
    QString period;                 ///< day, first and last day, or year; empty where the text tells none
    std::int64_t first_title = 0;   ///< the first of the rows that stand over the columns
    std::int64_t titles = 0; ///< how many they are, the empty line under them included; 0 without a table
};

ReportHead report_head(const KeptText& text);

/// Report, place and period in one line of the language; empty where the text is no report.
QString title_of(const ReportHead& head, Language language);

} // namespace halvane
