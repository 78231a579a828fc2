// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alertwords.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTimer;

namespace halvane {

/// The pop-up window of a prayer's time. It stays above the other windows without taking the keyboard from
/// them, and closes by a click anywhere on it, by Escape, or by itself after five minutes.
class AlertWindow : public QWidget {
    Q_OBJECT
public:
    AlertWindow();

    /// Shows the words, in place of those that may be shown still, and starts the five minutes anew.
    void show_alert(const AlertWords& words, Language language);

signals:
    void closed(); ///< the window has gone, by the user or by itself

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void set_sizes();
    void place_on_screen();

    QLabel* heading_;
    QLabel* time_;
    QLabel* place_;
    QLabel* next_;
    QLabel* notice_;
    QPushButton* close_;
    QTimer* timer_;
};

} // namespace halvane
