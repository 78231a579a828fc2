// SPDX-License-Identifier: MIT
#include "timetable/timetablepdf.h"

#include "timetable/pagepainter.h"

namespace halvane {
namespace {

/// "Amman: Prayer times, February 2026 - Prayer times, March 2026", in the page's first language.
std::string document_title(std::span<const TimetableSheet> sheets, const PageSettings& page) {
    if (sheets.empty())
        return {};
    const Language language = page.language == PageLanguage::arabic ? Language::arabic : Language::english;
    const std::string first = sheets.front().place.in(language) + ": " + sheets.front().title.in(language);
    return sheets.size() == 1 ? first : first + " - " + sheets.back().title.in(language);
}

} // namespace

PaintedPages painted_pages(std::span<const TimetableSheet> sheets, const PageSettings& page) {
    const int count = static_cast<int>(sheets.size());
    return {page.paper, page.language, count,
            [sheets, &page, count](QPainter& painter, const QRectF& room, int number) {
                paint_page(painter, room, sheets[static_cast<std::size_t>(number - 1)], page, number, count);
            }};
}

std::string pdf_of(std::span<const TimetableSheet> sheets, const PageSettings& page,
                   const std::string& title) {
    return pdf_of(painted_pages(sheets, page), title);
}

std::string pdf_of(const Timetable& timetable, const PageSettings& page) {
    const std::vector<TimetableSheet> sheets = sheets_of(timetable, page);
    return pdf_of(sheets, page, document_title(sheets, page));
}

} // namespace halvane
