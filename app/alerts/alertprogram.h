#pragma once

#include "app/alerts/alertwindow.h"
#include "app/alerts/soundplayer.h"
#include "prayer/alertschedule.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QWidget>

class QLabel;
class QPushButton;
class QTimer;

namespace halvane {

/// The alert program: asks the schedule every second what is due and shows and sounds it; tells the next
/// prayer in the tray, or in its main window where there is no tray.
class AlertProgram : public QObject {
    Q_OBJECT
public:
    explicit AlertProgram(AlertSounds& sounds);
    ~AlertProgram() override;

    /// The first tick, at once, and one every second from now on.
    /// Error  raises RunTimeFailure, as every tick does, for a missing or damaged file.
    void start();

    /// Does what is due by the machine's clock.
    void tick();

    AlertWindow& alert_window() { return alert_window_; }
    QWidget& main_window() { return main_window_; } ///< its title is "Halvane Alerts"

private:
    void build_main_window();
    void build_tray();
    void show_status(const MachineTime& now);
    void place_main_window();
    void toggle_main_window();
    void handle(const Alert& alert);

    AlertSounds& sounds_;
    AlertSchedule schedule_;
    AlertWindow alert_window_;
    QWidget main_window_;
    QLabel* lblcoming_;
    QLabel* lblplace_;
    QPushButton* cmdquit_;
    QMenu menu_;
    QAction* coming_action_;
    QAction* quit_action_;
    QSystemTrayIcon tray_;
    QTimer* timer_;
    long ticks_ = 0;
    bool told_no_sound_ = false;
};

} // namespace halvane
