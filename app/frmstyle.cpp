#include "app/frmstyle.h"

#include "app/stored/programfolder.h"

#include <QFile>
#include <QFontMetrics>
#include <QLayout>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <QWidget>

namespace halvane {

namespace {

constexpr int kIconGrid = 24;

bool is_dark(const QWidget& widget) {
    return widget.palette().color(QPalette::Window).lightness() < 128;
}

QByteArray icon_source(const QString& name) {
    QFile file(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QPixmap drawn_icon(QByteArray source, const QColor& colour, int size) {
    QSvgRenderer renderer(source.replace("currentColor", colour.name().toLatin1()));
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter);
    return picture;
}

} // namespace

int space_unit(const QWidget& widget) {
    return (QFontMetrics(widget.font()).lineSpacing() + 1) / 2;
}

void set_spacing(QWidget& form) {
    const int unit = space_unit(form);
    for (QLayout* layout : form.findChildren<QLayout*>()) {
        layout->setSpacing(unit);
        const bool holds_panel = layout->parent() == &form;
        const bool holds_frame = !holds_panel && layout->parent()->isWidgetType();
        if (holds_panel)
            layout->setContentsMargins(2 * unit, 2 * unit, 2 * unit, 2 * unit);
        else if (holds_frame)
            layout->setContentsMargins(unit, unit, unit, unit);
    }
}

void scale_font(QWidget& control, double factor) {
    QFont font = control.font();
    const QWidget* form = control.window();
    font.setPointSizeF(form->font().pointSizeF() * factor);
    control.setFont(font);
}

QColor accent_colour(const QWidget& widget) {
    return is_dark(widget) ? QColor(0x58, 0xC9, 0xA0) : QColor(0x1B, 0x7F, 0x5C);
}

QIcon panel_icon(const QWidget& widget, const QString& name) {
    const QByteArray source = icon_source(name);
    QIcon icon;
    if (source.isEmpty())
        return icon;
    const QPalette palette = widget.palette();
    for (int size = kIconGrid; size <= 4 * kIconGrid; size += kIconGrid) {
        icon.addPixmap(drawn_icon(source, palette.color(QPalette::ButtonText), size));
        icon.addPixmap(drawn_icon(source, palette.color(QPalette::Disabled, QPalette::ButtonText), size),
                       QIcon::Disabled);
    }
    return icon;
}

void fit_width(QWidget& control, const QString& longest) {
    const int text = control.fontMetrics().horizontalAdvance(longest);
    control.setMinimumWidth(text + 3 * space_unit(control));
}

} // namespace halvane
