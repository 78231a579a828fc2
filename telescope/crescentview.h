// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

namespace halvane {

/// The picture of the crescent: a file of the folder `images`, scaled to the widget with its sides equal, and
/// a mark on the side of the zenith.
class CrescentView : public QWidget {
    Q_OBJECT
public:
    explicit CrescentView(QWidget* parent = nullptr);

    /// Shows the picture `name`; a file that is missing or damaged leaves words in its place.
    void show_picture(const QString& name, bool zenith_below);
    /// The name of the picture shown; empty at first.
    const QString& picture() const { return name_; }
    /// Whether the picture's file could be read.
    bool has_picture() const { return !image_.isNull(); }
    /// The word for the zenith, and what stands in place of a missing picture ("%1": its name).
    void set_texts(const QString& zenith, const QString& missing);

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void draw_picture(QPainter& painter, const QRect& square) const;
    void draw_zenith_mark(QPainter& painter, const QRect& square) const;

    QString name_;
    QString zenith_;
    QString missing_;
    QImage image_;
    bool zenith_below_ = false;
};

} // namespace halvane
