// SPDX-License-Identifier: MIT
#include "telescope/frmtele.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/yearlimits.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "telescope/crescentpicture.h"
#include "telescope/readouts.h"
#include "ui_frmtele.h"

#include <algorithm>
#include <cmath>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmtele", "Telescope", "تلسكوب"},
    {"fradate", "Date and Time", "التاريخ و الوقت"},
    {"lblyear", "Year:", "السنة"},
    {"lblmonth", "Month:", "الشهر"},
    {"lblday", "Day:", "اليوم"},
    {"lblhour", "Hour:", "الساعة"},
    {"lblminutes", "Minutes:", "الدقائق"},
    {"cmdnow", "&Now", "الآ&ن"},
    {"fraair", "Refraction", "الانكسار"},
    {"optair", "No Refraction", "بدون انكسار"},
    {"optref", "With Refraction", "مع انكسار"},
    {"fraequinox", "Coordinates", "الإحداثيات"},
    {"optnow", "Of Date", "إحداثيات التاريخ"},
    {"optj2000", "J2000", "إحداثيات J2000"},
    {"fraflip", "Picture", "الصورة"},
    {"chkflph", "Horizontal Flip", "قلب أفقي"},
    {"chkflpv", "Vertical Flip", "قلب رأسي"},
    {"chkphase", "True Phase", "الطور الحقيقي"},
    {"chkphase@tip", "Draws the Moon as much as it is lit, in place of the crescent's picture",
     "يرسم القمر بقدر ما هو مضيء بدلا من صورة الهلال"},
    {"fraread", "Pointing", "التوجيه"},
    {"lblra", "R.A.", "المطلع المستقيم"},
    {"lbldec", "Declination", "الميل"},
    {"lblalt", "Altitude", "الارتفاع"},
    {"lblazm", "Azimuth", "السمت"},
    {"lblsun", "Sun", "الشمس"},
    {"lblmoon", "Moon", "القمر"},
    {"lblcrs", "Crescent", "الهلال"},
    {"lblnote",
     "* It is very important to read the help file to know the use and the importance of this form.\n\n"
     "* Please check your coordinates form the Location menu and your Summer Time form the Preferences menu.",
     "* من المهم جدا قراءة ملف المساعدة لمعرفة استخدام هذه النافذة و أهميتها.\n\n"
     "* يرجى التأكد من إحداثياتك في قائمة الموقع و من التوقيت الصيفي في قائمة الخيارات."},
    {"cmdcalc", "&Calculate", "إجراء ال&حسابات"},
    {"cmdclose", "Clo&se", "إ&غلاق"},
    {"pctcresimg@spoken", "Picture of the crescent", "صورة الهلال"},
};

constexpr TwinText zenith{"Zenith", "سمت الرأس"};
constexpr TwinText lit{"Lit", "مضيء"};
constexpr TwinText no_phase{"Phase: ----\n", "الطور: ----\n"};
constexpr TwinText missing{"The picture %1 is not in the folder of pictures.",
                           "الصورة %1 غير موجودة في مجلد الصور."};
/// The bright limb's direction in the picture: as the eye sees it, and mirrored by each of the flips.
constexpr TwinText limb{"Bright limb: %1 from the zenith,\ncounted to the left",
                        "الحافة المضيئة: %1 من سمت الرأس،\nعدا إلى اليسار"};
constexpr TwinText limb_horizontal{"Bright limb: %1 from the zenith,\ncounted to the right",
                                   "الحافة المضيئة: %1 من سمت الرأس،\nعدا إلى اليمين"};
constexpr TwinText limb_vertical{"Bright limb: %1 from the zenith below,\ncounted to the left",
                                 "الحافة المضيئة: %1 من سمت الرأس\nفي الأسفل، عدا إلى اليسار"};
constexpr TwinText limb_both{"Bright limb: %1 from the zenith below,\ncounted to the right",
                             "الحافة المضيئة: %1 من سمت الرأس\nفي الأسفل، عدا إلى اليمين"};

const TwinText& limb_words(bool horizontal, bool vertical) {
    if (vertical)
        return horizontal ? limb_both : limb_vertical;
    return horizontal ? limb_horizontal : limb;
}

constexpr int year_length = 6;
constexpr const char* longest_year = "-88888";
constexpr const char* longest_read_out = "-88°:88':88\"";
constexpr double read_out_size = 1.15;

} // namespace

std::span<const ControlText> frmtele_twins() {
    return twins;
}

frmtele::frmtele(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmtele>()), language_(stored_language()) {
    ui_->setupUi(this);
    apply_language(*this, twins, language_);
    ui_->pctcresimg->set_texts(text_of(zenith, language_), text_of(lit, language_),
                               text_of(missing, language_));
    fill_lists();
    set_sizes();
    select_whole_text_on_focus(*this);
    load(read_tele());
    show_limb();
    show_phase();
    connect_controls();
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
}

frmtele::~frmtele() = default;

void frmtele::fill_lists() {
    fill_with_months(*ui_->cbomonth);
    fill_with_days(*ui_->cboday);
    fill_with_hours(*ui_->cbohour);
    fill_with_minutes(*ui_->cbominutes);
}

void frmtele::set_sizes() {
    set_spacing(*this);
    ui_->txtyear->setMaxLength(year_length);
    shape_number_box(*ui_->txtyear, longest_year);
    keep_left_to_right(*ui_->readtable);
    ui_->lbllimb->setMinimumWidth(words_width());
    ui_->lblphase->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (const ReadOut& readout : telescope_readouts({})) {
        QLabel& label = read_out(readout.label);
        scale_font(label, read_out_size);
        fit_width(label, QString::fromUtf8(longest_read_out));
        label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
}

/// Room for the longest words below the picture, so that nothing moves when they change.
int frmtele::words_width() const {
    QStringList all;
    for (const bool one : {false, true})
        for (const bool other : {false, true}) {
            all += text_of(limb_words(one, other), language_).arg(isolated(QStringLiteral("888°")));
            all += text_of(phase_words({one ? 0.111 : 0.888, other, 288}, '\n'), language_);
        }
    int width = 0;
    for (const QString& words : all)
        width = std::max(width, ui_->lbllimb->fontMetrics().size(0, words).width());
    return width;
}

void frmtele::connect_controls() {
    connect(ui_->cmdnow, &QPushButton::clicked, this, &frmtele::cmdnow_click);
    connect(ui_->cmdcalc, &QPushButton::clicked, this, &frmtele::cmdcalc_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &frmtele::cmdclose_click);
    for (QRadioButton* option : {ui_->optair, ui_->optref, ui_->optnow, ui_->optj2000})
        connect(option, &QRadioButton::clicked, this, &frmtele::cmdcalc_click);
    for (QCheckBox* flip : {ui_->chkflph, ui_->chkflpv})
        connect(flip, &QCheckBox::clicked, this, &frmtele::flip_click);
    connect(ui_->chkphase, &QCheckBox::toggled, this, &frmtele::show_phase);
}

void frmtele::load(const TelescopeSettings& settings) {
    ui_->txtyear->setText(QString::fromStdString(plain_number(settings.year)));
    show_entry(*ui_->cbomonth, plain_number(settings.month));
    show_entry(*ui_->cboday, plain_number(settings.day));
    show_entry(*ui_->cbohour, plain_number(settings.hour));
    show_entry(*ui_->cbominutes, plain_number(settings.minute));
    (settings.airless ? ui_->optair : ui_->optref)->setChecked(true);
    (settings.j2000 ? ui_->optj2000 : ui_->optnow)->setChecked(true);
    ui_->chkflpv->setChecked(settings.flip_vertical == 1);
    ui_->chkflph->setChecked(settings.flip_horizontal == 1);
}

TelescopeSettings frmtele::shown() const {
    TelescopeSettings settings;
    settings.year = number_in(*ui_->txtyear);
    settings.month = number_in(*ui_->cbomonth);
    settings.day = number_in(*ui_->cboday);
    settings.hour = number_in(*ui_->cbohour);
    settings.minute = number_in(*ui_->cbominutes);
    settings.airless = ui_->optair->isChecked();
    settings.refracted = ui_->optref->isChecked();
    settings.of_date = ui_->optnow->isChecked();
    settings.j2000 = ui_->optj2000->isChecked();
    settings.flip_vertical = ui_->chkflpv->isChecked() ? 1 : 0;
    settings.flip_horizontal = ui_->chkflph->isChecked() ? 1 : 0;
    return settings;
}

QLabel& frmtele::read_out(const char* name) const {
    return *findChild<QLabel*>(QString::fromLatin1(name));
}

void frmtele::cmdnow_click() {
    const MachineTime now = machine_time();
    ui_->txtyear->setText(QString::number(now.year));
    choose_entry(*ui_->cbomonth, std::to_string(now.month));
    choose_entry(*ui_->cboday, std::to_string(now.day));
    choose_entry(*ui_->cbohour, std::to_string(now.hour));
    choose_entry(*ui_->cbominutes, std::to_string(now.minute));
    cmdcalc_click();
}

void frmtele::cmdcalc_click() {
    if (!numbers_are_meant(*this, language_))
        return;
    const TelescopeSettings settings = shown();
    if (const std::optional<Refusal> refused = refused_year(settings.year, theory_years)) {
        warn(this, *refused, language_);
        ask_again(*ui_->txtyear);
        return;
    }
    const std::optional<TelescopePointing> pointing =
        telescope_pointing(loaded_theory(), settings, read_pref(), read_loc());
    if (!pointing) {
        warn(this, moon_below_horizon, language_);
        return;
    }
    zenith_angle_ = pointing->zenith_angle;
    phase_ = pointing->phase;
    show_picture();
    for (const ReadOut& readout : telescope_readouts(*pointing))
        read_out(readout.label).setText(QString::fromStdString(readout.text));
}

void frmtele::flip_click() {
    if (zenith_angle_)
        show_picture();
    else
        show_limb();
}

void frmtele::show_picture() {
    const bool horizontal = ui_->chkflph->isChecked();
    const bool vertical = ui_->chkflpv->isChecked();
    ui_->pctcresimg->show_picture(
        QString::fromStdString(crescent_picture(*zenith_angle_, horizontal, vertical)), vertical);
    show_limb();
    show_phase();
}

/// The phase in words, and drawn in place of the picture where that is chosen.
void frmtele::show_phase() {
    const auto words = [&](char separator) {
        return phase_ ? text_of(phase_words(*phase_, separator), language_) : text_of(no_phase, language_);
    };
    ui_->lblphase->setText(with_figures_in_order(words('\n')));
    ui_->pctcresimg->setAccessibleDescription(words(' '));
    const bool is_drawn = phase_ && ui_->chkphase->isChecked();
    ui_->pctcresimg->show_phase(
        is_drawn ? std::optional(DrawnPhase{phase_->fraction, *zenith_angle_, ui_->chkflph->isChecked(),
                                            ui_->chkflpv->isChecked()})
                 : std::nullopt);
}

void frmtele::show_limb() {
    const QString angle = zenith_angle_
                              ? QString::number(std::lround(*zenith_angle_) % 360) + QStringLiteral("°")
                              : QStringLiteral("----");
    const TwinText& words = limb_words(ui_->chkflph->isChecked(), ui_->chkflpv->isChecked());
    ui_->lbllimb->setText(text_of(words, language_).arg(isolated(angle)));
}

void frmtele::cmdclose_click() {
    write_tele(shown());
    accept();
}

} // namespace halvane
