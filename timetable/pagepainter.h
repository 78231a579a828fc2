// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/pageframe.h"
#include "timetable/timetablesheet.h"

#include <QPainter>
#include <QRectF>

namespace halvane {

/// Paints a month on a page: head, table, notes and foot, within margins of 15 mm. The same on a screen, on
/// paper and in a PDF: every length is a part of the paper's. In     paper   where the whole sheet of paper
/// lies, in the painter's coordinates; of the form of paper_size
///        number  of the page, from 1 on
///        pages   how many there are
void paint_page(QPainter& painter, const QRectF& paper, const TimetableSheet& sheet,
                const PageSettings& settings, int number, int pages);

} // namespace halvane
