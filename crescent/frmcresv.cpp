// SPDX-License-Identifier: MIT
#include "crescent/frmcresv.h"

#include "crescent/circumstances.h"
#include "crescent/frmmap.h"
#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "routines/crescentday.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "ui_frmcresv.h"

#include <algorithm>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmcresv", "Crescent Visibility", "رؤية الهلال"},
    {"frakind", "Crescent", "الهلال"},
    {"optnew", "&New (Evening)", "&أول الشهر (مساء)"},
    {"optold", "&Old (Morning)", "آ&خر الشهر (صباحا)"},
    {"fraref", "Reference", "المرجع"},
    {"optgeo", "&Geocentric", "&مركزي"},
    {"opttopo", "&Topocentric", "&سطحي"},
    {"fradate", "Approximate Date", "التاريخ التقريبي"},
    {"optgre", "G&regorian", "مي&لادي"},
    {"opthej", "&Hejric", "&هجري"},
    {"lblday", "Day:", "اليوم"},
    {"lblmonth", "Month:", "الشهر"},
    {"lblyear", "Year:", "السنة"},
    {"lblmonthh", "Month:", "الشهر"},
    {"lblyearh", "Year:", "السنة"},
    {"cmdprev", "&Find Conjunction", "إي&جاد الاقتران"},
    {"cmdnext", "Ne&xt Crescent", "الهلال القا&دم"},
    {"fraday", "Day of Observation", "يوم الرصد"},
    {"fratime", "Time of Calculations", "وقت الحسابات"},
    {"optbest", "&Best Time", "أف&ضل وقت"},
    {"optspe", "&User Time", "و&قت محدد"},
    {"lblh", "Hour:", "الساعة"},
    {"lblm", "Minute:", "الدقيقة"},
    {"cmdcalc", "&Calculate", "إجراء ال&حسابات"},
    {"cmdmap", "World &Map", "خريطة ال&عالم"},
    {"cmdwatch", "&Watch Sheet", "ورقة ال&رصد"},
    {"cmdclose", "Clo&se", "إ&غلاق"},
    {"cboday@spoken", "Gregorian day", "اليوم الميلادي"},
    {"cbomonth@spoken", "Gregorian month", "الشهر الميلادي"},
    {"txtyear@spoken", "Gregorian year", "السنة الميلادية"},
    {"cbomh@spoken", "Hejric month", "الشهر الهجري"},
    {"txtyearh@spoken", "Hejric year", "السنة الهجرية"},
    {"cboh@spoken", "User Time: hour", "الوقت المحدد: الساعة"},
    {"cbom@spoken", "User Time: minute", "الوقت المحدد: الدقيقة"},
    {"cmdprev@tip", "Finds the conjunction nearest to the date and the days to calculate for",
     "يجد الاقتران الأقرب إلى التاريخ و الأيام التي يمكن الحساب لها"},
    {"cmdnext@tip", "Takes today's date to the crescent that comes next, and finds its conjunction",
     "يأخذ تاريخ اليوم إلى الهلال القادم و يجد اقترانه"},
    {"cmdcalc@tip", "The report of the chosen day and time, once the conjunction is found",
     "تقرير اليوم و الوقت المختارين بعد إيجاد الاقتران"},
    {"cmdmap@tip", "Where in the world the crescent can be seen, once the conjunction is found",
     "أماكن رؤية الهلال في العالم بعد إيجاد الاقتران"},
    {"cmdwatch@tip",
     "A page for who watches for the crescent: of the chosen day, or of today before one is found",
     "صفحة لمن يرصد الهلال: لليوم المختار، أو لهذا اليوم قبل إيجاد الاقتران"},
};

constexpr TwinText not_found_yet{"The conjunction has not been looked for yet.\n",
                                 "لم يتم البحث عن الاقتران بعد.\n"};

} // namespace

std::span<const ControlText> frmcresv_twins() {
    return twins;
}

frmcresv::frmcresv(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmcresv>()), language_(stored_language()) {
    ui_->setupUi(this);
    apply_language(*this, twins, language_);
    fill_lists();
    load();
    set_sizes();
    select_whole_text_on_focus(*this);
    connect_controls();
    fit_form(*this);
}

frmcresv::~frmcresv() = default;

void frmcresv::fill_lists() {
    fill_with_days(*ui_->cboday);
    fill_with_months(*ui_->cbomonth);
    fill_with_hours(*ui_->cboh);
    fill_with_minutes(*ui_->cbom);
    for (const std::string& month : hijri_month_list(language_))
        ui_->cbomh->addItem(QString::fromStdString(month));
}

void frmcresv::set_sizes() {
    set_spacing(*this);
    shape_number_box(*ui_->txtyear, "-88888");
    shape_number_box(*ui_->txtyearh, "-88888");
    ui_->lblfound->setMinimumWidth(found_width());
    ui_->lblfound->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QRadioButton* day : {ui_->optconj, ui_->optone, ui_->opttwo})
        fit_width(*day, text_of(day_captions(false)[2], language_) + QStringLiteral("MM"));
}

/// Room for the longest words of a conjunction, so that finding one moves nothing.
int frmcresv::found_width() const {
    constexpr double any_day = 2461041.5;
    constexpr int days_of_year = 365;
    CrescentRecords run;
    run.settings.geocentric = true;
    int width = 0;
    for (int day = 0; day < days_of_year; ++day) {
        const QString words = text_of(conjunction_words({0, any_day + day, 0}, run), language_);
        width = std::max(width, ui_->lblfound->fontMetrics().size(0, words).width());
    }
    return width;
}

void frmcresv::connect_controls() {
    for (QComboBox* list : {ui_->cboday, ui_->cbomonth, ui_->cbomh})
        connect(list, &QComboBox::currentIndexChanged, this, &frmcresv::reset);
    for (QLineEdit* box : {ui_->txtyear, ui_->txtyearh})
        connect(box, &QLineEdit::textChanged, this, &frmcresv::reset);
    for (QRadioButton* option : {ui_->optgre, ui_->opthej, ui_->optnew, ui_->optold})
        connect(option, &QRadioButton::clicked, this, &frmcresv::reset);
    for (QRadioButton* option : {ui_->optgeo, ui_->opttopo})
        connect(option, &QRadioButton::clicked, this, &frmcresv::reference_clicked);
    connect(ui_->optnew, &QRadioButton::toggled, this, &frmcresv::show_events);
    connect(ui_->optgre, &QRadioButton::toggled, this, &frmcresv::enable_date_entry);
    connect(ui_->optspe, &QRadioButton::toggled, this, &frmcresv::enable_user_time);
    connect(ui_->cmdprev, &QPushButton::clicked, this, &frmcresv::cmdprev_click);
    connect(ui_->cmdnext, &QPushButton::clicked, this, &frmcresv::cmdnext_click);
    connect(ui_->cmdcalc, &QPushButton::clicked, this, &frmcresv::cmdcalc_click);
    connect(ui_->cmdmap, &QPushButton::clicked, this, &frmcresv::cmdmap_click);
    connect(ui_->cmdwatch, &QPushButton::clicked, this, &frmcresv::cmdwatch_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &frmcresv::cmdclose_click);
}

void frmcresv::load() {
    show_stored(read_visib());
    enable_date_entry();
    enable_user_time();
    show_events();
    show_days();
}

void frmcresv::show_stored(const CrescentSettings& stored) {
    show_entry(*ui_->cboday, stored.day);
    show_entry(*ui_->cbomonth, stored.month);
    ui_->txtyear->setText(QString::fromStdString(stored.year));
    (stored.new_crescent ? ui_->optnew : ui_->optold)->setChecked(true);
    (stored.geocentric ? ui_->optgeo : ui_->opttopo)->setChecked(true);
    const CrescentChoice choice = chosen(stored);
    QRadioButton* const days[] = {ui_->optconj, ui_->optone, ui_->opttwo};
    days[choice.days]->setChecked(true);
    QRadioButton* const times[] = {ui_->optsun, ui_->optmoon, ui_->optbest, ui_->optspe};
    times[static_cast<int>(choice.time)]->setChecked(true);
    show_entry(*ui_->cboh, stored.user_hour);
    show_entry(*ui_->cbom, stored.user_minute);
    (stored.gregorian ? ui_->optgre : ui_->opthej)->setChecked(true);
    ui_->cbomh->setCurrentIndex(stored.hijri_month);
    ui_->txtyearh->setText(QString::fromStdString(stored.hijri_year));
}

CrescentSettings frmcresv::shown() const {
    CrescentSettings settings;
    settings.day = text_of(*ui_->cboday);
    settings.month = text_of(*ui_->cbomonth);
    settings.year = text_of(*ui_->txtyear);
    settings.new_crescent = ui_->optnew->isChecked();
    settings.geocentric = ui_->optgeo->isChecked();
    settings.day_of_conjunction = ui_->optconj->isChecked();
    settings.one_day = ui_->optone->isChecked();
    settings.two_days = ui_->opttwo->isChecked();
    settings.at_sun = ui_->optsun->isChecked();
    settings.at_moon = ui_->optmoon->isChecked();
    settings.at_best_time = ui_->optbest->isChecked();
    settings.at_user_time = ui_->optspe->isChecked();
    settings.user_hour = text_of(*ui_->cboh);
    settings.user_minute = text_of(*ui_->cbom);
    settings.gregorian = ui_->optgre->isChecked();
    settings.hijri = ui_->opthej->isChecked();
    settings.hijri_month = ui_->cbomh->currentIndex();
    settings.hijri_year = text_of(*ui_->txtyearh);
    return settings;
}

void frmcresv::reset() {
    close_map();
    form_.reset();
    show_days();
}

void frmcresv::reference_clicked() {
    cmdprev_click();
    reset();
}

void frmcresv::close_map() {
    if (map_)
        map_->close();
    map_.clear();
}

void frmcresv::enable_date_entry() {
    const bool gregorian = ui_->optgre->isChecked();
    for (QWidget* entry : std::initializer_list<QWidget*>{ui_->lblday, ui_->cboday, ui_->lblmonth,
                                                          ui_->cbomonth, ui_->lblyear, ui_->txtyear})
        entry->setEnabled(gregorian);
    for (QWidget* entry :
         std::initializer_list<QWidget*>{ui_->lblmonthh, ui_->cbomh, ui_->lblyearh, ui_->txtyearh})
        entry->setEnabled(!gregorian);
}

void frmcresv::enable_user_time() {
    for (QWidget* entry : std::initializer_list<QWidget*>{ui_->lblh, ui_->cboh, ui_->lblm, ui_->cbom})
        entry->setEnabled(ui_->optspe->isChecked());
}

void frmcresv::show_events() {
    const auto captions = event_captions(ui_->optnew->isChecked());
    ui_->optsun->setText(text_of(captions[0], language_));
    ui_->optmoon->setText(text_of(captions[1], language_));
}

/// The captions of the three days, and the buttons that need them to be dates.
void frmcresv::show_days() {
    const bool is_new = ui_->optnew->isChecked();
    QRadioButton* const days[] = {ui_->optconj, ui_->optone, ui_->opttwo};
    for (std::size_t i = 0; i < std::size(days); ++i) {
        if (!form_.is_prepared())
            days[i]->setText(text_of(day_captions(is_new)[i], language_));
        else if (const QString date = QString::fromStdString(form_.dates(is_new)[i]);
                 language_ == Language::arabic)
            days[i]->setText(isolated(date));
        else
            days[i]->setText(date);
    }
    ui_->lblfound->setText(form_.is_prepared() ? with_figures_in_order(text_of(found_, language_))
                                               : text_of(not_found_yet, language_));
    ui_->cmdcalc->setEnabled(form_.is_prepared());
    ui_->cmdmap->setEnabled(form_.is_prepared());
    (form_.is_prepared() ? ui_->cmdcalc : ui_->cmdprev)->setDefault(true);
}

void frmcresv::cmdprev_click() {
    settle_numbers(*this);
    close_map();
    if (refuse(refused_conjunction(shown())))
        return;
    const CrescentRecords run = read_crescent_records(shown());
    const Conjunction conjunction = form_.prepare(loaded_theory(), run);
    conjunctionstart = conjunction.dynamical;
    found_ = conjunction_words(conjunction, run);
    show_days();
}

void frmcresv::cmdnext_click() {
    const MachineTime now = machine_time();
    const CrescentSettings coming = coming_crescent(
        loaded_theory(), read_crescent_records(shown()),
        {static_cast<double>(now.year), static_cast<double>(now.month), static_cast<double>(now.day)});
    choose_entry(*ui_->cboday, coming.day);
    choose_entry(*ui_->cbomonth, coming.month);
    ui_->txtyear->setText(QString::fromStdString(coming.year));
    ui_->cbomh->setCurrentIndex(coming.hijri_month);
    ui_->txtyearh->setText(QString::fromStdString(coming.hijri_year));
    cmdprev_click();
}

bool frmcresv::refuse(const std::optional<CrescentRefusal>& refused) {
    if (!refused)
        return false;
    form_.reset();
    show_days();
    warn(this, refused->told, language_);
    if (refused->input == CrescentInput::user_time)
        ui_->cboh->setFocus(Qt::OtherFocusReason);
    else
        ask_again(refused->input == CrescentInput::hijri_year ? *ui_->txtyearh : *ui_->txtyear);
    return true;
}

void frmcresv::cmdcalc_click() {
    if (refuse(refused_user_time(shown())))
        return;
    const RunPointer run = form_.calculate(loaded_theory(), read_crescent_records(shown()), crescentevents);
    NoProgress progress;
    write_report(*run, progress);
    platform().show_report(run->report_name(), run);
}

void frmcresv::cmdmap_click() {
    const CrescentSettings settings = shown();
    write_visib(settings);
    crescentkind = kind_of(settings);
    if (!map_) {
        map_ = new frmmap(this);
        connect(map_, &frmmap::fine_map_wanted, this, &frmcresv::fine_map_wanted);
        map_->setAttribute(Qt::WA_DeleteOnClose);
    }
    map_->choose_day(chosen(settings).days);
    map_->show();
    map_->raise();
    map_->activateWindow();
}

void frmcresv::cmdwatch_click() {
    const CrescentSettings settings = shown();
    std::optional<DateNumbers> date;
    if (form_.is_prepared())
        date = form_.days(settings.new_crescent).at(static_cast<std::size_t>(chosen(settings).days));
    emit watch_wanted(kind_of(settings), date);
}

void frmcresv::cmdclose_click() {
    write_visib(shown());
    accept();
}

void frmcresv::done(int result) {
    close_map();
    QDialog::done(result);
}

} // namespace halvane
