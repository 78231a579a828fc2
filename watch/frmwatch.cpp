// SPDX-License-Identifier: MIT
#include "watch/frmwatch.h"

#include "base/failure.h"
#include "base/pagewords.h"
#include "calendar/hijriconversion.h"
#include "calendar/locationclock.h"
#include "panel/choicelists.h"
#include "panel/formpage.h"
#include "panel/messages.h"
#include "panel/namelabel.h"
#include "panel/numberbox.h"
#include "panel/numberlists.h"
#include "panel/panelstyle.h"
#include "panel/panelsupport.h"
#include "panel/placenames.h"
#include "panel/statewords.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/loclist.h"
#include "stored/outputfile.h"
#include "timetable/pageprinter.h"
#include "ui_frmwatch.h"
#include "watch/watchcsv.h"
#include "watch/watchpainter.h"
#include "watch/watchpaper.h"
#include "watch/watchsheet.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

namespace halvane {

namespace {

constexpr ControlText twins[] = {
    {"frmwatch", "Watch Sheet", "ورقة الرصد"},
    {"frakind", "Crescent", "الهلال"},
    {"optnew", "&New (evening)", "أ&ول الشهر (مساء)"},
    {"optold", "&Old (morning)", "&آخر الشهر (صباحا)"},
    {"fradate", "Date", "التاريخ"},
    {"cmdbefore", "Day &before", "اليوم ال&سابق"},
    {"cmdafter", "Day &after", "اليوم ال&تالي"},
    {"fraplace", "Place", "الموقع"},
    {"optlisted", "A place of the l&ist:", "موقع من ال&قائمة:"},
    {"frapage", "Page", "الصفحة"},
    {"lbllanguage", "&Language:", "ال&لغة:"},
    {"lblpaper", "Pap&er:", "الو&رق:"},
    {"cmdprevious", "Pre&vious page", "الصفحة السا&بقة"},
    {"cmdnext", "Ne&xt page", "الصفحة التالي&ة"},
    {"cmdsave", "&Save As...", "&حفظ باسم..."},
    {"cmdprint", "&Print...", "&طباعة..."},
    {"cmdclose", "&Close", "إ&غلاق"},
    {"cboday@spoken", "Day", "اليوم"},
    {"cbomonth@spoken", "Month", "الشهر"},
    {"txtyear@spoken", "Year", "السنة"},
    {"cboplace@spoken", "Place of the list", "موقع من القائمة"},
    {"areapreview@spoken", "The page", "الصفحة"},
};

constexpr TwinText stored_place_words{"The s&tored location: %1", "الموقع المحفو&ظ: %1"};
constexpr TwinText save_title{"Save the Watch Sheet", "حفظ ورقة الرصد"};

struct KindWords {
    WatchFormat format;
    TwinText words;
};
constexpr KindWords kinds[] = {
    {WatchFormat::pdf, {"PDF, the printed page", "PDF، الصفحة المطبوعة"}},
    {WatchFormat::png, {"PNG picture", "صورة PNG"}},
    {WatchFormat::csv, {"CSV table", "جدول CSV"}},
};

constexpr const char* longest_year = "-88888";
constexpr int pause_after_change = 200; // [ms]
constexpr int least_preview_lines = 12;

QList<SaveKind> save_kinds(Language language) {
    QList<SaveKind> all;
    for (const KindWords& kind : kinds)
        all += save_kind(text_of(kind.words, language), QString::fromLatin1(name_of(kind.format)));
    return all;
}

std::string bytes_of(const CrescentWatch& watch, const WatchPage& page, WatchFormat format) {
    switch (format) {
    case WatchFormat::png:
        return png_of(watch, page, usual_picture_width);
    case WatchFormat::csv:
        return csv_of(watch);
    case WatchFormat::pdf:
        break;
    }
    return pdf_of(watch, page);
}

} // namespace

std::span<const ControlText> frmwatch_twins() {
    return twins;
}

frmwatch::frmwatch(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::frmwatch>()), language_(stored_language()),
      pause_(new QTimer(this)) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    pause_->setSingleShot(true);
    pause_->setInterval(pause_after_change);
    apply_language(*this, twins, language_);
    fill_lists();
    ui_->cboplace->setEnabled(false);
    set_sizes();
    select_whole_text_on_focus(*this);
    connect_controls();
    fit_form(*this, Qt::Horizontal | Qt::Vertical);
    show_whole_page(*this, *ui_->areapreview, *ui_->preview);
    choose(CrescentKind::new_crescent, std::nullopt);
}

frmwatch::~frmwatch() = default;

void frmwatch::fill_lists() {
    fill_with_days(*ui_->cboday);
    for (const std::string& name : conversion_months(ConversionDirection::civil_to_hijri, language_))
        ui_->cbomonth->addItem(QString::fromStdString(name));
    const QString stored =
        shortened(QString::fromStdString(read_loc().name)).replace(u'&', QStringLiteral("&&"));
    ui_->optstored->setText(text_of(stored_place_words, language_).arg(isolated(stored)));
    ui_->cboplace->addItems(sorted_place_names(readable_location_list()));
    filter_while_typing(*ui_->cboplace);
    ui_->cbolanguage->addItems({QStringLiteral("English"), QStringLiteral("العربية")});
    ui_->cbolanguage->setCurrentIndex(language_ == Language::arabic ? 1 : 0);
    ui_->cbopaper->addItems({QStringLiteral("A4"), QStringLiteral("Letter")});
}

void frmwatch::set_sizes() {
    set_spacing(*this);
    shape_number_box(*ui_->txtyear, longest_year);
    limit_width(*ui_->cboplace);
    shape_choices(*ui_->areachoices, least_preview_lines);
    ui_->areapreview->setMinimumHeight(least_preview_lines * fontMetrics().lineSpacing());
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    ui_->areapreview->setMinimumWidth(ui_->preview->minimumSizeHint().width() + bar);
}

void frmwatch::connect_controls() {
    connect(pause_, &QTimer::timeout, this, &frmwatch::calculate);
    keep_focus_in_sight(*ui_->areachoices);
    connect(ui_->optnew, &QRadioButton::toggled, this, &frmwatch::change);
    for (QComboBox* list : {ui_->cboday, ui_->cbomonth, ui_->cbolanguage, ui_->cbopaper})
        connect(list, &QComboBox::currentIndexChanged, this, &frmwatch::change);
    connect(ui_->txtyear, &QLineEdit::textChanged, this, &frmwatch::change);
    connect(ui_->optlisted, &QRadioButton::toggled, this, &frmwatch::change_place);
    connect(ui_->cboplace, &QComboBox::currentTextChanged, this, &frmwatch::change);
    connect(ui_->cmdbefore, &QPushButton::clicked, this, [this] { move_day(-1); });
    connect(ui_->cmdafter, &QPushButton::clicked, this, [this] { move_day(1); });
    connect(ui_->cmdprevious, &QPushButton::clicked, this, [this] { turn_page(-1); });
    connect(ui_->cmdnext, &QPushButton::clicked, this, [this] { turn_page(1); });
    connect(ui_->cmdsave, &QPushButton::clicked, this, &frmwatch::cmdsave_click);
    connect(ui_->cmdprint, &QPushButton::clicked, this, &frmwatch::cmdprint_click);
    connect(ui_->cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

// --- What is chosen ---

void frmwatch::choose(CrescentKind kind, const std::optional<DateNumbers>& date) {
    {
        const QScopedValueRollback quiet(showing_, true);
        (kind == CrescentKind::new_crescent ? ui_->optnew : ui_->optold)->setChecked(true);
        const MachineTime today = location_clock(read_pref(), read_loc(), universal_time()).time;
        show_date(date.value_or(DateNumbers{static_cast<double>(today.year), static_cast<double>(today.month),
                                            static_cast<double>(today.day)}));
    }
    calculate();
}

void frmwatch::show_date(const DateNumbers& date) {
    ui_->cboday->setCurrentIndex(static_cast<int>(date.day) - 1);
    ui_->cbomonth->setCurrentIndex(static_cast<int>(date.month) - 1);
    ui_->txtyear->setText(QString::number(date.year));
}

WatchChoice frmwatch::shown() const {
    WatchChoice choice;
    choice.kind = ui_->optnew->isChecked() ? CrescentKind::new_crescent : CrescentKind::old_crescent;
    choice.date = {number_in(*ui_->txtyear), ui_->cbomonth->currentIndex() + 1.0, number_in(*ui_->cboday)};
    if (ui_->optlisted->isChecked())
        choice.place = text_of(*ui_->cboplace);
    return choice;
}

WatchPage frmwatch::shown_page() const {
    return {ui_->cbolanguage->currentIndex() == 1 ? Language::arabic : Language::english,
            ui_->cbopaper->currentIndex() == 1 ? PaperSize::letter : PaperSize::a4};
}

void frmwatch::change_place() {
    ui_->cboplace->setEnabled(ui_->optlisted->isChecked());
    change();
}

void frmwatch::move_day(int days) {
    settle_numbers(*this);
    {
        const QScopedValueRollback quiet(showing_, true);
        show_date(date_after(shown().date, days));
    }
    calculate();
}

// --- The page ---

/// What is shown is calculated after a short pause, in which more may change.
void frmwatch::change() {
    if (!showing_)
        pause_->start();
}

bool frmwatch::is_settled() const {
    return !pause_->isActive();
}

void frmwatch::calculate() {
    pause_->stop();
    const int page = ui_->preview->page();
    watch_.reset();
    try {
        WatchAnswer answer = settings_of(shown());
        if (!answer.settings) {
            show_nothing(text_of(answer.words, language_));
            return;
        }
        auto result = crescent_watch(loaded_theory(), *answer.settings);
        if (const auto* none = std::get_if<NoWatch>(&result)) {
            show_nothing(text_of(words_of(*none, *answer.settings), language_));
            return;
        }
        watch_ = std::make_shared<const CrescentWatch>(std::get<CrescentWatch>(std::move(result)));
    } catch (const RunTimeFailure& failure) {
        show_nothing(words_of(failure, language_));
        return;
    }
    show_watch();
    ui_->preview->show_page(page);
    show_page();
}

void frmwatch::show_nothing(const QString& words) {
    ui_->preview->show_pages({shown_page().paper, PageLanguage::english, 0, nullptr});
    ui_->lblstate->setText(text_of(nothing_shown_words, language_).arg(words));
    show_page();
}

void frmwatch::show_watch() {
    ui_->preview->show_pages(painted_pages(watch_, shown_page()));
    ui_->lblstate->clear();
}

/// Which page is shown, and where one can go from it.
void frmwatch::show_page() {
    const PaperView& preview = *ui_->preview;
    ui_->lblpage->setText(preview.pages() == 0
                              ? QString()
                              : text_of(words_of_page(preview.page() + 1, preview.pages()), language_));
    ui_->cmdprevious->setEnabled(preview.page() > 0);
    ui_->cmdnext->setEnabled(preview.page() + 1 < preview.pages());
    ui_->areapreview->setAccessibleDescription(
        watch_ ? QString::fromStdString(document_title(*watch_, language_)) : QString());
}

void frmwatch::turn_page(int pages) {
    ui_->preview->show_page(ui_->preview->page() + pages);
    ui_->areapreview->verticalScrollBar()->setValue(0);
    show_page();
}

// --- Files and paper ---

bool frmwatch::is_ready() {
    if (!numbers_are_meant(*this, language_))
        return false;
    calculate();
    if (watch_ == nullptr)
        warn(this, windowTitle(), ui_->lblstate->text(), language_);
    return watch_ != nullptr;
}

// The panel may be closed and deleted while a dialog stands.
void frmwatch::cmdsave_click() {
    if (!is_ready())
        return;
    const QPointer<frmwatch> self(this);
    const QString proposed = QString::fromStdString(watch_file_name(watch_->settings, WatchFormat::pdf));
    const QString name =
        choose_save_file(this, text_of(save_title, language_), proposed, save_kinds(language_));
    if (self == nullptr || name.isEmpty() || watch_ == nullptr)
        return;
    warning_of_failure(*this, language_, [this, &name] { save(name); });
}

void frmwatch::save(const QString& name) {
    const WatchFormat format = watch_format_of(name.toStdString()).value_or(WatchFormat::pdf);
    save_result(name.toStdString(), bytes_of(*watch_, shown_page(), format));
    ui_->lblstate->setText(saved_text(name, language_));
}

void frmwatch::cmdprint_click() {
    if (is_ready())
        warning_of_failure(*this, language_, [this] { print(); });
}

void frmwatch::print() {
    const std::shared_ptr<const CrescentWatch> printed = watch_;
    const WatchPage page = shown_page();
    print_document(
        {page.paper, [=] { return painted_pages(printed, page); }, [=] { return pdf_of(*printed, page); }},
        *this, language_);
}

} // namespace halvane
