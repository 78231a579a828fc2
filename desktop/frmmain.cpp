// SPDX-License-Identifier: MIT
#include "desktop/frmmain.h"

#include "base/version.h"
#include "calendar/locationclock.h"
#include "calendar/yearlimits.h"
#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/panelstyle.h"
#include "prayer/moonrun.h"
#include "prayer/prayerrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/date.h"
#include "stored/pref.h"
#include "stored/programfolder.h"
#include "ui_frmmain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>
#include <algorithm>

namespace halvane {

namespace {

constexpr int clock_interval = 5000; // [ms]
constexpr int minutes_per_hour = 60;
constexpr double head_size = 1.6;
constexpr double title_size = 0.9;
constexpr double figure_size = 2.2;
constexpr double line_size = 1.2;
constexpr double arabic_line_points = 12;
constexpr double desktop_icon = 2.4; // of the unit of space

constexpr TwinText folder_text{"Settings and reports are in %1", "الإعدادات و التقارير في %1"};

constexpr ControlText twins[] = {
    {"frmmain", program_title, program_title},
    {"cmddat", "&Date", "ال&تاريخ"},
    {"cmdloc", "&Location", "المو&قع"},
    {"cmdpre", "&Preferences", "ا&لخيارات"},
    {"cmdqib", "&Qiblah", "&اتجاه القبلة"},
    {"cmdcom", "Prayer &Times", "مواقيت ال&صلاة"},
    {"cmdale", "Prayer &Alerts", "م&نبه الصلاة"},
    {"cmdpha", "M&oon Phases", "أ&طوار القمر"},
    {"cmdcresv", "Crescent &Visibility", "&رؤية الهلال"},
    {"cmdtele", "Tele&scope", "تلس&كوب"},
    {"cmdmonths", "Hi&jri Months", "الأشهر اله&جرية"},
    {"cmdext", "E&xit", "&خروج"},
    {"cmdhel", "&Help", "م&ساعدة"},
    {"cmdcon", "Hejric &Gregorian ", "&هجري ميلا&دي"},
    {"cmdtable", "T&imetable", "التقويم ال&شهري"},
    {"cmdmoon", "&Moon Times", "&مواقيت القمر"},
    {"cmdcoor", "Sun Moon &Ephemeris", "أ&زياج الشمس و القمر"},
    {"framain", "Desktop", "اللوحة الرئيسة"},
    {"fratoday", "Prayer Times", "مواقيت الصلاة"},
    {"lbltheader", "Today's Prayer Times", "مواقيت الصلاة اليوم"},
    {"lblhfaj", "Fajer", "الفجر"},
    {"lblhshr", "Shuroq", "الشروق"},
    {"lblhdoh", "Dhohur", "الظهر"},
    {"lblhasr", "Aser", "العصر"},
    {"lblhmag", "Maghreb", "المغرب"},
    {"lblhish", "Isha", "العشاء"},
    {"lbltitle", "Halvane 5.3", "Halvane 5.3"},
    {"lblby", "By Orlan Vesk", "تنفيذ Orlan Vesk"},
    {"cmdtoday", "Load today's (F5)", "تحميل مواقيت اليوم (F5)"},
    {"lblgsky", "Times & sky", "المواقيت و السماء"},
    {"lblgmoon", "Crescent & Moon", "الهلال و القمر"},
    {"lblgset", "Settings", "الإعدادات"},
};

/// How the two lines begin; the load step completes them.
constexpr ControlText lines[] = {
    {"lblmdate", "Machine's Date: ", "تاريخ الجهاز: "},
    {"lblmtime", "Machine's Time: ", "وقت الجهاز: "},
};

constexpr std::pair<const char*, const char*> icons[] = {
    {"cmddat", "date"},           {"cmdloc", "location"},    {"cmdpre", "preferences"},
    {"cmdqib", "qiblah"},         {"cmdcom", "prayertimes"}, {"cmdale", "alerts"},
    {"cmdpha", "moonphases"},     {"cmdcresv", "crescent"},  {"cmdtele", "telescope"},
    {"cmdext", "exit"},           {"cmdhel", "help"},        {"cmdcon", "hejric"},
    {"cmdmoon", "moontimes"},     {"cmdtable", "timetable"}, {"cmdcoor", "ephemeris"},
    {"cmdmonths", "hijrimonths"},
};

std::string short_time(const MachineTime& clock) {
    return platform().short_time(clock.hour, clock.minute, clock.second);
}

constexpr TwinText in_minutes{"in %1 min", "بعد %1 د"};
constexpr TwinText in_hours{"in %1 h %2 min", "بعد %1 س %2 د"};
constexpr TwinText tomorrow{"tomorrow ", "غدا "};

QString remaining_text(const NextPrayer& next, Language language) {
    const int hours = next.minutes_left / minutes_per_hour;
    const int minutes = next.minutes_left % minutes_per_hour;
    if (hours == 0)
        return text_of(in_minutes, language).arg(minutes);
    return text_of(in_hours, language).arg(hours).arg(minutes);
}

/// Which day's prayer it is, when it is none of the day whose times are shown.
/// In     shown, now  day counts of the times and of the location's date
QString day_of_next(const NextPrayer& next, double shown, double now, Language language) {
    if (next.day == shown)
        return {};
    if (next.day == now + 1)
        return text_of(tomorrow, language);
    const MachineTime date = clock_at(next.day * seconds_per_day);
    return QStringLiteral("%1/%2 ").arg(date.day).arg(date.month);
}

/// The other panels of the program; the progress window stays with its runs, a modal panel closes itself.
void close_other_panels(const QWidget& main_panel) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool panel = window->objectName().startsWith(QLatin1String("frm"));
        if (panel && window != &main_panel && window->objectName() != QLatin1String("frmwait") &&
            !window->isModal())
            window->close();
    }
}

} // namespace

std::span<const ControlText> frmmain_twins() {
    return twins;
}

frmmain::frmmain(std::span<const Panel> panels)
    : ui_(std::make_unique<Ui::frmmain>()), timertime_(new QTimer(this)) {
    ui_->setupUi(this);
    titles_ = {ui_->lblhfaj, ui_->lblhshr, ui_->lblhdoh, ui_->lblhasr, ui_->lblhmag, ui_->lblhish};
    times_ = {ui_->lbltfaj, ui_->lbltshr, ui_->lbltdoh, ui_->lbltasr, ui_->lbltmag, ui_->lbltish};
    remaining_ = {ui_->lblnfaj, ui_->lblnshr, ui_->lblndoh, ui_->lblnasr, ui_->lblnmag, ui_->lblnish};
    set_icons();
    set_sizes();
    connect_buttons(panels);
    new FormPage(*this);
    ui_->lblmdate->installEventFilter(this);
    timertime_->setObjectName(QStringLiteral("timertime"));
    timertime_->setInterval(clock_interval);
    connect(timertime_, &QTimer::timeout, this, &frmmain::timertime_event);
    set_main_panel_reload([this] { reload(); });
}

frmmain::~frmmain() {
    set_main_panel_reload({});
}

void frmmain::load() {
    load_main_panel(*this, state_);
    tell_hijri();
    tell_folder();
    show_series();
    timertime_->start();
}

/// Tells the date line's day by the kept rule.
void frmmain::tell_hijri() {
    const std::optional<std::string> tip = hijri_tip(kept_rule_, state_);
    ui_->lblmdate->setToolTip(tip ? plain_tip(QString::fromStdString(*tip)) : QString());
}

/// The title, which names the program's version, tells where its files are when that needs telling.
void frmmain::tell_folder() {
    const std::optional<std::string> folder = told_program_folder();
    const QString words =
        folder ? text_of(folder_text, state_.language).arg(isolated(QString::fromStdString(*folder)))
               : QString();
    for (QLabel* label : {ui_->lbltitle, ui_->lblby}) {
        label->setToolTip(folder ? plain_tip(words) : QString());
        label->setAccessibleDescription(words);
    }
}

/// The rule may have been chosen since the load.
bool frmmain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        tell_hijri();
    return QWidget::eventFilter(watched, event);
}

/// The foot tells of series files that are not the delivered ones, and has no room without them.
void frmmain::show_series() {
    const QStringList warnings = series_warnings(state_.language);
    ui_->lblseries->setText(warnings.join(u'\n'));
    ui_->lblseries->setVisible(!warnings.isEmpty());
}

void frmmain::reload() {
    unload();
    load();
    show();
}

void frmmain::unload() {
    timertime_->stop();
    close_other_panels(*this);
    ui_->retranslateUi(this);
    setLayoutDirection(Qt::LeftToRight);
    state_.moments.clear();
    set_sizes();
}

void frmmain::connect_buttons(std::span<const Panel> panels) {
    connect(ui_->cmdcom, &QPushButton::clicked, this, &frmmain::cmdcom_clicked);
    connect(ui_->cmdmoon, &QPushButton::clicked, this, &frmmain::cmdmoon_clicked);
    connect(ui_->cmdhel, &QPushButton::clicked, this, &frmmain::cmdhel_clicked);
    connect(ui_->cmdext, &QPushButton::clicked, this, &frmmain::cmdext_clicked);
    ui_->cmdtoday->setShortcut(Qt::Key_F5);
    connect(ui_->cmdtoday, &QPushButton::clicked, this, &frmmain::load);
    for (const Panel& panel : panels)
        if (auto* button = findChild<QPushButton*>(QString::fromLatin1(panel.button)))
            connect(button, &QPushButton::clicked, this, [this, panel] { open_panel(panel, this); });
}

void frmmain::run_report(const QPushButton& button,
                         RunPointer (*run_of)(const TheoryPointer&, const MachineTime&)) {
    if (const std::optional<Refusal> refused = refused_stored_period(read_date())) {
        warn(this, *refused, state_.language);
        return;
    }
    RunPointer run;
    RunOutcome outcome;
    {
        WaitProgress progress(button.text().remove(u'&').trimmed(), this);
        run = run_of(loaded_theory(), machine_time());
        outcome = write_report(*run, progress);
    }
    if (outcome == RunOutcome::done)
        platform().show_report(run->report_name(), run);
    else if (outcome == RunOutcome::refused)
        tell_high_latitude();
}

void frmmain::tell_high_latitude() {
    warn(this, high_latitude_message, state_.language);
}

void frmmain::cmdcom_clicked() {
    run_report(*ui_->cmdcom, prayer_run);
}

void frmmain::cmdmoon_clicked() {
    state_.language = stored_language();
    run_report(*ui_->cmdmoon, moon_run);
}

void frmmain::cmdhel_clicked() {
    platform().show_text_file("help.txt");
}

void frmmain::cmdext_clicked() {
    close();
}

void frmmain::timertime_event() {
    show_clock();
}

void frmmain::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange && !sizing_) {
        set_sizes();
        if (state_.language == Language::arabic)
            set_arabic_fonts();
    }
    if (event->type() == QEvent::PaletteChange)
        mark_next_prayer();
    QWidget::changeEvent(event);
}

void frmmain::closeEvent(QCloseEvent* event) {
    timertime_->stop();
    cancel_runs();
    event->accept();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != this)
            window->close();
}

void frmmain::show_language(Language language) {
    use_standard_texts(language);
    apply_language(*this, twins, language);
    apply_language(*this, lines, language);
    set_sizes();
    if (language == Language::arabic)
        set_arabic_fonts();
}

void frmmain::show_today(const PrayerTexts& times) {
    const std::string* const texts[] = {&times.fajer, &times.shuroq,  &times.dhohur,
                                        &times.aser,  &times.maghreb, &times.isha};
    for (std::size_t column = 0; column < times_.size(); ++column)
        times_[column]->setText(QString::fromStdString(*texts[column]));
}

void frmmain::show_location(const std::string& name) {
    ui_->lbltloc->setText(QString::fromStdString(name));
}

void frmmain::show_date(const std::string& line) {
    ui_->lblmdate->setText(QString::fromStdString(line));
    if (state_.language == Language::arabic)
        set_font_if_present(*ui_->lbltheader, QStringLiteral("Arabic Transparent"), 15);
}

void frmmain::show_clock() {
    const MachineTime universal = universal_time();
    const MachineTime now = machine_time();
    ui_->lblmtime->setText(QString::fromStdString(clock_line(short_time(now), state_.language)));
    show_line(*ui_->lblplaceclock, place_clock_line(state_, now, universal, short_time));
    show_line(*ui_->lbltdate, other_day_line(state_, now, universal));
    ui_->cmdtoday->setVisible(!same_day(now, state_.loaded_at));
    mark_next_prayer();
}

void frmmain::show_line(QLabel& label, const std::optional<std::string>& line) {
    label.setText(QString::fromStdString(line.value_or(std::string())));
    label.setVisible(line.has_value());
}

void frmmain::set_icons() {
    for (const auto& [button, icon] : icons)
        findChild<QPushButton*>(QString::fromLatin1(button))->setIcon(panel_icon(QString::fromLatin1(icon)));
}

void frmmain::set_sizes() {
    sizing_ = true;
    set_spacing(*this);
    for (QLabel* label : findChildren<QLabel*>())
        scale_font(*label, 1);
    scale_font(*ui_->lblhead, head_size);
    scale_font(*ui_->lbltloc, line_size);
    for (QLabel* label : {ui_->lblmdate, ui_->lblmtime, ui_->lbltheader, ui_->lbltitle})
        scale_font(*label, line_size);
    for (QLabel* label : {ui_->lblgsky, ui_->lblgmoon, ui_->lblgset})
        scale_font(*label, title_size);
    for (std::size_t column = 0; column < times_.size(); ++column) {
        scale_font(*titles_[column], title_size);
        scale_font(*times_[column], figure_size);
        scale_font(*remaining_[column], title_size);
    }
    QFont title = ui_->lbltitle->font();
    title.setBold(true);
    ui_->lbltitle->setFont(title);
    const int icon = static_cast<int>(desktop_icon * space_unit(*this));
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setIconSize(QSize(icon, icon));
    equalise_columns();
    sizing_ = false;
}

/// Stretch factors share out the room that is left only.
void frmmain::equalise_columns() {
    for (QGridLayout* grid : {ui_->buttongrid, ui_->timesgrid}) {
        int widest = 0;
        for (int column = 0; column < grid->columnCount(); ++column)
            for (int row = 0; row < grid->rowCount(); ++row)
                if (const QLayoutItem* item = grid->itemAtPosition(row, column))
                    widest = std::max(widest, item->sizeHint().width());
        for (int column = 0; column < grid->columnCount(); ++column)
            grid->setColumnMinimumWidth(column, widest);
    }
}

void frmmain::set_arabic_fonts() {
    const QString lower = QStringLiteral("arabic Transparent");
    const QString upper = QStringLiteral("Arabic Transparent");
    set_font_if_present(*ui_->lblhead, lower, 26);
    set_font_if_present(*ui_->lbltitle, lower, 18);
    set_font_if_present(*ui_->lblby, upper, 18);
    set_font_if_present(*ui_->lbltheader, upper, 14);
    for (QLabel* title : titles_)
        set_font_if_present(*title, upper, 12);
    for (QLabel* line : {ui_->lblmdate, ui_->lblmtime}) {
        QFont font = line->font();
        font.setPointSizeF(arabic_line_points);
        line->setFont(font);
    }
}

void frmmain::mark_next_prayer() {
    for (QLabel* label : {ui_->lblgsky, ui_->lblgmoon, ui_->lblgset, ui_->lblplaceclock}) {
        QPalette colours = palette();
        colours.setColor(QPalette::WindowText, muted_colour(*this));
        label->setPalette(colours);
    }
    const MachineTime universal = universal_time();
    const std::optional<NextPrayer> next = same_day(machine_time(), state_.loaded_at)
                                               ? next_prayer(state_.moments, seconds_of(universal))
                                               : std::nullopt;
    const double shown = day_count_of(state_.loaded_at);
    const double here = day_count_of(location_clock(state_.preferences, state_.location, universal).time);
    for (std::size_t column = 0; column < times_.size(); ++column) {
        const bool is_next = next && next->column == column;
        const QString day = is_next ? day_of_next(*next, shown, here, state_.language) : QString();
        mark_column(column, is_next ? day + remaining_text(*next, state_.language) : QString(), is_next);
        times_[column]->setToolTip(day.isEmpty() ? QString()
                                                 : day + titles_[column]->text() + u' ' +
                                                       QString::fromStdString(text_of(next->clock)));
    }
}

void frmmain::mark_column(std::size_t column, const QString& remaining, bool next) {
    remaining_[column]->setText(remaining);
    for (QLabel* label : {titles_[column], times_[column], remaining_[column]}) {
        QPalette colours = palette();
        if (next)
            colours.setColor(QPalette::WindowText, accent_colour(*this));
        else if (label == titles_[column])
            colours.setColor(QPalette::WindowText, muted_colour(*this));
        label->setPalette(colours);
        QFont font = label->font();
        font.setBold(next);
        label->setFont(font);
    }
    times_[column]->setAccessibleName(titles_[column]->text() + u' ' + times_[column]->text() + u' ' +
                                      remaining);
}

} // namespace halvane
