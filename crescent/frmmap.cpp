// SPDX-License-Identifier: MIT
#include "crescent/frmmap.h"

#include "base/numberformat.h"
#include "crescent/mapimage.h"
#include "crescent/maptexts.h"
#include "crescent/picturename.h"
#include "panel/currentplatform.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/panelstyle.h"
#include "panel/statewords.h"
#include "routines/crescentday.h"
#include "routines/seriesloader.h"
#include "stored/programfiles.h"
#include "stored/programfolder.h"
#include "system/path.h"
#include "ui_frmmap.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QPointer>
#include <cmath>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmmap", "Crescent Visibility Map", "خريطة رؤية الهلال"},
    {"lblcri", "C&riterion:", "ال&معيار"},
    {"cmddraw", "&Draw", "&رسم"},
    {"cmdstop", "S&top", "إي&قاف"},
    {"cmdfine", "&Fine Map", "الخريطة ال&دقيقة"},
    {"cmdsave", "&Save", "&حفظ"},
    {"cmdclose", "&Close", "إ&غلاق"},
    {"cbocri@spoken", "Criterion", "المعيار"},
    {"pic@spoken", "World map", "خريطة العالم"},
    {"cmdfine@tip", "Smooth zones by any criterion, to enlarge and to print",
     "مناطق ناعمة بأي معيار، للتكبير و الطباعة"},
};

constexpr TwinText save_title{"Save the Map", "حفظ الخريطة"};
constexpr TwinText save_filter{"GIF pictures (*.gif)", "صور GIF (*.gif)"};
constexpr TwinText drawing_words{"Drawing: %1 %", "جار الرسم: %1 %"};
constexpr TwinText stopped_words{"Stopped at %1 %.", "توقف الرسم عند %1 %."};
constexpr TwinText other_choice{"The drawing is of another day or criterion than chosen: draw again.",
                                "هذا الرسم ليوم آخر أو لمعيار آخر غير المختار: ارسم من جديد."};
constexpr TwinText not_drawn{"Not drawn here", "لم يرسم هنا"};
constexpr TwinText replace_question{"%1 is there already. Replace it?", "الملف %1 موجود. هل تريد استبداله؟"};
constexpr TwinText not_saved{"Not saved: %1", "لم يتم الحفظ: %1"};
constexpr TwinText refused{"Not saved: %1 is a file of the program. Choose another name.",
                           "لم يتم الحفظ: %1 من ملفات البرنامج. اختر اسما آخر."};
constexpr TwinText new_day{"Visibility Day: Waxing (New) Crescent", "يوم الرصد: هلال أول الشهر"};
constexpr TwinText old_day{"Visibility Day: Waning (Old) Crescent", "يوم الرصد: هلال آخر الشهر"};
constexpr TwinText mouse_place{"Mouse Position: Long: %1, Lat: %2", "موقع الفأرة:  خط طول: %1 خط العرض: %2"};

/// The read-out of a place; empty outside the world.
QString mouse_text(const MapPlace& place, Language language) {
    constexpr double pole = 90;
    constexpr double date_line = 180;
    if (std::fabs(place.latitude) > pole || std::fabs(place.longitude) > date_line)
        return {};
    const auto figure = [language](double value, const char* pattern) {
        const QString text = QString::fromStdString(format_number(value, pattern));
        return language == Language::english ? text : isolated(text);
    };
    return text_of(mouse_place, language)
        .arg(figure(place.longitude, "#000.0"), figure(place.latitude, "#00.0"));
}

} // namespace

std::span<const ControlText> frmmap_twins() {
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
        if (panel_)
            panel_->show_progress(++blocks_ * 100 / MapGrid::blocks);
        QCoreApplication::processEvents();
        return panel_ && !panel_->stop_;
    }

private:
    QPointer<frmmap> panel_;
    int blocks_ = 0;
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
    for (const CriterionRow& criterion : criteria())
        ui_->cbocri->addItem(text_of(criterion.name, language_));
}

void frmmap::set_sizes() {
    constexpr int information_lines = 5;
    set_spacing(*this);
    keep_left_to_right(*ui_->pic);
    const int line = ui_->lblinf->fontMetrics().lineSpacing();
    ui_->lblinf->setMinimumHeight(information_lines * line);
    for (QLabel* read_out : {ui_->lblmouse, ui_->lblclass, ui_->lblstate})
        read_out->setMinimumHeight(line);
    ui_->lblsave->setMinimumHeight(line);
}

void frmmap::connect_controls() {
    connect(ui_->cmddraw, &QPushButton::clicked, this, &frmmap::cmddraw_click);
    connect(ui_->cmdstop, &QPushButton::clicked, this, &frmmap::cmdstop_click);
    connect(ui_->cmdfine, &QPushButton::clicked, this, &frmmap::cmdfine_click);
    connect(ui_->cmdsave, &QPushButton::clicked, this, &frmmap::cmdsave_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &frmmap::accept);
    for (QRadioButton* day : {ui_->opt0, ui_->opt1, ui_->opt2})
        connect(day, &QRadioButton::toggled, this, &frmmap::show_state);
    connect(ui_->cbocri, &QComboBox::currentIndexChanged, this, &frmmap::show_state);
    connect(ui_->pic, &MapView::mouse_over, this, &frmmap::show_mouse);
    connect(ui_->pic, &MapView::mouse_left, this, &frmmap::clear_mouse);
}

void frmmap::load() {
    kind_ = crescentkind;
    Ephemeris ephemeris(loaded_theory());
    conjunction_ = map_conjunction(ephemeris, conjunctionstart);
    const bool is_new = kind_ == CrescentKind::new_crescent;
    ui_->fravis->setTitle(text_of(is_new ? new_day : old_day, language_));
    QRadioButton* const days[] = {ui_->opt0, ui_->opt1, ui_->opt2};
    for (int choice = 0; choice < 3; ++choice)
        days[choice]->setText(
            QString::fromStdString(map_date_text(map_day(conjunction_, kind_, choice), language_)));
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

int frmmap::shown_day() const {
    return ui_->opt2->isChecked() ? 2 : ui_->opt1->isChecked() ? 1 : 0;
}

MapRun frmmap::shown_run() const {
    MapRun run;
    run.criterion = Criterion{ui_->cbocri->currentIndex()}; // the list is the table
    run.kind = kind_;
    run.conjunction = conjunction_;
    run.day = map_day(conjunction_, kind_, shown_day());
    return run;
}

void frmmap::show_texts(const MapRun& run) {
    ui_->lblleg->show_legend(map_legend(run.criterion), bare_colour(ui_->pic->map()), language_);
    QStringList lines;
    for (const std::string& line : map_information(run, language_))
        lines << QString::fromStdString(line);
    ui_->lblinf->setText(lines.join(u'\n'));
}

void frmmap::choose_day(int choice) {
    QRadioButton* const days[] = {ui_->opt0, ui_->opt1, ui_->opt2};
    if (choice != offered_day_)
        days[choice]->setChecked(true);
    offered_day_ = choice;
}

bool frmmap::is_drawing_of_choice() const {
    const MapRun chosen = shown_run();
    return drawn_ && drawn_->criterion == chosen.criterion && drawn_->kind == chosen.kind &&
           drawn_->day == chosen.day;
}

void frmmap::show_progress(int percent) {
    percent_ = percent;
    show_state();
}

/// How far the drawing is, and whether it is of what is chosen.
void frmmap::show_state() {
    constexpr int whole = 100;
    QStringList words;
    if (drawing_)
        words << text_of(drawing_words, language_).arg(percent_);
    else if (drawn_ && percent_ < whole)
        words << text_of(stopped_words, language_).arg(percent_);
    if (drawn_ && !is_drawing_of_choice())
        words << text_of(other_choice, language_);
    ui_->lblstate->setText(words.join(u' '));
}

// The panel may be closed and deleted while a block lets events happen.
void frmmap::cmddraw_click() {
    ui_->cmddraw->setEnabled(false);
    const MapRun run = shown_run();
    ui_->pic->show_map(read_map_image());
    show_texts(run);
    drawn_ = run;
    drawing_ = true;
    show_progress(0);
    platform().keep_on_top(static_cast<QWidget*>(this), true);
    stop_ = false;
    const QPointer<frmmap> self(this);
    BlockPainter painter(this);
    draw_visibility_map(loaded_theory(), run, painter);
    if (!self)
        return;
    stop_ = false;
    drawing_ = false;
    ui_->pic->show_marks();
    show_state();
    ui_->cmddraw->setEnabled(true);
    if (ui_->cmdstop->hasFocus())
        ui_->cmddraw->setFocus();
}

void frmmap::cmdstop_click() {
    stop_ = true;
    load();
}

// The panel may be closed and deleted while a dialog stands.
void frmmap::cmdsave_click() {
    const QPointer<frmmap> self(this);
    try {
        platform().keep_on_top(static_cast<QWidget*>(this), true);
        const QString name = ask_for_name();
        if (self && !name.isEmpty())
            save_picture(name);
    } catch (const std::exception& failure) {
        if (self)
            show_save(not_saved, {}, parts_of(failure));
    }
}

void frmmap::cmdfine_click() {
    emit fine_map_wanted(kind_, conjunction_.universal, shown_day(), row_of(shown_run().criterion).key);
}

/// The name to save under, asked for until it is new or may be replaced; empty when the user gives up.
QString frmmap::ask_for_name() {
    const QPointer<frmmap> self(this);
    QString name = QString::fromStdString(program_path(gif_name(map_hijri_text(shown_run(), language_))));
    for (;;) {
        const QString chosen =
            choose_picture_file(this, text_of(save_title, language_), name, text_of(save_filter, language_));
        if (!self || chosen.isEmpty())
            return {};
        name = QString::fromStdString(gif_name(chosen.toStdString()));
        if (!QFileInfo::exists(name) || ProgramFiles().have(path_of(name.toStdString())))
            return name;
        const bool replace = ask_before_loss(
            this, text_of(save_title, language_),
            text_of(replace_question, language_).arg(isolated(QFileInfo(name).fileName())), language_);
        if (!self)
            return {};
        if (replace)
            return name;
    }
}

void frmmap::save_picture(const QString& name) {
    if (ProgramFiles().have(path_of(name.toStdString()))) {
        show_save(refused, name);
        return;
    }
    MapSheetContent content;
    content.points = ui_->pic->points();
    if (!ui_->lblinf->text().isEmpty())
        for (const QString& line : ui_->lblinf->text().split(u'\n'))
            content.information.push_back(line.toStdString());
    content.legend = ui_->lblleg->legend();
    content.bare = plain(bare_colour(ui_->pic->map()));
    content.language = language_;
    GIF gif;
    if (gif.SaveGIF(indexed_picture(map_sheet(ui_->pic->map(), content)), path_of(name.toStdString())))
        show_save(saved_words, name);
    else
        show_save(not_saved, {}, gif.failure().value().parts());
}

/// Tells in the line below the map how a save went; the tool tip has the whole of it.
void frmmap::show_save(const TwinText& how, const QString& name, const FailureParts& reason) {
    constexpr int two_lines = 3 * map_width / 2;
    const QString what =
        name.isEmpty() ? QString::fromStdString(words_of(reason, language_)) : QFileInfo(name).fileName();
    const QString words = text_of(how, language_).arg(isolated(what));
    const QString whole = name.isEmpty() ? words : words + u'\n' + isolated(name);
    ui_->lblsave->setToolTip(plain_tip(whole));
    ui_->lblsave->setText(ui_->lblsave->fontMetrics().elidedText(words, Qt::ElideMiddle, two_lines));
}

void frmmap::show_mouse(double x, double y) {
    const std::optional<VisibilityClass> found = ui_->pic->class_at(x, y);
    ui_->lblmouse->setText(mouse_text(map_place(x, y), language_));
    const bool is_outside = !found && ui_->lblmouse->text().isEmpty();
    ui_->lblclass->setText(is_outside ? QString() : class_words(found));
    ui_->lblleg->mark(found);
}

/// The class under the mouse in words; empty before the first drawing.
QString frmmap::class_words(std::optional<VisibilityClass> visibility) const {
    for (const LegendLine& line : ui_->lblleg->legend())
        if (line.visibility == visibility)
            return QLatin1Char(class_mark(line.visibility)) + QStringLiteral("  ") +
                   text_of(line.text, language_);
    return drawn_ ? text_of(not_drawn, language_) : QString();
}

void frmmap::clear_mouse() {
    ui_->lblmouse->clear();
    ui_->lblclass->clear();
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
