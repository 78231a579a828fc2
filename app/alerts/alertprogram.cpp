#include "app/alerts/alertprogram.h"

#include "app/frmstyle.h"
#include "app/stored/loc.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>

namespace halvane {

namespace {

constexpr int tick_length = 1000; // [ms]
constexpr long status_ticks = 10; // the files may have changed
constexpr long tray_ticks = 30;   // a session's tray may come up after its programs
constexpr int settle_time = 400;  // some window managers minimise mapped windows only [ms]
constexpr double coming_size = 1.3;

constexpr Twin main_window_texts[] = {{"cmdquit", "&Quit", "إ&نهاء"}};

QString place_name() {
    return QString::fromStdString(read_loc().name);
}

} // namespace

AlertProgram::AlertProgram(AlertSounds& sounds) : sounds_(sounds), timer_(new QTimer(this)) {
    build_main_window();
    build_tray();
    connect(timer_, &QTimer::timeout, this, &AlertProgram::tick);
    connect(&alert_window_, &AlertWindow::closed, this, [this] { sounds_.stop(); });
}

AlertProgram::~AlertProgram() = default;

void AlertProgram::build_main_window() {
    main_window_.setObjectName(QStringLiteral("halvanealerts"));
    main_window_.setWindowTitle(QStringLiteral("Halvane Alerts"));
    auto* column = new QVBoxLayout(&main_window_);
    lblcoming_ = new QLabel;
    lblcoming_->setObjectName(QStringLiteral("lblcoming"));
    lblplace_ = new QLabel;
    lblplace_->setObjectName(QStringLiteral("lblplace"));
    cmdquit_ = new QPushButton;
    cmdquit_->setObjectName(QStringLiteral("cmdquit"));
    column->addWidget(lblcoming_);
    column->addWidget(lblplace_);
    column->addWidget(cmdquit_, 0, Qt::AlignTrailing);
    set_spacing(main_window_);
    scale_font(*lblcoming_, coming_size);
    connect(cmdquit_, &QPushButton::clicked, qApp, &QCoreApplication::quit);
}

void AlertProgram::build_tray() {
    coming_action_ = menu_.addAction(QString(), this, &AlertProgram::toggle_main_window);
    menu_.addSeparator();
    quit_action_ = menu_.addAction(QString(), qApp, &QCoreApplication::quit);
    tray_.setIcon(QApplication::windowIcon());
    tray_.setContextMenu(&menu_);
    connect(&tray_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            toggle_main_window();
    });
}

void AlertProgram::start() {
    tick();
    tray_.show();
    timer_->start(tick_length);
}

void AlertProgram::tick() {
    const MachineTime now = universal_time();
    const std::vector<Alert> alerts = schedule_.due(now);
    for (const Alert& alert : alerts)
        handle(alert);
    if (ticks_ % status_ticks == 0 || !alerts.empty())
        show_status(now);
    if (ticks_ == 0 || ticks_ == tray_ticks)
        place_main_window();
    ++ticks_;
}

void AlertProgram::handle(const Alert& alert) {
    const Language language = stored_language();
    const bool beep = alert.kind == Alert::Kind::beep;
    const bool audible = beep || alert.athan != Athan::none;
    const bool silent = audible && !sounds_.has_device();
    AlertWords words = words_of(alert, place_name(), language);
    const bool tells = silent && !told_no_sound_;
    if (tells) {
        words.notice = no_sound_words(language);
        std::fputs("halvane: there is no sound device\n", stderr);
        told_no_sound_ = true;
    }
    if (!beep || tells)
        alert_window_.show_alert(words, language);
    if (!audible || silent)
        return;
    if (beep)
        sounds_.beep();
    else
        sounds_.play(alert.athan);
}

void AlertProgram::show_status(const MachineTime& now) {
    const Language language = stored_language();
    const QString coming = coming_words(schedule_.coming(now), language);
    const QString place = place_name();
    apply_language(main_window_, main_window_texts, language);
    lblcoming_->setText(coming);
    lblplace_->setText(place);
    menu_.setLayoutDirection(main_window_.layoutDirection());
    coming_action_->setText(coming);
    quit_action_->setText(cmdquit_->text());
    tray_.setToolTip(coming + u'\n' + place);
}

/// Without a tray the minimised window is the way to quit.
void AlertProgram::place_main_window() {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        if (!main_window_.isVisible()) {
            main_window_.showMinimized();
            QTimer::singleShot(settle_time, &main_window_, &QWidget::showMinimized);
        }
    } else {
        main_window_.winId(); // hidden, but known to the system by its title
        if (main_window_.isMinimized())
            main_window_.hide();
    }
}

void AlertProgram::toggle_main_window() {
    const bool shown = main_window_.isVisible() && !main_window_.isMinimized();
    if (shown) {
        main_window_.hide();
        return;
    }
    main_window_.showNormal();
    main_window_.raise();
    main_window_.activateWindow();
}

} // namespace halvane
