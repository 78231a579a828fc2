// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/profile.h"

#include <QPainter>
#include <QRectF>
#include <functional>
#include <string>

namespace halvane {

/// Pages that can be painted: on a screen, on paper, in a PDF file.
struct PaintedPages {
    PaperSize paper = PaperSize::a4;
    PageLanguage language = PageLanguage::english;
    int count = 0;
    /// Paints a page. In     room    where the whole sheet of paper lies, in the painter's coordinates
    ///                       number  from 1 on
    std::function<void(QPainter& painter, const QRectF& room, int number)> paint;
    bool is_landscape = false; ///< else the paper stands upright
};

/// Pages as a PDF file: fonts embedded, texts that can be searched and copied.
/// A QGuiApplication must be running.
/// In     title  of the document
/// Error  raises RunTimeFailure when the system has no font for the pages' languages.
std::string pdf_of(const PaintedPages& pages, const std::string& title);

/// Error  raises RunTimeFailure when pages of the language would be without their words.
void require_fonts(PageLanguage language);

} // namespace halvane
