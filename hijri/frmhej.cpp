// SPDX-License-Identifier: MIT
#include "hijri/frmhej.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/yearlimits.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "ui_frmhej.h"

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmhej", "Hejric-Gregorian Conversion", "Hejric-Gregorian Conversion"},
    {"frahej", "Conversion", "تحويل"},
    {"opthtg", "Convert Hejric to Gregorian", "التحويل من هجري إلى ميلادي"},
    {"optgth", "Convert Gregorian to Hejric", "التحويل من ميلادي إلى هجري"},
    {"lblhej", "Please enter the date you wish to convert", "الرجاء إدخال التاريخ الذي ترغب بتحويله"},
    {"lbly", "Year:", "السنة"},
    {"lblm", "Month:", "الشهر"},
    {"lbld", "Day:", "اليوم"},
    {"lblres", "The Corresponding Date is:", "التاريخ الموافق هو"},
    {"lbler", "One-day difference is possible", "من المحتمل وجود فارق بمقدار يوم واحد"},
    {"lblvis", "Date Conversion is NOT based on Crescent Visibility ",
     "تحويل التواريخ لا يعتمد على رؤية الهلال"},
    {"cmdcon", "Con&vert", "&تحويل"},
    {"cmdcan", "&Cancel", "&خروج"},
};

constexpr TwinText refused_title{"Date Error", "خطأ"};
constexpr TwinText year_refused{"The Year must be more than Zero!", "السنة يجب أن تكون أكبر من صفر"};
constexpr TwinText before_first{"Your Date Must Be After 15/July/622 CE!",
                                "التاريخ يجب أن يكون بعد 15/تموز/622"};
constexpr TwinText in_gap{"The Date After 04 October 1582 CE is 15 October 1582 CE!",
                          "التاريخ الذي يلي 04 تشرين أول 1582 هو 15 تشرين أول 1582"};

constexpr int hijri_days = 30;
constexpr const char* longest_year = "-88888";
constexpr double result_size = 1.4;
constexpr const char* result_font = "Simplified Arabic";
constexpr double result_font_size = 14;

/// Keeps the room of a control while it is hidden, so that nothing moves when it appears.
void hide_in_place(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
    control.hide();
}

} // namespace

frmhej::frmhej(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmhej>()), language_(stored_language()) {
    ui_->setupUi(this);
    apply_language(*this, twins, language_);
    option_click();
    set_sizes();
    select_whole_text_on_focus(*this);
    connect(ui_->opthtg, &QRadioButton::toggled, this, &frmhej::option_click);
    connect(ui_->txty, &QLineEdit::textChanged, this, &frmhej::hide_result);
    for (QComboBox* list : {ui_->cbom, ui_->cbod})
        connect(list, &QComboBox::currentIndexChanged, this, &frmhej::hide_result);
    connect(ui_->cmdcon, &QPushButton::clicked, this, &frmhej::cmdcon_click);
    connect(ui_->cmdcan, &QPushButton::clicked, this, &QDialog::reject);
    fit_form(*this);
}

frmhej::~frmhej() = default;

void frmhej::set_sizes() {
    set_spacing(*this);
    shape_number_box(*ui_->txty, longest_year);
    for (QLabel* result : {ui_->lblday, ui_->lbldt, ui_->lblmt, ui_->lblyt}) {
        scale_font(*result, result_size);
        hide_in_place(*result);
    }
}

void frmhej::option_click() {
    const bool hijri = direction() == ConversionDirection::hijri_to_civil;
    ui_->cbom->clear();
    for (const std::string& name : conversion_months(direction(), language_))
        ui_->cbom->addItem(QString::fromStdString(name));
    if (hijri)
        fill_with_numbers(*ui_->cbod, hijri_days);
    else
        fill_with_days(*ui_->cbod);
    ui_->txty->setText(hijri ? QStringLiteral("1435") : QStringLiteral("2013"));
}

ConversionDirection frmhej::direction() const {
    return ui_->opthtg->isChecked() ? ConversionDirection::hijri_to_civil
                                    : ConversionDirection::civil_to_hijri;
}

void frmhej::cmdcon_click() {
    settle_numbers(*this);
    const double year = numeric_prefix(text_of(*ui_->txty));
    const double month = conversion_month_number(direction(), text_of(*ui_->cbom));
    const double day = numeric_prefix(text_of(*ui_->cbod));
    const ConversionAnswer answer = convert_date(direction(), year, month, day, language_);
    if (answer.refused == RefusedDate::none)
        show_result(answer);
    else
        refuse(answer.refused);
}

void frmhej::show_result(const ConversionAnswer& answer) {
    ui_->lbldt->setText(QString::fromStdString(plain_number(answer.day)));
    ui_->lblmt->setText(QString::fromStdString(answer.month_name));
    ui_->lblyt->setText(QString::fromStdString(plain_number(answer.year)));
    ui_->lblday->setText(QString::fromStdString(answer.weekday));
    if (language_ == Language::arabic)
        for (QLabel* result : {ui_->lblmt, ui_->lblday})
            set_font_if_present(*result, QString::fromLatin1(result_font), result_font_size);
    for (QLabel* result : {ui_->lbldt, ui_->lblmt, ui_->lblyt, ui_->lblday})
        result->show();
}

/// A result does not stay beside another date than its own.
void frmhej::hide_result() {
    for (QLabel* result : {ui_->lbldt, ui_->lblmt, ui_->lblyt, ui_->lblday})
        result->hide();
}

void frmhej::refuse(RefusedDate refused) {
    if (refused == RefusedDate::year_too_large) {
        const YearRange& range = direction() == ConversionDirection::hijri_to_civil ? converted_hijri_years
                                                                                    : converted_civil_years;
        warn(this, refused_year(number_in(*ui_->txty), range).value(), language_);
        ask_again(*ui_->txty);
        return;
    }
    const TwinText& words = refused == RefusedDate::year_not_positive    ? year_refused
                            : refused == RefusedDate::before_first_hijri ? before_first
                                                                         : in_gap;
    warn(this, text_of(refused_title, language_), text_of(words, language_), language_);
    if (refused == RefusedDate::in_calendar_gap)
        ui_->cbod->setFocus(Qt::OtherFocusReason);
    else
        ask_again(*ui_->txty);
}

} // namespace halvane
