// SPDX-License-Identifier: MIT
#include "timetable/timetablepdf.h"

#include "base/failure.h"
#include "timetable/pagepainter.h"
#include "timetable/pagetext.h"
#include "timetable/readablepdf.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QString>

namespace halvane {
namespace {

constexpr int dots_per_inch = 1200;

void set_up(QPdfWriter& writer, const PageSettings& page, const std::string& title) {
    writer.setResolution(dots_per_inch);
    writer.setPageSize(QPageSize(page.paper == PaperSize::a4 ? QPageSize::A4 : QPageSize::Letter));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(QString::fromStdString(title));
    writer.setCreator(QStringLiteral("Halvane"));
}

/// Error  raises RunTimeFailure when the pages would be without their words.
void require_fonts(PageLanguage language) {
    const bool english = language != PageLanguage::arabic;
    const bool arabic = language != PageLanguage::english;
    if ((english && !has_font(Language::english)) || (arabic && !has_font(Language::arabic)))
        throw RunTimeFailure(
            TwinWords{"There is no font for the pages. Noto Sans and Noto Sans Arabic are in the package "
                      "fonts-noto-core.",
                      "لا يوجد خط للصفحات. Noto Sans و Noto Sans Arabic في الحزمة fonts-noto-core."});
}

/// "Amman: Prayer times, February 2026 - Prayer times, March 2026", in the page's first language.
std::string document_title(std::span<const TimetableSheet> sheets, const PageSettings& page) {
    if (sheets.empty())
        return {};
    const Language language = page.language == PageLanguage::arabic ? Language::arabic : Language::english;
    const std::string first = sheets.front().place.in(language) + ": " + sheets.front().title.in(language);
    return sheets.size() == 1 ? first : first + " - " + sheets.back().title.in(language);
}

} // namespace

std::string pdf_of(std::span<const TimetableSheet> sheets, const PageSettings& page,
                   const std::string& title) {
    require_fonts(page.language);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        set_up(writer, page, title);
        QPainter painter(&writer);
        const QRectF paper(0, 0, writer.width(), writer.height());
        int number = 0;
        for (const TimetableSheet& sheet : sheets) {
            if (++number > 1)
                writer.newPage();
            paint_page(painter, paper, sheet, page, number, static_cast<int>(sheets.size()));
        }
    }
    return readable_pdf(bytes).toStdString();
}

std::string pdf_of(const Timetable& timetable, const PageSettings& page) {
    const std::vector<TimetableSheet> sheets = sheets_of(timetable, page);
    return pdf_of(sheets, page, document_title(sheets, page));
}

} // namespace halvane
