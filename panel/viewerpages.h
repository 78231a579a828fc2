// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "panel/formlanguage.h"
#include "panel/kepttext.h"

#include <QString>

class QPagedPaintDevice;

namespace halvane {

/// What stands on the pages, and above and between it.
struct PrintedText {
    const KeptText* text = nullptr;
    bool is_table = true;         ///< letters of one width; else each line in the direction of its letters
    QString title;                ///< in the head of every page
    std::int64_t first_title = 0; ///< the rows that stand over the columns of each further page
    std::int64_t titles = 0;
    Language language = Language::english; ///< of the page's number
};

/// Pages counted from 1; nothing beyond `last` is printed.
struct PageRange {
    int first = 1;
    int last = 0; ///< 0: to the end
};

/// Prints with margins of at least 15 mm. Every page has the title and "page n of m" in its head; the type is
/// the largest, up to 10 points, at which the lines fit; a line too long for any page goes on in the next.
/// Returns the count of pages the whole text has; 0 once `progress` has told that the user gives up.
int print_pages(QPagedPaintDevice& device, const PrintedText& printed, const PageRange& range = {},
                Progress* progress = nullptr);

/// The family of the fixed-width fonts of the viewer.
QString fixed_family();

/// `told` where its type has one width; else the first family of the machine that has. A desktop without
/// settings names a proportional family, or none.
QString fixed_family(const QString& told);

} // namespace halvane
