// SPDX-License-Identifier: MIT
#include "desktop/frmdate.h"

#include "calendar/yearlimits.h"
#include "desktop/refusedvalue.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "ui_frmdate.h"

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmdate", "Date", "التاريخ"},
    {"fradate", "Date Settings", "تحديد التاريخ"},
    {"optsystem", "Use the date of your system", "اعتمد تاريخ الجهاز"},
    {"optday", "Do calculations for one day only:", "إجراء الحسابات ليوم واحد فقط"},
    {"optper", "Do calculations for a period of time:", "إجراء الحسابات لفترة من الزمن"},
    {"lblf", "From:", "من"},
    {"lblt", "To:", "إلى"},
    {"lbloyear", "Year:", "السنة"},
    {"lblfyear", "Year:", "السنة"},
    {"lbltyear", "Year:", "السنة"},
    {"lblomonth", "Month:", "الشهر"},
    {"lblfmonth", "Month:", "الشهر"},
    {"lbltmonth", "Month:", "الشهر"},
    {"lbloday", "Day:", "اليوم"},
    {"lblfday", "Day:", "اليوم"},
    {"lbltday", "Day:", "اليوم"},
    {"lblthis", "The date in this menu is used to calculate prayer times, Moon times and Qibleh times. ",
     "التاريخ في هذه القائمة يستخدم لحساب مواقيت الصلاة و مواعيد القمر و مواقيت القبلة"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdcan", "&Cancel", "&خروج"},
    {"txtoyear@spoken", "One day, year", "يوم واحد، السنة"},
    {"cboomonth@spoken", "One day, month", "يوم واحد، الشهر"},
    {"cbooday@spoken", "One day, day", "يوم واحد، اليوم"},
    {"txtfyear@spoken", "From, year", "من، السنة"},
    {"cbofmonth@spoken", "From, month", "من، الشهر"},
    {"cbofday@spoken", "From, day", "من، اليوم"},
    {"txttyear@spoken", "To, year", "إلى، السنة"},
    {"cbotmonth@spoken", "To, month", "إلى، الشهر"},
    {"cbotday@spoken", "To, day", "إلى، اليوم"},
};

constexpr TwinText order_title{"Date Error", "خطأ"};
constexpr TwinText order_refused{"The end date must be AFTER the beginning date!",
                                 "التاريخ الثاني يجب أن يكون بعد التاريخ الأول"};

constexpr const char* longest_year = "-88888";

struct Row {
    QLineEdit* year;
    QComboBox* month;
    QComboBox* day;
};

void show_row(const Row& row, const DateBoxes& boxes) {
    row.year->setText(QString::fromStdString(boxes.year));
    choose_entry(*row.month, boxes.month);
    choose_entry(*row.day, boxes.day);
}

DateBoxes boxes_of(const Row& row) {
    return {text_of(*row.year), text_of(*row.month), text_of(*row.day)};
}

void prepare(const Row& row) {
    fill_with_months(*row.month);
    fill_with_days(*row.day);
}

} // namespace

frmdate::frmdate(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmdate>()), language_(stored_language()) {
    ui_->setupUi(this);
    prepare({ui_->txtoyear, ui_->cboomonth, ui_->cbooday});
    prepare({ui_->txtfyear, ui_->cbofmonth, ui_->cbofday});
    prepare({ui_->txttyear, ui_->cbotmonth, ui_->cbotday});
    show_panel(date_panel_of(read_date()));
    option_click();
    apply_language(*this, twins, language_);
    set_sizes();
    select_whole_text_on_focus(*this);
    for (QRadioButton* option : {ui_->optsystem, ui_->optday, ui_->optper})
        connect(option, &QRadioButton::toggled, this, &frmdate::option_click);
    connect(ui_->cmdok, &QPushButton::clicked, this, &frmdate::cmdok_click);
    connect(ui_->cmdcan, &QPushButton::clicked, this, &QDialog::reject);
    fit_form(*this);
}

frmdate::~frmdate() = default;

void frmdate::set_sizes() {
    set_spacing(*this);
    for (QLineEdit* box : {ui_->txtoyear, ui_->txtfyear, ui_->txttyear})
        shape_number_box(*box, longest_year);
}

void frmdate::show_panel(const DatePanel& panel) {
    if (panel.choice == DateChoice::period)
        ui_->optper->setChecked(true);
    else if (panel.choice == DateChoice::one_day)
        ui_->optday->setChecked(true);
    else
        ui_->optsystem->setChecked(true);
    show_row({ui_->txtfyear, ui_->cbofmonth, ui_->cbofday}, panel.from);
    show_row({ui_->txttyear, ui_->cbotmonth, ui_->cbotday}, panel.to);
    show_row({ui_->txtoyear, ui_->cboomonth, ui_->cbooday}, panel.one);
}

DateChoice frmdate::choice() const {
    if (ui_->optper->isChecked())
        return DateChoice::period;
    return ui_->optday->isChecked() ? DateChoice::one_day : DateChoice::system_date;
}

DatePanel frmdate::shown() const {
    return {choice(), boxes_of({ui_->txtfyear, ui_->cbofmonth, ui_->cbofday}),
            boxes_of({ui_->txttyear, ui_->cbotmonth, ui_->cbotday}),
            boxes_of({ui_->txtoyear, ui_->cboomonth, ui_->cbooday})};
}

void frmdate::option_click() {
    const bool one_day = choice() == DateChoice::one_day;
    const bool period = choice() == DateChoice::period;
    for (QWidget* part : std::initializer_list<QWidget*>{ui_->lbloyear, ui_->txtoyear, ui_->lblomonth,
                                                         ui_->cboomonth, ui_->lbloday, ui_->cbooday})
        part->setEnabled(one_day);
    for (QWidget* part : std::initializer_list<QWidget*>{
             ui_->lblf, ui_->lblfyear, ui_->txtfyear, ui_->lblfmonth, ui_->cbofmonth, ui_->lblfday,
             ui_->cbofday, ui_->lblt, ui_->lbltyear, ui_->txttyear, ui_->lbltmonth, ui_->cbotmonth,
             ui_->lbltday, ui_->cbotday})
        part->setEnabled(period);
}

/// Whether the record can be calculated for; a year that keeps it from that is told.
bool frmdate::is_usable(const CalculationDate& date) {
    if (const std::optional<Refusal> far = refused_period(date)) {
        warn(this, *far, language_);
        ask_again(date.one_day                          ? *ui_->txtoyear
                  : theory_years.holds(date.start.year) ? *ui_->txttyear
                                                        : *ui_->txtfyear);
        return false;
    }
    const auto refused = refused_value(date);
    if (!refused)
        return true;
    QLineEdit* const box = refused->field == &CalculationDate::one    ? ui_->txtoyear
                           : refused->field == &CalculationDate::from ? ui_->txtfyear
                                                                      : ui_->txttyear;
    tell_refused(*this, *box, refused->reason, refused->limit, language_);
    return false;
}

void frmdate::cmdok_click() {
    if (!numbers_are_meant(*this, language_))
        return;
    const CalculationDate date = calculation_date_of(shown());
    if (ends_before_start(date)) {
        warn(this, text_of(order_title, language_), text_of(order_refused, language_), language_);
        ask_again(*ui_->txtfyear);
        return;
    }
    if (!is_usable(date))
        return;
    write_date(date);
    accept();
}

} // namespace halvane
