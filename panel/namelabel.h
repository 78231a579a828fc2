// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace halvane {

/// A label for a name that the user has given: its letters as they stand, never markup. A name that is too
/// long for the label's room is shown without its middle, and whole in the tool tip; it does not widen the
/// panel beyond what names usually take.
class NameLabel : public QLabel {
    Q_OBJECT
public:
    explicit NameLabel(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// What of the name is shown in the room that the label has.
    QString shown_text() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

/// A name or another text of the user for a sentence or a title: without its middle when it is longer than
/// some forty letters.
QString shortened(const QString& text);

/// `text` as a tool tip that shows its letters as they stand, in lines that wrap.
QString plain_tip(const QString& text);

} // namespace halvane
