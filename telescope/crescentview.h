// SPDX-License-Identifier: MIT
#pragma once

#include "telescope/phasepainter.h"

#include <QImage>
#include <QString>
#include <QWidget>
#include <optional>

namespace halvane {

/// The picture of the crescent: a file of the folder `images`, scaled to the widget with its sides equal, and
/// a mark on the side of the zenith. In its place the true phase may be drawn.
class CrescentView : public QWidget {
    Q_OBJECT
public:
    explicit CrescentView(QWidget* parent = nullptr);

    /// Shows the picture `name`; a file that is missing or damaged leaves words in its place.
    void show_picture(const QString& name, bool zenith_below);
    /// Draws `phase` in place of the picture, until it is called with none.
    void show_phase(const std::optional<DrawnPhase>& phase);
    /// The phase that is drawn.
    const std::optional<DrawnPhase>& phase() const { return phase_; }
    /// The name of the picture shown; empty at first.
    const QString& picture() const { return name_; }
    /// Whether the picture's file could be read.
    bool has_picture() const { return !image_.isNull(); }
    /// The words for the zenith and for the lit side, and what stands in place of a missing picture ("%1":
    /// its name).
    void set_texts(const QString& zenith, const QString& lit, const QString& missing);

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont small_font() const;
    void draw_picture(QPainter& painter, const QRect& square) const;
    void draw_zenith_mark(QPainter& painter, const QRect& square) const;

    QString name_;
    QString zenith_;
    QString lit_;
    QString missing_;
    QImage image_;
    std::optional<DrawnPhase> phase_;
    bool zenith_below_ = false;
};

} // namespace halvane
