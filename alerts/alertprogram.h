// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alertsounds.h"
#include "alerts/alertwindow.h"
#include "prayer/alertschedule.h"
#include "routines/seriesloader.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QWidget>
#include <functional>
#include <optional>

class QLabel;
class QPushButton;
class QTimer;

namespace halvane {

/// The alert program: asks the schedule every second what is due and shows and sounds it; tells the next
/// prayer in the tray, or in its main window where there is no tray. Settings that cannot be read for a while
/// are told there too; the alerts go on by the last sound ones.
class AlertProgram : public QObject {
    Q_OBJECT
public:
    /// In     has_tray  whether the desktop has a tray now
    explicit AlertProgram(AlertSounds& sounds,
                          std::function<bool()> has_tray = &QSystemTrayIcon::isSystemTrayAvailable);
    ~AlertProgram() override;

    /// The first tick, at once, and one every second from now on.
    /// Error  raises RunTimeFailure for a missing or damaged file; later ticks tell it instead.
    void start();

    /// Does what is due by the machine's clock.
    void tick();

    AlertWindow& alert_window() { return alert_window_; }
    QWidget& main_window() { return main_window_; } ///< its title is "Halvane Alerts"
    const QSystemTrayIcon& tray() const { return tray_; }
    QMenu& tray_menu() { return menu_; }

    /// Brings the main window to the front.
    void show_main_window();

private:
    void build_main_window();
    void build_tray();
    void show_status(const MachineTime& now);
    void show_trouble(Language language);
    QString place_words(const MachineTime& now) const;
    void follow_tray();
    void toggle_main_window();
    void handle(const Alert& alert);

    AlertSounds& sounds_;
    AlertSchedule schedule_{loaded_theory()};
    AlertWindow alert_window_;
    QWidget main_window_;
    QLabel* lblcoming_;
    QLabel* lblplace_;
    QLabel* lbltrouble_;
    QLabel* lblhint_;
    QPushButton* cmdquit_;
    QMenu menu_;
    QAction* coming_action_;
    QAction* trouble_action_;
    QAction* quit_action_;
    QSystemTrayIcon tray_;
    QTimer* timer_;
    std::function<bool()> has_tray_;
    std::optional<bool> tray_was_there_;
    long ticks_ = 0;
    bool told_no_sound_ = false;
};

} // namespace halvane
