#include "crescent/frmmap.h"

#include "app/formpage.h"
#include "app/frmstyle.h"
#include "app/messages.h"
#include "app/platform/platform.h"
#include "app/stored/failure.h"
#include "app/stored/programfolder.h"
#include "calendar/numberformat.h"
#include "crescent/mapimage.h"
#include "crescent/maptexts.h"
#include "ui_frmmap.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <cmath>

namespace halvane {

namespace {

constexpr Twin twins[] = {
    {"frmmap", "Crescent Visibility Map", "خريطة رؤية الهلال"},
    {"lblcri", "C&riterion:", "ال&معيار"},
    {"cmddraw", "&Draw", "&رسم"},
    {"cmdstop", "S&top", "إي&قاف"},
    {"cmdsave", "&Save", "&حفظ"},
    {"cmdclose", "&Close", "إ&غلاق"},
    {"cbocri@spoken", "Criterion", "المعيار"},
    {"pic@spoken", "World map", "خريطة العالم"},
};

constexpr Twin save_title{"", "Save the Map", "حفظ الخريطة"};
constexpr Twin save_filter{"", "GIF pictures (*.gif)", "صور GIF (*.gif)"};
constexpr Twin new_day{"", "Visibility Day: Waxing (New) Crescent", "يوم الرصد: هلال أول الشهر"};
constexpr Twin old_day{"", "Visibility Day: Waning (Old) Crescent", "يوم الرصد: هلال آخر الشهر"};

constexpr Criterion criteria[] = {Criterion::vesk, Criterion::yallop, Criterion::saao};

/// The read-out of a place; empty outside the world.
QString mouse_text(const MapPlace& place, Language language) {
    constexpr double pole = 90;
    constexpr double date_line = 180;
    if (std::fabs(place.latitude) > pole || std::fabs(place.longitude) > date_line)
        return {};
    const QString longitude = QString::fromStdString(format_number(place.longitude, "#000.0"));
    const QString latitude = QString::fromStdString(format_number(place.latitude, "#00.0"));
    if (language == Language::english)
        return QStringLiteral("Mouse Position: Long: ") + longitude + QStringLiteral(", Lat: ") + latitude;
    return QStringLiteral("موقع الفأرة: ") + QStringLiteral(" خط طول: ") + isolated(longitude) +
           QStringLiteral(" خط العرض: ") + isolated(latitude);
}

/// The chosen name with its last four characters (".gif" or another picture's ending) replaced; empty when
/// the name is shorter than that.
QString picture_name(const QString& chosen) {
    constexpr qsizetype ending = 4;
    return chosen.size() < ending ? QString() : chosen.chopped(ending) + QStringLiteral(".gif");
}

} // namespace

std::span<const Twin> frmmap_twins() {
    return twins;
}

/// Hands the points of a drawing to the panel for as long as it lives, with one pass of the event loop for
/// each block.
class frmmap::BlockPainter : public MapReceiver {
public:
    explicit BlockPainter(frmmap* panel) : panel_(panel) {}
    void point(const MapPoint& point) override {
        if (panel_)
            panel_->ui_->pic->add_point(point);
    }
    bool go_on() override {
        QCoreApplication::processEvents();
        return panel_ && !panel_->stop_;
    }

private:
    QPointer<frmmap> panel_;
};

frmmap::frmmap(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmmap>()), language_(stored_language()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    apply_language(*this, twins, language_);
    fill_lists();
    set_sizes();
    connect_controls();
    load();
    show_clean_map();
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
}

frmmap::~frmmap() = default;

void frmmap::fill_lists() {
    for (const Criterion criterion : criteria)
        ui_->cbocri->addItem(QString::fromUtf8(criterion_name(criterion, letter())));
}

void frmmap::set_sizes() {
    constexpr int information_lines = 5;
    set_spacing(*this);
    keep_left_to_right(*ui_->pic);
    const int line = ui_->lblinf->fontMetrics().lineSpacing();
    ui_->lblinf->setMinimumHeight(information_lines * line);
    ui_->lblmouse->setMinimumHeight(line);
}

void frmmap::connect_controls() {
    connect(ui_->cmddraw, &QPushButton::clicked, this, &frmmap::cmddraw_click);
    connect(ui_->cmdstop, &QPushButton::clicked, this, &frmmap::cmdstop_click);
    connect(ui_->cmdsave, &QPushButton::clicked, this, &frmmap::cmdsave_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &frmmap::accept);
    connect(ui_->pic, &MapView::mouse_over, this, &frmmap::show_mouse);
    connect(ui_->pic, &MapView::mouse_left, this, &frmmap::clear_mouse);
}

void frmmap::load() {
    kind_ = crescentkind;
    conjunction_ = map_conjunction();
    const bool is_new = kind_ == CrescentKind::new_crescent;
    ui_->fravis->setTitle(text_of(is_new ? new_day : old_day, language_));
    QRadioButton* const days[] = {ui_->opt0, ui_->opt1, ui_->opt2};
    for (int choice = 0; choice < 3; ++choice)
        days[choice]->setText(
            QString::fromStdString(map_date_text(map_day(conjunction_, kind_, choice), letter())));
    ui_->cbocri->setCurrentIndex(0);
}

/// Before the first drawing a missing picture is passed over; the drawing tells it.
void frmmap::show_clean_map() {
    try {
        ui_->pic->show_map(read_map_image());
    } catch (const RunTimeFailure&) {
        ui_->pic->show_map({});
    }
}

MapRun frmmap::shown_run() const {
    MapRun run;
    run.criterion = criteria[ui_->cbocri->currentIndex()];
    run.kind = kind_;
    run.conjunction = conjunction_;
    run.day = map_day(conjunction_, kind_, ui_->opt2->isChecked() ? 2 : ui_->opt1->isChecked() ? 1 : 0);
    return run;
}

void frmmap::show_texts(const MapRun& run) {
    ui_->lblleg->show_legend(map_legend(run.criterion), language_);
    QStringList lines;
    for (const std::string& line : map_information(run, letter()))
        lines << QString::fromStdString(line);
    ui_->lblinf->setText(lines.join(u'\n'));
}

// The panel may be closed and deleted while a block lets events happen.
void frmmap::cmddraw_click() {
    ui_->cmddraw->setEnabled(false);
    const MapRun run = shown_run();
    show_texts(run);
    ui_->pic->show_map(read_map_image());
    platform().keep_on_top(static_cast<QWidget*>(this), true);
    stop_ = false;
    const QPointer<frmmap> self(this);
    BlockPainter painter(this);
    draw_visibility_map(run, painter);
    if (!self)
        return;
    stop_ = false;
    ui_->cmddraw->setEnabled(true);
    if (ui_->cmdstop->hasFocus())
        ui_->cmddraw->setFocus();
}

void frmmap::cmdstop_click() {
    stop_ = true;
    load();
}

void frmmap::cmdsave_click() {
    try {
        save_picture();
    } catch (const std::exception&) {
        // A save that fails leaves everything as it was.
    }
}

void frmmap::save_picture() {
    platform().keep_on_top(static_cast<QWidget*>(this), true);
    const QString proposed = QString::fromStdString(program_path(map_hijri_text(shown_run(), letter())));
    const QPointer<frmmap> self(this);
    const QString chosen = choose_save_file(this, text_of(save_title, language_), proposed,
                                            text_of(save_filter, language_), QStringLiteral("gif"));
    if (!self)
        return;
    const QString name = picture_name(chosen);
    if (name.isEmpty())
        return;
    MapSheetContent content;
    content.map = ui_->pic->map();
    content.points = ui_->pic->points();
    if (!ui_->lblinf->text().isEmpty())
        content.information = ui_->lblinf->text().split(u'\n');
    content.legend = ui_->lblleg->legend();
    content.language = language_;
    GIF().SaveGIF(indexed_picture(map_sheet(content)), name.toStdString());
}

void frmmap::show_mouse(double x, double y) {
    ui_->lblmouse->setText(mouse_text(map_place(x, y), language_));
    ui_->lblleg->mark(ui_->pic->class_at(x, y));
}

void frmmap::clear_mouse() {
    ui_->lblmouse->clear();
    ui_->lblleg->mark(std::nullopt);
}

void frmmap::done(int result) {
    stop_ = true;
    QDialog::done(result);
}

bool frmmap::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        platform().keep_on_top(static_cast<QWidget*>(this), true);
    return QDialog::event(event);
}

} // namespace halvane
