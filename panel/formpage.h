// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace halvane {

/// The content of a form but its last row, the buttons. It scrolls where the screen has no room for it, and
/// shows what gets the focus; the buttons stay in sight below it. In a window that is larger than the
/// content asks for, content and buttons stay together in the middle.
class FormPage : public QScrollArea {
    Q_OBJECT
public:
    /// Takes the layout of `form` over, with the controls in it.
    /// In     grows  the directions in which the content uses all the room that a larger window gives
    explicit FormPage(QWidget& form, Qt::Orientations grows = {});

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void add_foot(QWidget& form, QLayout& buttons, QVBoxLayout& whole);
    QSize within_screen(QSize wanted) const;
    void limit_content();

    Qt::Orientations grows_;
    QWidget* foot_ = nullptr; ///< holds the buttons
};

/// The widget whose layout holds the controls of `form`: the content of its page, or the form without one.
QWidget& page_of(QWidget& form);

/// Puts the content of a form on a page and gives the form the size at which nothing is squeezed, wrapped
/// texts and large fonts included, as far as the screen has room. Called once its texts and lists are in
/// place. In     grows  the directions in which the content uses all the room that a larger window gives
void fit_form(QWidget& form, Qt::Orientations grows = {});

} // namespace halvane
