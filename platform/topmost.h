// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

namespace halvane {

/// Keeps panels above the other windows, but not above what the program shows after them: a box, a dialog or
/// a report that opens while a panel is kept stands as high and comes in front of it.
class TopMost : public QObject {
public:
    /// Keeps the panel above the other windows, or puts it back among them.
    void keep(QWidget& panel, bool on_top);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keeps_one() const;
    void let_follow(QWidget& window);
    void let_go();

    QList<QPointer<QWidget>> panels_;
    QList<QPointer<QWidget>> followers_;
};

} // namespace halvane
