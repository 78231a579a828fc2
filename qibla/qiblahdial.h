// SPDX-License-Identifier: MIT
#pragma once

#include "qibla/dialgeometry.h"

#include <QWidget>
#include <functional>

namespace halvane {

/// A drawing in the units of the dial's design, as large as its widget allows.
class DialDrawing : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) final;

private:
    virtual void draw(QPainter& painter) const = 0;
};

/// `Shape1`: the circle, with a tick at every 10 deg and a longer one at every 30 deg.
class DialCircle : public DialDrawing {
    Q_OBJECT
public:
    using DialDrawing::DialDrawing;

private:
    void draw(QPainter& painter) const override;
};

/// `lin1`: the line from (x1, y1), the dial's centre, to (x2, y2).
class DialLine : public DialDrawing {
    Q_OBJECT
    Q_PROPERTY(double x1 READ x1)
    Q_PROPERTY(double y1 READ y1)
    Q_PROPERTY(double x2 READ x2)
    Q_PROPERTY(double y2 READ y2)
public:
    using DialDrawing::DialDrawing;

    double x1() const { return dial_centre.x; }
    double y1() const { return dial_centre.y; }
    double x2() const { return end_.x; }
    double y2() const { return end_.y; }
    void set_end(const DialPoint& end);

private:
    void draw(QPainter& painter) const override;

    DialPoint end_{dial_centre.x, dial_centre.y - dial_line_length};
};

/// The dial: circle, line and the four letters around them. East stays on the right in every language.
class QiblahDial : public QWidget {
    Q_OBJECT
public:
    explicit QiblahDial(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Between the circle and its letters                                                      [pixel]
    int gap() const;
    /// Room for the letters on every side of the circle                                        [pixel]
    QSize letter_room() const;
    QSize size_around(int diameter) const;
    void place_controls();
    void place_letter(const char* name, const QRect& around, const std::function<void(QRect&)>& beside);
};

} // namespace halvane
