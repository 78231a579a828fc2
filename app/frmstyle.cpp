#include "app/frmstyle.h"

#include "app/stored/programfolder.h"

#include <QApplication>
#include <QFile>
#include <QFontInfo>
#include <QFontMetrics>
#include <QIconEngine>
#include <QLayout>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <QWidget>
#include <utility>

namespace halvane {

namespace {

bool is_dark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

QColor accent_of(bool dark) {
    return dark ? QColor(0x58, 0xC9, 0xA0) : QColor(0x1B, 0x7F, 0x5C);
}

QByteArray icon_source(const QString& name) {
    QFile file(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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
    font.setPointSizeF(QFontInfo(control.window()->font()).pointSizeF() * factor);
    control.setFont(font);
}

QColor accent_colour(const QWidget& widget) {
    return accent_of(is_dark(widget.palette()));
}

void use_accent() {
    QPalette palette = QGuiApplication::palette();
    const bool dark = is_dark(palette);
    palette.setColor(QPalette::Highlight, accent_of(dark));
    palette.setColor(QPalette::HighlightedText, dark ? Qt::black : Qt::white);
    QApplication::setPalette(palette);
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
