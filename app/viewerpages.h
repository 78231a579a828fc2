#pragma once

#include <QString>

class QPagedPaintDevice;

namespace halvane {

/// The direction of a line of a text in both languages: right to left when it has an Arabic letter, that of
/// the line before when it has no letter at all.
Qt::LayoutDirection direction_of(const QString& line, Qt::LayoutDirection before);

/// Prints a text with fixed columns: the size of type is the largest, up to 10 points, at which the longest
/// line fits the page; the name of the file and the page's number stand above. Returns the count of pages.
int print_pages(QPagedPaintDevice& device, const QString& name, const QString& text, bool both_directions);

/// The family of the fixed-width fonts of the viewer.
QString fixed_family();

} // namespace halvane
