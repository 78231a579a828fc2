// SPDX-License-Identifier: MIT
#include "tables/frmcoor.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "routines/seriesloader.h"
#include "ui_frmcoor.h"

#include <QPointer>
#include <array>
#include <cmath>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmcoor", "Sun Moon Ephemeris", "أزياج الشمس و القمر"},
    {"lblobj", "&Object:", "ال&جرم"},
    {"fraref", "Reference", "المرجع"},
    {"optgeo", "Geocentric", "مركزي"},
    {"opttopo", "Topocentric", "سطحي"},
    {"fratime", "Time", "الوقت"},
    {"optut", "Local (UT1)", "محلي (UT1)"},
    {"opttdt", "Local (TDT)", "محلي (TDT)"},
    {"frarange", "Rows of the Table", "أسطر الجدول"},
    {"lblyear", "Year", "السنة"},
    {"lblmonth", "Month", "الشهر"},
    {"lblday", "Day", "اليوم"},
    {"lblhour", "Hour", "الساعة"},
    {"lblminute", "Minute", "الدقيقة"},
    {"lblsecond", "Second", "الثانية"},
    {"lblfrom", "From:", "من"},
    {"lblto", "To:", "إلى"},
    {"lblinterval", "&Interval:", "ال&فاصل الزمني"},
    {"chksummer", "S&ummer time applies to this table", "التوقيت ال&صيفي مطبق في هذا الجدول"},
    {"lblnote",
     "Times are on the local clock. Please choose your location from the Location Menu; the Summer Time "
     "settings of the Preferences Menu are not used here.",
     "الأوقات بالتوقيت المحلي. يرجى اختيار الموقع من قائمة الموقع، أما التوقيت الصيفي في قائمة الخيارات فلا "
     "يستخدم هنا."},
    {"cmdcalc", "&Calculate", "إجراء ال&حسابات"},
    {"cmdclose", "Clo&se", "إ&غلاق"},
    {"txty@spoken", "From, year", "من، السنة"},
    {"cbom@spoken", "From, month", "من، الشهر"},
    {"cbod@spoken", "From, day", "من، اليوم"},
    {"cboh@spoken", "From, hour", "من، الساعة"},
    {"cbomn@spoken", "From, minute", "من، الدقيقة"},
    {"cbos@spoken", "From, second", "من، الثانية"},
    {"txt2y@spoken", "To, year", "إلى، السنة"},
    {"cbo2m@spoken", "To, month", "إلى، الشهر"},
    {"cbo2d@spoken", "To, day", "إلى، اليوم"},
    {"cbo2h@spoken", "To, hour", "إلى، الساعة"},
    {"cbo2mn@spoken", "To, minute", "إلى، الدقيقة"},
    {"cbo2s@spoken", "To, second", "إلى، الثانية"},
    {"cboi@spoken", "Unit of the interval", "وحدة الفاصل الزمني"},
};

constexpr TwinText objects[] = {{"Sun", "الشمس"}, {"Moon", "القمر"}};
constexpr TwinText units[] = {{"Second", "ثانية"}, {"Minute", "دقيقة"}, {"Hour", "ساعة"}, {"Day", "يوم"}};

constexpr int year_length = 6;
constexpr const char* longest_year = "-88888";
constexpr const char* longest_interval = "888888";

void fill_with_texts(QComboBox& list, std::span<const TwinText> texts, Language language) {
    list.clear();
    for (const TwinText& text : texts)
        list.addItem(text_of(text, language));
}

/// The six inputs of a moment.
struct Moment {
    QLineEdit* year;
    std::array<QComboBox*, 5> lists; ///< month, day, hour, minute, second
};

void show_moment(const Moment& moment, double year, const std::array<double, 5>& numbers) {
    moment.year->setText(QString::fromStdString(plain_number(year)));
    for (std::size_t i = 0; i < numbers.size(); ++i)
        show_entry(*moment.lists[i], plain_number(numbers[i]));
}

} // namespace

std::span<const ControlText> frmcoor_twins() {
    return twins;
}

frmcoor::frmcoor(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmcoor>()), language_(stored_language()) {
    ui_->setupUi(this);
    apply_language(*this, twins, language_);
    fill_lists();
    set_sizes();
    select_whole_text_on_focus(*this);
    load(read_coor());
    connect(ui_->cmdcalc, &QPushButton::clicked, this, &frmcoor::cmdcalc_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &frmcoor::cmdclose_click);
    fit_form(*this);
}

frmcoor::~frmcoor() = default;

void frmcoor::fill_lists() {
    fill_with_texts(*ui_->cboobj, objects, language_);
    fill_with_texts(*ui_->cboi, units, language_);
    for (QComboBox* list : {ui_->cbom, ui_->cbo2m})
        fill_with_months(*list);
    for (QComboBox* list : {ui_->cbod, ui_->cbo2d})
        fill_with_days(*list);
    for (QComboBox* list : {ui_->cboh, ui_->cbo2h})
        fill_with_hours(*list);
    for (QComboBox* list : {ui_->cbomn, ui_->cbo2mn, ui_->cbos, ui_->cbo2s})
        fill_with_minutes(*list);
}

void frmcoor::set_sizes() {
    set_spacing(*this);
    for (QLineEdit* box : {ui_->txty, ui_->txt2y}) {
        box->setMaxLength(year_length);
        shape_number_box(*box, longest_year);
    }
    shape_number_box(*ui_->txti, longest_interval);
}

void frmcoor::load(const EphemerisSettings& settings) {
    ui_->cboobj->setCurrentIndex(settings.object == 1 ? 1 : 0);
    (settings.local_ut1 ? ui_->optut : ui_->opttdt)->setChecked(true);
    (settings.geocentric ? ui_->optgeo : ui_->opttopo)->setChecked(true);
    show_moment({ui_->txty, {ui_->cbom, ui_->cbod, ui_->cboh, ui_->cbomn, ui_->cbos}}, settings.start_year,
                {settings.start_month, settings.start_day, settings.start_hour, settings.start_minute,
                 settings.start_second});
    show_moment(
        {ui_->txt2y, {ui_->cbo2m, ui_->cbo2d, ui_->cbo2h, ui_->cbo2mn, ui_->cbo2s}}, settings.end_year,
        {settings.end_month, settings.end_day, settings.end_hour, settings.end_minute, settings.end_second});
    ui_->txti->setText(QString::fromStdString(plain_number(settings.interval)));
    if (settings.unit >= 0 && settings.unit < ui_->cboi->count())
        ui_->cboi->setCurrentIndex(settings.unit);
    ui_->chksummer->setChecked(settings.summer_time == 1);
}

EphemerisSettings frmcoor::shown() const {
    EphemerisSettings settings;
    settings.object = ui_->cboobj->currentIndex();
    settings.local_ut1 = ui_->optut->isChecked();
    settings.geocentric = ui_->optgeo->isChecked();
    settings.start_year = number_in(*ui_->txty);
    settings.start_month = number_in(*ui_->cbom);
    settings.start_day = number_in(*ui_->cbod);
    settings.start_hour = number_in(*ui_->cboh);
    settings.start_minute = number_in(*ui_->cbomn);
    settings.start_second = number_in(*ui_->cbos);
    settings.end_year = number_in(*ui_->txt2y);
    settings.end_month = number_in(*ui_->cbo2m);
    settings.end_day = number_in(*ui_->cbo2d);
    settings.end_hour = number_in(*ui_->cbo2h);
    settings.end_minute = number_in(*ui_->cbo2mn);
    settings.end_second = number_in(*ui_->cbo2s);
    settings.interval = std::fabs(std::trunc(number_in(*ui_->txti)));
    settings.unit = ui_->cboi->currentIndex();
    settings.summer_time = ui_->chksummer->isChecked() ? 1 : 0;
    return settings;
}

void frmcoor::cmdcalc_click() {
    if (!numbers_are_meant(*this, language_))
        return;
    const EphemerisSettings settings = shown();
    if (const std::optional<TableRefusal> refused = refused_table(settings)) {
        refuse(*refused);
        return;
    }
    write_coor(settings);
    // The panel may be closed, and so deleted, while the run lets events happen.
    const QPointer<frmcoor> panel(this);
    ui_->cmdcalc->setEnabled(false);
    RunPointer run;
    RunOutcome outcome = RunOutcome::refused;
    {
        WaitProgress progress(windowTitle(), this);
        run = ephemeris_run(loaded_theory(), settings);
        if (run != nullptr)
            outcome = write_report(*run, progress);
    }
    if (panel != nullptr)
        ui_->cmdcalc->setEnabled(true);
    if (outcome == RunOutcome::refused && panel != nullptr) {
        warn(this, end_before_start, language_);
        ask_again(*ui_->txt2y);
    }
    if (outcome != RunOutcome::done)
        return;
    if (panel != nullptr)
        close();
    platform().show_report(run->report_name(), run);
}

void frmcoor::refuse(const TableRefusal& refused) {
    warn(this, refused.told, language_);
    QLineEdit* const inputs[] = {ui_->txty, ui_->txt2y, ui_->txti};
    ask_again(*inputs[static_cast<int>(refused.input)]);
}

void frmcoor::cmdclose_click() {
    write_coor(shown());
    accept();
}

} // namespace halvane
