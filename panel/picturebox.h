// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <string_view>

namespace halvane {

/// A picture of the program folder; a null one when it is missing, broken or no regular file.
QImage stored_picture(std::string_view name);

/// A picture as large as its widget allows, in its own proportions, or words in its place.
class PictureBox : public QWidget {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent = nullptr);

    const QPixmap& picture() const { return picture_; }
    void set_picture(const QPixmap& picture);
    /// What stands there without a picture.
    void set_words_without_picture(const QString& words);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
    QString words_;
};

} // namespace halvane
