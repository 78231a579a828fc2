// SPDX-License-Identifier: MIT
#include "qibla/frmqib.h"

#include "base/numberformat.h"
#include "base/record.h"
#include "calendar/yearlimits.h"
#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/frmwait.h"
#include "panel/messages.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "qibla/frmqmap.h"
#include "qibla/qiblahrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "ui_frmqib.h"

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmqib", "Qiblah Direction", "اتجاه القبلة"},
    {"lblhead", "Qiblah Direction", "اتجاه القبلة"},
    {"lblqibtim", "Qiblah Times", "مواعيد القبلة"},
    {"lbln", "N", "شمال"},
    {"lbls", "S", "جنوب"},
    {"lble", "E", "شرق"},
    {"lblw", "W", "غرب"},
    {"optsun", "Find the time when the Sun is at Qiblah direction",
     "جد الوقت عندما تكون الشمس باتجاة القبلة"},
    {"optsha", "Find the time when the Sun's shadow  is at Qiblah direction",
     "جد الوقت عندما يكون ظل الشمس باتجاة القبلة"},
    {"cmdqib", "&Find Qiblah Times", "&احسب مواعيد القبلة"},
    {"cmdshowqmap", "Show &Qiblah  Map", "&عرض خارطة القبلة"},
    {"cmdclose", "Clo&se", "إ&غلاق"},
};

/// What follows the direction in `lblang`.
constexpr TwinText from_north{"° From True North", "° من الشمال الحقيقي"};

constexpr Panel map{"frmqmap", "cmdshowqmap", true, make_panel<frmqmap>};

constexpr double head_size = 1.6;
constexpr double figure_size = 2;
constexpr double line_size = 1.2;

} // namespace

std::span<const ControlText> frmqib_twins() {
    return twins;
}

frmqib::frmqib(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmqib>()), language_(stored_language()),
      direction_(stored_qiblah_direction()) {
    ui_->setupUi(this);
    keep_left_to_right(*ui_->dial);
    apply_language(*this, twins, language_);
    if (language_ == Language::arabic)
        set_font_if_present(*this, QStringLiteral("arabic Transparent"), font().pointSizeF());
    set_sizes();
    show_direction();
    connect(ui_->cmdqib, &QPushButton::clicked, this, &frmqib::cmdqib_click);
    connect(ui_->cmdshowqmap, &QPushButton::clicked, this, &frmqib::cmdshowqmap_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &QDialog::reject);
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
}

frmqib::~frmqib() = default;

void frmqib::set_sizes() {
    set_spacing(*this);
    ui_->columns->setSpacing(3 * space_unit(*this));
    scale_font(*ui_->lblhead, head_size);
    scale_font(*ui_->lblang, figure_size);
    scale_font(*ui_->lblloc, line_size);
    for (QLabel* label : {ui_->lblqibtim, ui_->lbln, ui_->lbls, ui_->lble, ui_->lblw})
        scale_font(*label, line_size);
}

void frmqib::show_direction() {
    const QString number = QString::fromStdString(plain_number(direction_));
    ui_->lblang->setText(number + text_of(from_north, language_));
    ui_->lblloc->setText(QString::fromStdString(read_loc().name));
    ui_->lin1->set_end(dial_line_end(direction_));
    ui_->dial->setAccessibleName(ui_->lblhead->text() + u' ' + ui_->lblang->text());
}

// The panel may be closed while the run lets events happen: nothing of it is used from there on.
void frmqib::cmdqib_click() {
    const float direction = direction_;
    const QiblahMark mark = ui_->optsun->isChecked() ? QiblahMark::sun : QiblahMark::shadow;
    if (const std::optional<Refusal> refused = refused_stored_period(read_date())) {
        warn(this, *refused, language_);
        return;
    }
    RunPointer run;
    RunOutcome outcome;
    {
        WaitProgress progress(ui_->lblqibtim->text(), this);
        run = qiblah_run(loaded_theory(), machine_time(), direction, mark);
        outcome = write_report(*run, progress);
    }
    if (outcome == RunOutcome::done)
        platform().show_report(run->report_name(), run);
}

void frmqib::cmdshowqmap_click() {
    open_panel(map, this);
}

} // namespace halvane
