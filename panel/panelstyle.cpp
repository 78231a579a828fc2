// SPDX-License-Identifier: MIT
#include "panel/panelstyle.h"

#include "panel/formpage.h"
#include "platform/desktoplook.h"
#include "stored/programfolder.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFile>
#include <QFontInfo>
#include <QFontMetrics>
#include <QIconEngine>
#include <QLayout>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOptionButton>
#include <QSvgRenderer>
#include <QTextLayout>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

namespace halvane {

namespace {

constexpr double key_line_drop = 0.6; // of the descent
constexpr double least_contrast = 4.5;
constexpr int accent_step = 103; // per cent
constexpr int accent_steps = 30;
constexpr int muted_percent = 30;

bool is_dark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

/// `ink`, `percent` of the way to `paper`.
QColor softened(const QColor& ink, const QColor& paper, int percent) {
    const auto mix = [percent](int from, int to) { return from + (to - from) * percent / 100; };
    return {mix(ink.red(), paper.red()), mix(ink.green(), paper.green()), mix(ink.blue(), paper.blue())};
}

/// Relative luminance of WCAG 2.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double bright = std::max(luminance(a), luminance(b));
    const double dark = std::min(luminance(a), luminance(b));
    return (bright + 0.05) / (dark + 0.05);
}

/// The accent, a little darker or lighter where the window's own grey asks for it.
QColor accent_on(const QColor& paper, bool dark) {
    QColor accent = dark ? QColor(0x58, 0xC9, 0xA0) : QColor(0x1B, 0x7F, 0x5C);
    for (int step = 0; contrast(accent, paper) < least_contrast && step < accent_steps; ++step)
        accent = dark ? accent.lighter(accent_step) : accent.darker(accent_step);
    return accent;
}

QByteArray icon_source(const QString& name) {
    QFile file(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString without_leading_blanks(const QString& text) {
    qsizetype first = 0;
    while (first < text.size() && text[first] == u' ')
        ++first;
    return text.mid(first);
}

/// `text` with the line ends that wrapping to `width` gives it, without the blanks there: Qt sets an Arabic
/// line in by the blank at its end.
QString wrapped(QString text, const QFont& font, int width) {
    QTextLayout layout(text.replace(u'\n', QChar::LineSeparator), font);
    QTextOption option;
    option.setTextDirection(Qt::RightToLeft);
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines.join(u'\n');
}

/// The desktop's style with two marks of its own: a chosen option takes the accent, and an access key within
/// letters that join is underlined with the text laid out whole, where Qt draws the letter apart and breaks
/// the joins on both sides of it.
class HalvaneStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool marks = element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox;
        if (!marks || button == nullptr) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        QStyleOptionButton marked(*button);
        if (marked.state & State_Enabled)
            marked.palette.setColor(QPalette::Text, marked.palette.color(QPalette::Highlight));
        QProxyStyle::drawPrimitive(element, &marked, painter, widget);
        if (baseStyle()->name() == QLatin1String("fusion"))
            draw_outline(*painter, marked, element == PE_IndicatorRadioButton);
    }
    /// An icon beside the word of a button pushes Arabic words to the button's edge.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, more);
    }
    void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette, bool enabled,
                      const QString& words, QPalette::ColorRole role) const override {
        QString text = words;
        if ((flags & Qt::TextWordWrap) != 0) {
            // The blank before some notes would set their first line in when they take several.
            text = without_leading_blanks(words);
            if (text.isRightToLeft() && !text.contains(u'&'))
                text = wrapped(text, painter->font(), place.width());
        }
        const qsizetype mark = text.indexOf(u'&');
        const bool joins = (flags & Qt::TextShowMnemonic) != 0 && mark >= 0 && mark + 1 < text.size() &&
                           text[mark + 1] != u'&' && text.isRightToLeft();
        if (!joins) {
            QProxyStyle::drawItemText(painter, place, flags, palette, enabled, text, role);
            return;
        }
        painter->save();
        if (role != QPalette::NoRole)
            painter->setPen(palette.color(enabled ? QPalette::Active : QPalette::Disabled, role));
        draw_joined(*painter, place, flags, QString(text).remove(u'&'), static_cast<int>(mark));
        painter->restore();
    }

private:
    /// Fusion's own outline is a darker window colour, which is not seen on a dark window.
    static void draw_outline(QPainter& painter, const QStyleOptionButton& option, bool round) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, round);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(softened(option.palette.color(QPalette::WindowText),
                                option.palette.color(QPalette::Window), muted_percent));
        if (round) {
            const double radius = (option.rect.width() + (option.rect.width() + 1) % 2) / 2.0 - 1;
            painter.drawEllipse(QPointF(option.rect.center() + QPoint(1, 1)), radius, radius);
        } else {
            painter.translate(0.5, 0.5);
            painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
        painter.restore();
    }
    static void draw_joined(QPainter& painter, const QRect& place, int flags, const QString& text, int key) {
        QTextLayout layout(text, painter.font(), painter.device());
        QTextOption option;
        option.setTextDirection(Qt::RightToLeft);
        option.setWrapMode(QTextOption::NoWrap);
        layout.setTextOption(option);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        line.setLineWidth(place.width());
        layout.endLayout();

        const QSize size = QSizeF(line.naturalTextWidth(), line.height()).toSize();
        const Qt::Alignment alignment(flags &
                                      static_cast<int>(Qt::AlignHorizontal_Mask | Qt::AlignVertical_Mask));
        const QRect box = alignedRect(Qt::LeftToRight, alignment, size, place);
        const QPointF origin(box.topLeft());
        layout.draw(&painter, origin);

        const double from = line.cursorToX(key);
        const double to = line.cursorToX(key + 1);
        const double height = origin.y() + line.ascent() + line.descent() * key_line_drop;
        const double thickness = std::max(1, painter.fontMetrics().lineWidth());
        painter.fillRect(QRectF(origin.x() + std::min(from, to), height, std::abs(to - from), thickness),
                         painter.pen().color());
    }
};

/// Draws an SVG file whose strokes are "currentColor" at the size that is asked for.
class InkIconEngine : public QIconEngine {
public:
    explicit InkIconEngine(QByteArray source) : source_(std::move(source)) {}

    void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor ink = QGuiApplication::palette().color(group, QPalette::ButtonText);
        QSvgRenderer renderer(QByteArray(source_).replace("currentColor", ink.name().toLatin1()));
        renderer.render(painter, QRectF(rectangle));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new InkIconEngine(source_); }

private:
    QByteArray source_;
};

/// Only the accent's roles are set, so that the others follow the system.
void set_accent() {
    QPalette palette = QGuiApplication::palette();
    const bool dark = is_dark(palette);
    const QColor accent = accent_on(palette.color(QPalette::Window), dark);
    if (palette.color(QPalette::Highlight) == accent)
        return;
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, dark ? Qt::black : Qt::white);
    QApplication::setPalette(palette);
}

void set_colours() {
    set_accent();
    fit_desktop_colours();
}

/// Fits the colours when the system goes from light to dark colours or back.
class ColourKeeper : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ApplicationPaletteChange)
            set_colours();
        return false;
    }
};

void set_gaps(QLayout& layout, int gap) {
    layout.setSpacing(gap);
    for (QObject* child : layout.children())
        if (auto* inner = qobject_cast<QLayout*>(child))
            set_gaps(*inner, gap);
}

/// Windows of their own have their own space; scroll areas and lists lay out their bars themselves.
bool is_part_of_form(const QWidget& widget) {
    return !widget.isWindow() && qobject_cast<const QAbstractScrollArea*>(&widget) == nullptr &&
           qobject_cast<const QComboBox*>(&widget) == nullptr;
}

void set_spacing_within(QWidget& owner, int unit, int margin) {
    if (QLayout* layout = owner.layout()) {
        set_gaps(*layout, unit);
        layout->setContentsMargins(margin, margin, margin, margin);
    }
    for (QObject* child : owner.children())
        if (auto* widget = qobject_cast<QWidget*>(child); widget != nullptr && is_part_of_form(*widget))
            set_spacing_within(*widget, unit, unit);
}

} // namespace

int space_unit(const QWidget& widget) {
    return (QFontMetrics(widget.font()).lineSpacing() + 1) / 2;
}

void set_spacing(QWidget& form) {
    const int unit = space_unit(form);
    set_spacing_within(page_of(form), unit, 2 * unit);
}

void scale_font(QWidget& control, double factor) {
    const QFont base = control.window()->font();
    QFont font = control.font();
    font.setFamilies(base.families());
    font.setPointSizeF(QFontInfo(base).pointSizeF() * factor);
    control.setFont(font);
}

QColor accent_colour(const QWidget& widget) {
    const QPalette& palette = widget.palette();
    return accent_on(palette.color(QPalette::Window), is_dark(palette));
}

void use_halvane_look() {
    QApplication::setStyle(new HalvaneStyle(desktop_style()));
    set_colours();
    qApp->installEventFilter(new ColourKeeper(qApp));
}

QColor muted_colour(const QWidget& widget) {
    const QPalette& palette = widget.palette();
    return softened(palette.color(QPalette::WindowText), palette.color(QPalette::Window), muted_percent);
}

QIcon panel_icon(const QString& name) {
    const QByteArray source = icon_source(name);
    return source.isEmpty() ? QIcon() : QIcon(new InkIconEngine(source));
}

void fit_width(QWidget& control, const QString& longest) {
    const int text = control.fontMetrics().horizontalAdvance(longest);
    control.setMinimumWidth(text + 3 * space_unit(control));
}

} // namespace halvane
