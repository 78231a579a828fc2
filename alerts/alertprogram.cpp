// SPDX-License-Identifier: MIT
#include "alerts/alertprogram.h"

#include "calendar/locationclock.h"
#include "calendar/zonetext.h"
#include "panel/namelabel.h"
#include "panel/panelstyle.h"
#include "routines/machineclock.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>
#include <utility>

namespace halvane {

namespace {

constexpr int tick_length = 1000; // [ms]
constexpr long status_ticks = 10; // the files may have changed, a tray may have come or gone
constexpr int settle_time = 400;  // some window managers minimise mapped windows only [ms]
constexpr double coming_size = 1.3;

constexpr int hint_width = 40; // units of space

constexpr ControlText main_window_texts[] = {
    {"cmdquit", "&Quit", "إ&نهاء"},
    {"lblhint",
     "This desktop has no tray. Closing this window only hides it and the alerts go on; starting the program "
     "again shows it. Quit ends the alerts.",
     "لا يوجد شريط نظام على سطح المكتب. إغلاق هذه النافذة يخفيها فقط و يستمر التنبيه، و فتح البرنامج مرة "
     "أخرى "
     "يظهرها. زر إنهاء يوقف التنبيه."},
};
constexpr TwinText trouble_text{
    "The settings cannot be read now. Alerts follow the last sound ones; the program looks again.",
    "لا يمكن قراءة الإعدادات الآن. يتبع التنبيه آخر إعدادات سليمة، و يعيد البرنامج المحاولة."};

QLabel* add_label(QVBoxLayout& column, QLabel* label, const char* name) {
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    column.addWidget(label);
    return label;
}

QLabel* add_note(QVBoxLayout& column, const char* name, int width) {
    QLabel* note = add_label(column, new QLabel, name);
    note->setWordWrap(true);
    note->setMinimumWidth(width);
    note->hide();
    return note;
}

} // namespace

AlertProgram::AlertProgram(AlertSounds& sounds, std::function<bool()> has_tray)
    : sounds_(sounds), timer_(new QTimer(this)), has_tray_(std::move(has_tray)) {
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
    const int width = hint_width * space_unit(main_window_);
    lblcoming_ = add_label(*column, new QLabel, "lblcoming");
    lblplace_ = add_label(*column, new NameLabel, "lblplace");
    lbltrouble_ = add_note(*column, "lbltrouble", width);
    lblhint_ = add_note(*column, "lblhint", width);
    cmdquit_ = new QPushButton;
    cmdquit_->setObjectName(QStringLiteral("cmdquit"));
    column->addWidget(cmdquit_, 0, Qt::AlignTrailing);
    set_spacing(main_window_);
    scale_font(*lblcoming_, coming_size);
    connect(cmdquit_, &QPushButton::clicked, qApp, &QCoreApplication::quit);
}

void AlertProgram::build_tray() {
    coming_action_ = menu_.addAction(QString(), this, &AlertProgram::toggle_main_window);
    trouble_action_ = menu_.addAction(QString(), this, &AlertProgram::show_main_window);
    trouble_action_->setVisible(false);
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
    ++ticks_;
}

void AlertProgram::handle(const Alert& alert) {
    const Language language = schedule_.preferences().language();
    const bool beep = alert.kind == Alert::Kind::beep;
    const bool audible = beep || alert.athan != Athan::none;
    const bool silent = audible && !sounds_.has_device();
    AlertWords words = words_of(alert, place_words(universal_time()), language);
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

/// The place, with its zone where the machine's clock shows another time.
QString AlertProgram::place_words(const MachineTime& now) const {
    const LocationClock clock = location_clock(schedule_.preferences(), schedule_.location(), now);
    QString name = QString::fromStdString(schedule_.location().name);
    if (agree(clock, machine_time()))
        return name;
    return name + QStringLiteral(" (%1)").arg(QString::fromStdString(zone_text(clock.hours_ahead)));
}

void AlertProgram::show_status(const MachineTime& now) {
    const Language language = schedule_.preferences().language();
    const QString coming = coming_words(schedule_.coming(now), language);
    const QString place = place_words(now);
    apply_language(main_window_, main_window_texts, language);
    lblcoming_->setText(coming);
    lblplace_->setText(place);
    menu_.setLayoutDirection(main_window_.layoutDirection());
    coming_action_->setText(coming);
    // Menus draw the letter of an access key apart, which breaks the joined letters of Arabic.
    quit_action_->setText(cmdquit_->text().remove(u'&'));
    tray_.setToolTip(coming + u'\n' + shortened(place));
    show_trouble(language);
    follow_tray();
}

void AlertProgram::show_trouble(Language language) {
    const bool in_trouble = schedule_.trouble().has_value();
    const QString words = text_of(trouble_text, language);
    const std::string why = in_trouble ? words_of(*schedule_.trouble(), language) : std::string();
    lbltrouble_->setText(words + u'\n' + isolated(QString::fromStdString(why)));
    lbltrouble_->setVisible(in_trouble);
    trouble_action_->setText(words);
    trouble_action_->setVisible(in_trouble);
    if (in_trouble)
        tray_.setToolTip(tray_.toolTip() + u'\n' + words);
}

/// A session's tray may come up after its programs, and may go. Without one the minimised window is the way
/// to quit.
void AlertProgram::follow_tray() {
    const bool there = has_tray_();
    if (tray_was_there_ == there)
        return;
    tray_was_there_ = there;
    lblhint_->setVisible(!there);
    if (there) {
        main_window_.winId(); // hidden, but known to the system by its title
        if (main_window_.isMinimized())
            main_window_.hide();
    } else if (!main_window_.isVisible()) {
        main_window_.showMinimized();
        QTimer::singleShot(settle_time, &main_window_, [this] {
            if (main_window_.isVisible() && !main_window_.isActiveWindow())
                main_window_.showMinimized();
        });
    }
}

void AlertProgram::show_main_window() {
    main_window_.showNormal();
    main_window_.raise();
    main_window_.activateWindow();
}

void AlertProgram::toggle_main_window() {
    if (main_window_.isVisible() && !main_window_.isMinimized())
        main_window_.hide();
    else
        show_main_window();
}

} // namespace halvane
