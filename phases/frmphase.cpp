// SPDX-License-Identifier: MIT
#include "phases/frmphase.h"

#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "phases/phasereport.h"
#include "routines/seriesloader.h"
#include "ui_frmphase.h"

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmphase", "Moon Phases", "أطوار القمر"},
    {"lblhphase", "Moon Phases", "أطوار القمر"},
    {"fradate", "Date", "التاريخ"},
    {"lblyear", "Year:", "السنة"},
    {"fraref", "Reference", "المرجع"},
    {"optgeo", "Geocentric", "مركزي"},
    {"opttopo", "Topocentric", "سطحي"},
    {"fratime", "Time", "الوقت"},
    {"optut", "Local (UT1)", "محلي (UT1)"},
    {"opttdt", "Local (TDT)", "محلي (TDT)"},
    {"fradelta", "Delta T", "Delta T"},
    {"lblsec", "Second(s)", "ثانية"},
    {"lbldeltan",
     " For \"Local (UT1)\"  Calculations, If you are not satisfied by the above Delta T  value, then kindly "
     "enter above the value you prefer.",
     " لحسابات 'محلي (UT1)' إذا كنت تفضل قيمة أخرى لـ Delta-T، يرجى إدخال هذه القيمة أعلاه"},
    {"lblchoose",
     " Please choose the Precision and Summer Time settings from the                   Preferences Menu, and "
     "your location from the Location Menu.",
     " يرجى اختيار الدقة و التوقيت الصيفي من قائمة الخيارات، و اختيار الموقع من قائمة الموقع"},
    {"cmdcalc", "&Calculate", "إجراء ال&حسابات"},
    {"cmdclose", "Clo&se", "إ&غلاق"},
    {"txtdelta@spoken", "Delta T in seconds", "قيمة Delta T بالثواني"},
};

constexpr double title_size = 1.6;

/// Width of a note whose line breaks at its run of blanks, or at a comfortable length.
int width_of(const QLabel& note) {
    constexpr int comfortable = 48; // average characters
    const qsizetype gap = note.text().indexOf(QStringLiteral("   "));
    const QFontMetrics metrics = note.fontMetrics();
    return gap < 0 ? comfortable * metrics.averageCharWidth()
                   : metrics.horizontalAdvance(note.text().left(gap)) + space_unit(note);
}

/// Room for every line of a note that is at least so wide.
void hold_lines(QLabel& note, int width) {
    note.setMinimumSize(width, note.heightForWidth(width));
}

} // namespace

std::span<const ControlText> frmphase_twins() {
    return twins;
}

frmphase::frmphase(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmphase>()), language_(stored_language()) {
    ui_->setupUi(this);
    apply_language(*this, twins, language_);
    if (language_ == Language::arabic)
        set_font_if_present(*this, QStringLiteral("Arabic Transparent"), font().pointSizeF());
    set_sizes();
    select_whole_text_on_focus(*this);
    connect_controls();
    load();
    fit_form(*this);
}

frmphase::~frmphase() = default;

void frmphase::set_sizes() {
    set_spacing(*this);
    scale_font(*ui_->lblhphase, title_size);
    shape_number_box(*ui_->txtyear, "-88888");
    shape_number_box(*ui_->txtdelta, "-888888.88");
    const int width = width_of(*ui_->lblchoose);
    hold_lines(*ui_->lblchoose, width);
    ui_->lblchoose->setMaximumWidth(width);
    hold_lines(*ui_->lbldeltan, width - 4 * space_unit(*this));
}

void frmphase::connect_controls() {
    connect(ui_->txtyear, &QLineEdit::textChanged, this, &frmphase::txtyear_change);
    connect(ui_->optut, &QRadioButton::toggled, ui_->txtdelta, &QLineEdit::setEnabled);
    connect(ui_->cmdcalc, &QPushButton::clicked, this, &frmphase::cmdcalc_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &frmphase::cmdclose_click);
}

void frmphase::load() {
    const PhaseSettings& stored = read_phase();
    ui_->txtyear->setText(QString::fromStdString(stored.year));
    txtyear_change();
    (stored.geocentric ? ui_->optgeo : ui_->opttopo)->setChecked(true);
    (stored.local_ut1 ? ui_->optut : ui_->opttdt)->setChecked(true);
    dynamical_time_.emplace();
}

PhaseSettings frmphase::shown() const {
    return {text_of(*ui_->txtyear), ui_->optgeo->isChecked(), ui_->optut->isChecked()};
}

void frmphase::txtyear_change() {
    ui_->txtdelta->setText(QString::fromStdString(proposed_delta_t(text_of(*ui_->txtyear))));
}

// The panel may be closed while the run lets events happen: nothing of it is used from there on.
void frmphase::cmdcalc_click() {
    const PhaseYear year = phase_year(shown(), text_of(*ui_->txtdelta));
    if (const std::optional<Refusal> refused = refused_phase_year(year)) {
        warn(this, *refused, language_);
        ask_again(*ui_->txtyear);
        return;
    }
    if (const std::optional<Refusal> refused = refused_delta_t(year)) {
        warn(this, *refused, language_);
        ask_again(*ui_->txtdelta);
        return;
    }
    const RunPointer run = phase_run(loaded_theory(), year);
    RunOutcome outcome;
    {
        WaitProgress progress(windowTitle(), this);
        outcome = write_report(*run, progress);
    }
    if (outcome == RunOutcome::done)
        platform().show_report(run->report_name(), run);
}

void frmphase::cmdclose_click() {
    write_phase(shown());
    accept();
}

void frmphase::done(int result) {
    dynamical_time_.reset();
    QDialog::done(result);
}

} // namespace halvane
