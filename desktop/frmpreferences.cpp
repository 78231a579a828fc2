// SPDX-License-Identifier: MIT
#include "desktop/frmpreferences.h"

#include "base/numberformat.h"
#include "desktop/refusedvalue.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "routines/machineclock.h"
#include "ui_frmpreferences.h"
#include "zones/summertime.h"

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmpreferences", "Preferences", "الخيارات"},
    {"fratwi", "Twilight", "الفجر و العشاء"},
    {"lblfaj", "Fajer angle", "زاوية الفجر"},
    {"lblisha", "Isha angle", "زاوية العشاء"},
    {"lblfajd", "- Fajer: Beginning of twilight.", "الفجر: بداية الشفق الفلكي"},
    {"lblishd", "- Isha: End of twilight.", "العشاء: نهاية الشفق الفلكي"},
    {"frahl", "High Latitude Alternative Prayer Times", "حسابات بديلة لخطوط العرض العليا"},
    {"chkhl", "Enable Alternative Prayer Time Calculations", "تفعيل الحسابات البديلة لخطوط العرض العليا"},
    {"frasum", "Summer Time", "التوقيت الصيفي"},
    {"optnosum", "No Summer Time", "لا يوجد توقيت صيفي"},
    {"optsum", "Consider Summer Time", "يوجد توقيت صيفي"},
    {"lblfrom", "From:", "من"},
    {"lblto", "To:", "إلى"},
    {"lblfmonth", "Month:", "الشهر"},
    {"lbltmonth", "Month:", "الشهر"},
    {"lblfday", "Day:", "اليوم"},
    {"lbltday", "Day:", "اليوم"},
    {"cmdzone", "From the time &zone", "من المن&طقة الزمنية"},
    {"fraadd", "Addition", "الاحتياط"},
    {"lblsubfaj", "Subtract", "إطرح"},
    {"lblsubfaj2", "Minutes from Fajer", "دقيقة من وقت الفجر"},
    {"lbladddoh", "Add", "أضف"},
    {"lbladddoh2", "Minutes to Dhohur", "دقيقة على وقت الظهر"},
    {"lbladdmag", "Add", "أضف"},
    {"lbladdmag2", "Minutes to Maghreb", "دقيقة على وقت المغرب"},
    {"lbladdasr", "Add", "أضف"},
    {"lbladdasr2", "Minutes to Asr", "دقيقة على وقت العصر"},
    {"fraele", "Elevation", "الإرتفاع"},
    {"chkeleset", "Height above sea level affects rise and set events",
     "الإرتفاع عن سطح البحر يؤثر على مواعيد الشروق و الغروب"},
    {"fraasr", "Aser Prayer", "صلاة العصر"},
    {"optsha", "Standard", "عام"},
    {"opthan", "Hanafi", "حنفي"},
    {"frapre", "Precision", "الدقة"},
    {"optmin", "Minutes", "دقائق"},
    {"optsec", "Seconds", "ثواني"},
    {"fralan", "Language", "اللغة"},
    {"optar", "عربي", "عربي"},
    {"opten", "English", "English"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdcan", "&Cancel", "&خروج"},
    {"cmddef", "&Default", "القيم المف&ضلة"},
    {"cbotwi@spoken", "Twilight", "الفجر و العشاء"},
    {"cbofmonth@spoken", "Summer time from, month", "بداية التوقيت الصيفي، الشهر"},
    {"cbofday@spoken", "Summer time from, day", "بداية التوقيت الصيفي، اليوم"},
    {"cbotmonth@spoken", "Summer time to, month", "نهاية التوقيت الصيفي، الشهر"},
    {"cbotday@spoken", "Summer time to, day", "نهاية التوقيت الصيفي، اليوم"},
    {"cmdzone@spoken", "Summer time from the time zone of the location",
     "التوقيت الصيفي من المنطقة الزمنية للموقع"},
    {"cmdzone@tip", "Fills in this year's summer time at the stored location",
     "يعبئ التوقيت الصيفي لهذه السنة في الموقع المحفوظ"},
    {"txtsubfaj@spoken", "Subtract minutes from Fajer", "إطرح دقيقة من وقت الفجر"},
    {"txtadddoh@spoken", "Add minutes to Dhohur", "أضف دقيقة على وقت الظهر"},
    {"txtaddasr@spoken", "Add minutes to Asr", "أضف دقيقة على وقت العصر"},
    {"txtaddmag@spoken", "Add minutes to Maghreb", "أضف دقيقة على وقت المغرب"},
    {"chkelefaj@spoken", "Elevation for Fajer", "الإرتفاع لوقت الفجر"},
    {"chkelefaj@tip", "Elevation for Fajer: kept with the settings, used by no calculation",
     "الإرتفاع لوقت الفجر: يحفظ مع الخيارات و لا يستخدم في الحسابات"},
};

constexpr TwinText angle_title{"Angle Error!", "خطأ"};
constexpr TwinText fajer_refused{"Fajer Angle Must Be Positive!", "زاوية الفجر يجب أن تكون موجبة"};
constexpr TwinText isha_refused{"Isha Angle Must Be Positive!", "زاوية العشاء يجب أن تكون موجبة"};

constexpr TwinText summer_title{"Summer Time", "التوقيت الصيفي"};

/// The summer time of this year at the stored location; a failure that only means that it cannot be known is
/// a refusal.
SummerTime summer_time_here(const Location& location, int year) {
    try {
        return summer_time_at(location, year);
    } catch (const RunTimeFailure& failure) {
        return Refusal{
            summer_title,
            {words_of(failure.parts(), Language::english), words_of(failure.parts(), Language::arabic)}};
    }
}

Refusal no_summer_time(const std::string& place, int year) {
    const std::string when = std::to_string(year);
    return {summer_title,
            {"There is no summer time in \"" + place + "\" in " + when + ".",
             "لا يوجد توقيت صيفي في \"" + place + "\" سنة " + when + "."}};
}

constexpr const char* longest_angle = "-18.255";
constexpr const char* longest_minutes = "-88.5";

} // namespace

frmpreferences::frmpreferences(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmpreferences>()), form_(readable_pref()) {
    ui_->setupUi(this);
    fill_lists();
    show_panel(form_.opened());
    apply_language(*this, twins, language());
    set_sizes();
    select_whole_text_on_focus(*this);
    connect(ui_->cbotwi, &QComboBox::currentIndexChanged, this, &frmpreferences::cbotwi_click);
    connect(ui_->cbotwi, &QComboBox::activated, this, &frmpreferences::cbotwi_click);
    connect(ui_->optsum, &QRadioButton::toggled, this, &frmpreferences::enable_summer_span);
    connect(ui_->cmdzone, &QPushButton::clicked, this, &frmpreferences::cmdzone_click);
    connect(ui_->cmddef, &QPushButton::clicked, this, &frmpreferences::cmddef_click);
    connect(ui_->cmdok, &QPushButton::clicked, this, &frmpreferences::cmdok_click);
    connect(ui_->cmdcan, &QPushButton::clicked, this, &QDialog::reject);
    fit_form(*this);
}

frmpreferences::~frmpreferences() = default;

void frmpreferences::fill_lists() {
    for (const TwilightAuthority& authority : twilight_authorities())
        ui_->cbotwi->addItem(QString::fromUtf8(authority.entry));
    fill_with_months(*ui_->cbofmonth);
    fill_with_days(*ui_->cbofday);
    fill_with_months(*ui_->cbotmonth);
    fill_with_days(*ui_->cbotday);
    const PreferencesPanel design;
    choose_entry(*ui_->cbofmonth, design.from_month);
    choose_entry(*ui_->cbofday, design.from_day);
    choose_entry(*ui_->cbotmonth, design.to_month);
    choose_entry(*ui_->cbotday, design.to_day);
}

void frmpreferences::set_sizes() {
    set_spacing(*this);
    for (QLineEdit* box : {ui_->txtfaj, ui_->txtisha})
        shape_number_box(*box, longest_angle);
    for (QLineEdit* box : {ui_->txtsubfaj, ui_->txtadddoh, ui_->txtaddasr, ui_->txtaddmag})
        shape_number_box(*box, longest_minutes);
}

void frmpreferences::show_panel(const PreferencesPanel& panel) {
    choose_entry(*ui_->cbotwi, panel.authority);
    show_angles(panel.angles);
    ui_->chkhl->setChecked(panel.high_latitude);
    show_summer_time(panel);
    ui_->txtsubfaj->setText(QString::fromStdString(panel.subtract_fajer));
    ui_->txtadddoh->setText(QString::fromStdString(panel.add_dhohur));
    ui_->txtaddasr->setText(QString::fromStdString(panel.add_asr));
    ui_->txtaddmag->setText(QString::fromStdString(panel.add_maghreb));
    ui_->chkelefaj->setChecked(panel.elevation_fajer);
    ui_->chkeleset->setChecked(panel.elevation_setting);
    (panel.standard_asr ? ui_->optsha : ui_->opthan)->setChecked(true);
    (panel.minutes ? ui_->optmin : ui_->optsec)->setChecked(true);
    (panel.language == Language::english ? ui_->opten : ui_->optar)->setChecked(true);
}

void frmpreferences::show_summer_time(const PreferencesPanel& panel) {
    (panel.summer_time ? ui_->optsum : ui_->optnosum)->setChecked(true);
    enable_summer_span(panel.summer_time);
    choose_entry(*ui_->cbofmonth, panel.from_month);
    choose_entry(*ui_->cbofday, panel.from_day);
    choose_entry(*ui_->cbotmonth, panel.to_month);
    choose_entry(*ui_->cbotday, panel.to_day);
}

void frmpreferences::show_angles(const AngleBoxes& angles) {
    ui_->txtfaj->setText(QString::fromStdString(angles.fajer));
    ui_->txtisha->setText(QString::fromStdString(angles.isha));
    ui_->txtfaj->setEnabled(angles.enabled);
    ui_->txtisha->setEnabled(angles.enabled);
}

PreferencesPanel frmpreferences::shown() const {
    PreferencesPanel panel;
    panel.authority = text_of(*ui_->cbotwi);
    panel.angles = {text_of(*ui_->txtfaj), text_of(*ui_->txtisha), ui_->txtfaj->isEnabled()};
    panel.high_latitude = ui_->chkhl->isChecked();
    panel.summer_time = !ui_->optnosum->isChecked();
    panel.from_month = text_of(*ui_->cbofmonth);
    panel.from_day = text_of(*ui_->cbofday);
    panel.to_month = text_of(*ui_->cbotmonth);
    panel.to_day = text_of(*ui_->cbotday);
    panel.subtract_fajer = text_of(*ui_->txtsubfaj);
    panel.add_dhohur = text_of(*ui_->txtadddoh);
    panel.add_asr = text_of(*ui_->txtaddasr);
    panel.add_maghreb = text_of(*ui_->txtaddmag);
    panel.elevation_fajer = ui_->chkelefaj->isChecked();
    panel.elevation_setting = ui_->chkeleset->isChecked();
    panel.standard_asr = ui_->optsha->isChecked();
    panel.minutes = ui_->optmin->isChecked();
    panel.language = ui_->opten->isChecked() ? Language::english : Language::arabic;
    return panel;
}

void frmpreferences::enable_summer_span(bool enabled) {
    for (QWidget* part : std::initializer_list<QWidget*>{
             ui_->lblfrom, ui_->cbofmonth, ui_->cbofday, ui_->lblfmonth, ui_->lblfday, ui_->lblto,
             ui_->cbotmonth, ui_->cbotday, ui_->lbltmonth, ui_->lbltday})
        part->setEnabled(enabled);
}

void frmpreferences::cbotwi_click() {
    show_angles(form_.chosen(text_of(*ui_->cbotwi), shown().angles));
}

void frmpreferences::cmddef_click() {
    show_panel(form_.defaults(shown()));
}

void frmpreferences::cmdzone_click() {
    const Location location = read_loc();
    const int year = machine_time().year;
    const SummerTime found = summer_time_here(location, year);
    if (const auto* refusal = std::get_if<Refusal>(&found)) {
        warn(this, *refusal, language());
        return;
    }
    PreferencesPanel panel = shown();
    panel.summer_time = false;
    if (const auto* span = std::get_if<SummerSpan>(&found)) {
        panel.summer_time = true;
        panel.from_month = plain_number(span->first.month);
        panel.from_day = plain_number(span->first.day);
        panel.to_month = plain_number(span->last.month);
        panel.to_day = plain_number(span->last.day);
    }
    show_summer_time(panel);
    if (!panel.summer_time)
        warn(this, no_summer_time(location.name, year), language());
}

/// Whether the record can be in force; a value that keeps it from that is told.
bool frmpreferences::is_usable() {
    const auto refused = refused_value(form_.record());
    if (!refused)
        return true;
    const std::pair<double Preferences::*, QLineEdit*> boxes[] = {
        {&Preferences::fajer_angle, ui_->txtfaj},       {&Preferences::isha_angle, ui_->txtisha},
        {&Preferences::subtract_fajer, ui_->txtsubfaj}, {&Preferences::add_dhohur, ui_->txtadddoh},
        {&Preferences::add_asr, ui_->txtaddasr},        {&Preferences::add_maghreb, ui_->txtaddmag}};
    for (const auto& [field, box] : boxes)
        if (field == refused->field)
            tell_refused(*this, *box, refused->reason, refused->limit, language());
    return false;
}

void frmpreferences::cmdok_click() {
    if (!numbers_are_meant(*this, language()))
        return;
    const RefusedAngle refused = form_.take(shown());
    if (refused != RefusedAngle::none) {
        const bool fajer = refused == RefusedAngle::fajer;
        warn(this, text_of(angle_title, language()),
             text_of(fajer ? fajer_refused : isha_refused, language()), language());
        ask_again(fajer ? *ui_->txtfaj : *ui_->txtisha);
        return;
    }
    if (!is_usable())
        return;
    write_pref(form_.record());
    reload_main_panel();
    accept();
}

} // namespace halvane
