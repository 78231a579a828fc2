// SPDX-License-Identifier: MIT
#include "prayer/frmalerts.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "stored/alert.h"
#include "stored/programfolder.h"
#include "ui_frmalerts.h"

#include <exception>
#include <new>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmalerts", "Alerts", "المنبه"},
    {"fraale", "Alert Settings", "خيارات المنبه"},
    {"chkpep", "Make Beep", "اصدر صوت قبل"},
    {"lblpep", "Minute(s) Before Prayer Time.", "دقائق من موعد الآذان"},
    {"chkpra", "Show Pop-up Window and Release Athan.", " إظهار نافذة و سماع الآذان عندما يحين موعد الصلاة"},
    {"chkpopup", "Only Show Pop-Up Window at Prayer Time.", "إظهار نافذة فقط عندما يحين موعد الصلاة"},
    {"lblprao",
     "Please choose which Athan do you wish to hear at each prayer time. By default, Fajer Athan is the "
     "Jerusalem Athan.",
     "يرجى اختيار الآذان الذي تفضل سماعه عند موعد كل صلاة سيتم سماع آذان القدس لآذان الفجر"},
    {"fradoh", "Dhohur Athan", "آذان الظهر"},
    {"fraasr", "Aser Athan", "آذان العصر"},
    {"framag", "Maghreb Athan", "آذان المغرب"},
    {"fraish", "Isha Athan", "آذان العشاء"},
    {"optdhrh", "Mecca Athan", "آذان مكة"},
    {"optasrh", "Mecca Athan", "آذان مكة"},
    {"optmagh", "Mecca Athan", "آذان مكة"},
    {"optishh", "Mecca Athan", "آذان مكة"},
    {"optdhre", "Jerusalem Athan", "آذان القدس"},
    {"optasre", "Jerusalem Athan", "آذان القدس"},
    {"optmage", "Jerusalem Athan", "آذان القدس"},
    {"optishe", "Jerusalem Athan", "آذان القدس"},
    {"cmdok", "&Ok", "&موافق"},
    {"cmdcan", "&Cancel", "&خروج"},
};

constexpr const char* longest_lead = "8888.5";
constexpr const char* program = "alert63.exe";
constexpr const char* window_title = "Halvane Alerts";
constexpr const char* startup_folder = "Startup";
constexpr const char* shortcut_name = "Halvane";

/// Every step of Ok is tried, whatever becomes of the others; only without memory nothing goes on.
template <class Step>
void pass_over_errors(Step step) {
    try {
        step();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return;
    }
}

int number_of(const QCheckBox& box) {
    return box.isChecked() ? 1 : 0;
}

} // namespace

std::span<const ControlText> frmalerts_twins() {
    return twins;
}

frmalerts::frmalerts(QWidget* owner) : QDialog(owner), ui_(std::make_unique<Ui::frmalerts>()) {
    ui_->setupUi(this);
    athans_ = {{{ui_->fradoh, ui_->optdhrh, ui_->optdhre},
                {ui_->fraasr, ui_->optasrh, ui_->optasre},
                {ui_->framag, ui_->optmagh, ui_->optmage},
                {ui_->fraish, ui_->optishh, ui_->optishe}}};
    apply_language(*this, twins, stored_language());
    set_sizes();
    select_whole_text_on_focus(*this);
    connect(ui_->chkpep, &QCheckBox::toggled, this, &frmalerts::chkpep_click);
    connect(ui_->chkpra, &QCheckBox::toggled, this, &frmalerts::chkpra_click);
    connect(ui_->chkpopup, &QCheckBox::toggled, this, &frmalerts::chkpopup_click);
    connect(ui_->cmdok, &QPushButton::clicked, this, &frmalerts::cmdok_click);
    connect(ui_->cmdcan, &QPushButton::clicked, this, &QDialog::reject);
    load();
    fit_form(*this);
}

frmalerts::~frmalerts() = default;

void frmalerts::set_sizes() {
    set_spacing(*this);
    shape_number_box(*ui_->txtpep, longest_lead);
}

void frmalerts::load() {
    const AlertSettings settings = read_alert();
    ui_->chkpep->setChecked(settings.beep == 1);
    ui_->chkpra->setChecked(settings.window_and_athan == 1);
    ui_->chkpopup->setChecked(settings.window_only == 1);
    ui_->txtpep->setText(QString::fromStdString(plain_number(settings.lead)));
    chkpep_click();
    chkpra_click();
    if (!ui_->chkpra->isChecked())
        return;
    const std::array<bool, 4> mecca{settings.dhohur_mecca, settings.asr_mecca, settings.maghreb_mecca,
                                    settings.isha_mecca};
    for (std::size_t prayer = 0; prayer < athans_.size(); ++prayer)
        if (!mecca[prayer])
            athans_[prayer].jerusalem->setChecked(true);
}

void frmalerts::chkpep_click() {
    ui_->txtpep->setEnabled(ui_->chkpep->isChecked());
}

void frmalerts::chkpra_click() {
    const bool checked = ui_->chkpra->isChecked();
    for (const AthanChoice& athan : athans_) {
        athan.frame->setEnabled(checked);
        athan.mecca->setEnabled(checked);
        athan.jerusalem->setEnabled(checked);
    }
    ui_->lblprao->setEnabled(checked);
    if (checked)
        ui_->chkpopup->setChecked(false);
}

void frmalerts::chkpopup_click() {
    if (!ui_->chkpopup->isChecked())
        return;
    ui_->chkpra->setChecked(false);
    chkpra_click();
}

void frmalerts::Create_ShortCut(const std::string& target, const std::string& folder,
                                const std::string& shortcut, const std::string& working_folder,
                                int window_style, int icon_number) {
    platform().create_shortcut({target, folder, shortcut, working_folder, window_style, icon_number});
}

void frmalerts::start_alert_program() {
    if (!platform().is_running(window_title, program))
        platform().start_minimised(delivered_path(program), program_folder());
}

void frmalerts::save() const {
    AlertSettings settings;
    settings.beep = number_of(*ui_->chkpep);
    settings.lead = numeric_prefix(text_of(*ui_->txtpep));
    settings.window_and_athan = number_of(*ui_->chkpra);
    settings.window_only = number_of(*ui_->chkpopup);
    settings.dhohur_mecca = ui_->optdhrh->isChecked();
    settings.asr_mecca = ui_->optasrh->isChecked();
    settings.maghreb_mecca = ui_->optmagh->isChecked();
    settings.isha_mecca = ui_->optishh->isChecked();
    write_alert(settings);
}

void frmalerts::cmdok_click() {
    if (!numbers_are_meant(*this, language_of(*this)))
        return;
    if (ui_->chkpep->isChecked() || ui_->chkpra->isChecked() || ui_->chkpopup->isChecked()) {
        pass_over_errors([] {
            Create_ShortCut(delivered_path(program), startup_folder, shortcut_name, program_folder(), 0, 0);
        });
        pass_over_errors([this] { start_alert_program(); });
    } else {
        pass_over_errors([] { platform().delete_shortcut(startup_folder, shortcut_name); });
    }
    pass_over_errors([this] { save(); });
    accept();
}

} // namespace halvane
