// SPDX-License-Identifier: MIT
#include "timetable/pagetext.h"

#include <QFontMetricsF>
#include <QStringList>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

constexpr double leading = 1.36; // of the em: Arabic letters reach far up and down
constexpr double unlimited = 1e7;

/// Fonts whose shaped Arabic letters have code points of their own, so that a PDF's text is known again.
QStringList families() {
    return {QStringLiteral("Noto Sans"), QStringLiteral("Noto Sans Arabic"), QStringLiteral("DejaVu Sans")};
}

QFont font_of(const PageFont& font) {
    QFont made;
    made.setFamilies(families());
    made.setPixelSize(static_cast<int>(std::lround(em_of(font))));
    made.setBold(font.bold);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

QTextOption option_of(Language language) {
    QTextOption option;
    option.setTextDirection(language == Language::arabic ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

double start_of(double width, LineAnchor anchor) {
    switch (anchor) {
    case LineAnchor::left:
        return 0;
    case LineAnchor::centre:
        return -width / 2;
    case LineAnchor::right:
        break;
    }
    return -width;
}

} // namespace

bool has_font(Language language) {
    constexpr char32_t latin = U'A';
    constexpr char32_t alef = U'\u0627';
    return QFontMetricsF(font_of(PageFont())).inFontUcs4(language == Language::english ? latin : alef);
}

double em_of(const PageFont& font) {
    constexpr double millimetres_of_point = 25.4 / 72;
    return font.points * millimetres_of_point * page_units;
}

PageText::PageText(const std::string& text, const PageFont& font, Language language, double width)
    : layout_(std::make_unique<QTextLayout>(QString::fromStdString(text), font_of(font))),
      colour_(font.colour), leading_(leading * em_of(font)) {
    layout_->setTextOption(option_of(language));
    layout_->setCacheEnabled(true);
    layout_->beginLayout();
    for (QTextLine line = layout_->createLine(); line.isValid(); line = layout_->createLine())
        line.setLineWidth(width > 0 ? width : unlimited);
    layout_->endLayout();
}

double PageText::width() const {
    double widest = 0;
    for (int line = 0; line < lines(); ++line)
        widest = std::max(widest, layout_->lineAt(line).naturalTextWidth());
    return widest;
}

void PageText::draw(QPainter& painter, const QPointF& baseline, LineAnchor anchor) const {
    painter.setPen(colour_);
    for (int number = 0; number < lines(); ++number) {
        const QTextLine line = layout_->lineAt(number);
        const QPointF start(start_of(line.naturalTextWidth(), anchor), number * leading_ - line.ascent());
        line.draw(&painter, baseline + start - QPointF(line.naturalTextRect().left(), line.y()));
    }
}

PageFont fitting(const std::string& text, PageFont font, Language language, double width, double least) {
    const double wanted = PageText(text, font, language).width();
    if (wanted > width)
        font.points = std::max(least, font.points * width / wanted);
    return font;
}

} // namespace halvane
